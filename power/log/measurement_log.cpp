#include "power/log/measurement_log.h"

#include "controls/copy_text.h"
#include "controls/flowing_row.h"
#include "controls/widgets.h"
#include "power/log/log_grid_accessible.h"
#include "power/log/spoken_chart.h"
#include "power/log/statistics_text.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace zps {

MeasurementLog::MeasurementLog(QWidget* parent)
    : QWidget(parent),
      Model(new LogModel(this)),
      MSFlexGrid1(new LogGrid(*Model, this)),
      MSChart1(new LogChart),
      fraCURVE(new CurveView(*Model)),
      fraCURVES(new CurveTabs(this)),
      Label6(new QLabel(QStringLiteral("1"), this)),
      lblSELECTED(new StatisticsView(QStringLiteral("lblSELECTED"),
                                     QStringLiteral("선택한 행의 통계"), StatisticsView::Form::Line,
                                     QStringLiteral("선택: "))),
      fraSTATISTICS(new StatisticsPanel),
      lblCOPIED(MakeLabel(QStringLiteral("lblCOPIED"), {})) {
    SpeakLogGrids();
    SpeakLogCharts();
    MSFlexGrid1->setObjectName(QStringLiteral("MSFlexGrid1"));
    MSFlexGrid1->setAccessibleName(QStringLiteral("측정 데이터 표"));
    MSChart1->setObjectName(QStringLiteral("MSChart1"));
    MSChart1->setAccessibleName(QStringLiteral("측정 데이터 그래프"));
    fraCURVE->setObjectName(QStringLiteral("fraCURVE"));
    fraCURVE->setAccessibleName(QStringLiteral("전체 측정 그래프"));
    fraCURVES->setObjectName(QStringLiteral("fraCURVES"));
    fraCURVES->Add(QStringLiteral("최근 20"), *MSChart1);
    fraCURVES->Add(QStringLiteral("전체"), *fraCURVE);
    Label6->setObjectName(QStringLiteral("Label6"));
    Label6->setAccessibleName(QStringLiteral("표시 시작 행"));
    // Of one size, so that a growing number moves nothing and costs no lay-out.
    Label6->setFixedSize(WidthFor(*Label6, QStringLiteral("00000000")),
                         Label6->sizeHint().height());
    Label6->setAutoFillBackground(true);
    LayOut();
    connect(MSFlexGrid1, &LogGrid::Scrolled, this, &MeasurementLog::MSFlexGrid1_Scroll);
    connect(MSFlexGrid1, &LogGrid::Copied, this,
            [this](int rows) { NoteCopied(QStringLiteral("%1행 복사됨").arg(rows)); });
    connect(MSFlexGrid1, &LogGrid::Selected, this, &MeasurementLog::ShowSelected);
    tmrCOPIED.setSingleShot(true);
    tmrCOPIED.setInterval(3000);
    connect(&tmrCOPIED, &QTimer::timeout, lblCOPIED, &QLabel::clear);
}

void MeasurementLog::LayOut() {
    auto* top = new QHBoxLayout;
    auto* title = MakeLabel({}, QStringLiteral("측정 데이터"));
    Enlarge(*title, 1);
    top->addWidget(title);
    top->addSpacing(12);
    top->addWidget(new QLabel(QStringLiteral("표시 시작 행")));
    top->addSpacing(3);
    top->addWidget(Label6);
    top->addSpacing(12);
    top->addWidget(lblSELECTED, 1);
    top->addStretch(0);
    top->addWidget(lblCOPIED);
    lblSELECTED->hide();
    fraSTATISTICS->hide();
    auto* table = new QWidget;
    auto* column = new QVBoxLayout(table);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(2);
    column->addLayout(top);
    column->addWidget(MSFlexGrid1, 1);
    auto* parts = new FlowingRow(QBoxLayout::TopToBottom);
    parts->Add(*table, 0);  // as wide as its columns; the chart has the rest
    parts->Add(*fraCURVES, 1);
    parts->Add(*fraSTATISTICS, 0);
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    all->addWidget(parts);
}

void MeasurementLog::Restart(const QString& stepCaption) {
    Model->SetZeroRow(stepCaption);
    Run.Restart(Supply());
    SumsBeat.Changed();
}

void MeasurementLog::NoteReply() {
    if (Run.Answered()) MSChart1->SetData(Run.Chart());
}

void MeasurementLog::Append(int step, Reading volts, Reading amps, std::uint8_t status) {
    const LogRun::Entry entry = Run.Take();
    const Sample sample{.Volts = volts.Value,
                        .Amps = amps.Value,
                        .Hundredths = entry.Hundredths,
                        .Step = static_cast<std::uint8_t>(step),
                        .VoltDecimals = static_cast<std::int8_t>(volts.Decimals),
                        .CurrDecimals = static_cast<std::int8_t>(amps.Decimals),
                        .Status = status};
    Run.Sum(sample);
    Model->Append(sample, entry.Number, Run.Origin());
    Run.Plot(Model->PointAt(Model->rowCount() - 1));
    MSChart1->SetData(Run.Chart());
    SumsBeat.Changed();
    fraCURVE->Grown();
}

void MeasurementLog::Clear(const QString& stepCaption, const QString& voltText,
                           const QString& currText) {
    Model->ClearSamples();  // scrolls, and so may fill the chart
    fraCURVE->Cleared();
    Run.EmptyChart();
    MSChart1->SetData(Run.Chart());
    Model->SetZeroRow(stepCaption, voltText, currText);
    MSFlexGrid1->SelectRow(1);
}

void MeasurementLog::MSFlexGrid1_Scroll() {
    const int top = MSFlexGrid1->TopRow();
    Label6->setText(QString::number(top));
    if (Running()) return;
    ChartTable seen;
    for (int row = 0; auto& point : seen) point = Model->PointAt(top - 1 + row++);
    Run.PutIntoChart(seen);
    MSChart1->SetData(seen);
}

// The label's text is what screen readers hear, once.
void MeasurementLog::NoteCopied(const QString& what) {
    lblCOPIED->setText(what);
    tmrCOPIED.start();
}

void MeasurementLog::CopyStatistics() {
    const RangeSums selected = SelectedSums();
    if (RunSums().Samples + selected.Samples == 0)
        return NoteCopied(QStringLiteral("복사할 통계 없음"));
    QString text = ProgramText() + OriginText(Run.Origin()) +
                   StatisticsTable(QStringLiteral("운전 통계"), RunSums());
    if (selected.Samples > 0)
        text += u'\n' + Model->OriginsOf(selected) +
                StatisticsTable(QStringLiteral("선택한 행의 통계"), selected);
    CopyText(text.toUtf8());
    NoteCopied(QStringLiteral("통계 복사됨"));
}

RangeSums MeasurementLog::SelectedSums() const {
    const bool several = MSFlexGrid1->FirstSelected() < MSFlexGrid1->LastSelected();
    if (!several) return {};
    return Model->SumsOf(MSFlexGrid1->FirstSelected() - 1, MSFlexGrid1->LastSelected() - 1);
}

void MeasurementLog::ShowSums() {
    fraSTATISTICS->ShowRun(RunSums());
    ToldSums();
}

void MeasurementLog::ShowSelected() {
    const RangeSums sums = SelectedSums();
    lblSELECTED->Show(sums);
    fraSTATISTICS->ShowSelected(sums);
    lblSELECTED->setVisible(sums.Samples > 0 && !fraSTATISTICS->HasBoth());
}

// The table keeps its width, and the chart is not to become narrower than the table.
void MeasurementLog::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    const int besides = 2 * MSFlexGrid1->sizeHint().width() + fraSTATISTICS->sizeHint().width();
    fraSTATISTICS->FitInto(width() >= besides ? height() : 0);
    ShowSelected();
}

void MeasurementLog::OfferAtCurves(QAction& command) {
    for (QWidget* curve : std::initializer_list<QWidget*>{MSChart1, fraCURVE}) {
        curve->setContextMenuPolicy(Qt::ActionsContextMenu);
        curve->addAction(&command);
    }
}

const ChartPoint& MeasurementLog::ChartRow(int row) const {
    return Run.Chart().at(static_cast<std::size_t>(row - 1));
}

}  // namespace zps
