#include "power/log/measurement_log.h"

#include "controls/flowing_row.h"
#include "controls/widgets.h"
#include "power/log/log_grid_accessible.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include <algorithm>

namespace zps {

namespace {

QString Zero() {
    return QStringLiteral("0");
}

std::int8_t DecimalsOf(const QString& text) {
    if (text.isEmpty()) return -1;
    const auto point = text.indexOf(u'.');
    return static_cast<std::int8_t>(point < 0 ? 0 : text.size() - point - 1);
}

}  // namespace

MeasurementLog::MeasurementLog(QWidget* parent)
    : QWidget(parent),
      Model(new LogModel(this)),
      MSFlexGrid1(new LogGrid(*Model, this)),
      MSChart1(new LogChart(this)),
      Label6(new QLabel(QStringLiteral("1"), this)) {
    SpeakLogGrids();
    MSFlexGrid1->setObjectName(QStringLiteral("MSFlexGrid1"));
    MSFlexGrid1->setAccessibleName(QStringLiteral("측정 데이타 표"));
    MSChart1->setObjectName(QStringLiteral("MSChart1"));
    MSChart1->setAccessibleName(QStringLiteral("측정 데이타 그래프"));
    Label6->setObjectName(QStringLiteral("Label6"));
    Label6->setAccessibleName(QStringLiteral("맨 위 행 번호"));
    // Of one size, so that a growing number moves nothing and costs no lay-out.
    Label6->setFixedSize(WidthFor(*Label6, QStringLiteral("00000000")),
                         Label6->sizeHint().height());
    LayOut();
    connect(MSFlexGrid1, &LogGrid::Scrolled, this, &MeasurementLog::MSFlexGrid1_Scroll);
}

void MeasurementLog::LayOut() {
    auto* top = new QHBoxLayout;
    top->addWidget(new QLabel(QStringLiteral("맨 위 행")));
    top->addWidget(Label6);
    top->addStretch(1);
    auto* table = new QWidget;
    auto* column = new QVBoxLayout(table);
    column->setContentsMargins(0, 0, 0, 0);
    column->addLayout(top);
    column->addWidget(MSFlexGrid1, 1);
    auto* parts = new FlowingRow(QBoxLayout::TopToBottom);
    parts->Add(*table, 1);
    parts->Add(*MSChart1, 1);
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    all->addWidget(parts);
}

void MeasurementLog::Restart(const QString& stepCaption) {
    Model->SetZeroRow({Zero(), Zero(), stepCaption, Zero(), Zero()});
    EmptyChartData();
    SampleNo = 0;
    LogStart.reset();
}

void MeasurementLog::NoteReply() {
    if (SampleNo == 0 && !LogStart) NoteStart();
}

void MeasurementLog::NoteStart() {
    LogStart = Now();
    MSChart1->SetData(ChartData);
}

void MeasurementLog::Append(int step, float volts, float amps, const QString& voltText,
                            const QString& currText) {
    if (!LogStart) NoteStart();
    ++SampleNo;
    using Hundredths = std::chrono::duration<std::uint32_t, std::centi>;
    const auto passed = Now() - *LogStart + std::chrono::milliseconds(5);  // halves go up
    Model->Append({.Volts = volts,
                   .Amps = amps,
                   .Hundredths = std::chrono::duration_cast<Hundredths>(passed).count(),
                   .Step = static_cast<std::uint8_t>(step),
                   .VoltDecimals = DecimalsOf(voltText),
                   .CurrDecimals = DecimalsOf(currText)},
                  SampleNo);
    AddToChartData(voltText, currText);
    MSChart1->SetData(ChartData);
}

void MeasurementLog::AddToChartData(const QString& voltText, const QString& currText) {
    if (SampleValue < ChartRows) {
        ++SampleValue;
    } else {
        std::rotate(ChartData.begin(), ChartData.begin() + 1, ChartData.end());
    }
    ChartData[static_cast<std::size_t>(SampleValue - 1)] = {voltText, currText};
}

void MeasurementLog::EmptyChartData() {
    ChartData = {};
    SampleValue = 0;
}

void MeasurementLog::Clear(const QString& stepCaption, const QString& voltText,
                           const QString& currText) {
    Model->ClearSamples();  // scrolls, and so may fill the chart
    EmptyChartData();
    MSChart1->SetData(ChartData);
    Model->SetZeroRow({Zero(), Zero(), stepCaption, voltText, currText});
    MSFlexGrid1->SelectRow(1);
}

void MeasurementLog::MSFlexGrid1_Scroll() {
    const int top = MSFlexGrid1->TopRow();
    Label6->setText(QString::number(top));
    if (Running()) return;
    for (int row = 0; row < ChartRows; ++row) {
        const auto cell = [&](LogColumn column) {
            return CellText(top + row, static_cast<int>(column));
        };
        ChartData[static_cast<std::size_t>(row)] = {cell(LogColumn::Voltage),
                                                    cell(LogColumn::Current)};
    }
    MSChart1->SetData(ChartData);
}

QString MeasurementLog::CellText(int row, int column) const {
    if (row == 0) return Model->headerData(column, Qt::Horizontal).toString();
    return Model->index(row - 1, column).data().toString();
}

const std::array<QString, ChartColumns>& MeasurementLog::ChartRow(int row) const {
    return ChartData.at(static_cast<std::size_t>(row - 1));
}

}  // namespace zps
