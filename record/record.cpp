#include "record/record.h"

#include "controls/spoken_labels.h"
#include "controls/widgets.h"

#include <QButtonGroup>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QRadioButton>
#include <QVBoxLayout>

#include <array>
#include <chrono>

namespace zps {

using namespace std::chrono_literals;

namespace {

constexpr auto LookInterval = 400ms;
constexpr auto CopyToldFor = 3s;
constexpr QSize Suggested(1120, 560);  // px

struct FilterKind {
    LineModel::Filter Filter;
    const char* Name;
    const char* Caption;
    const char* Meaning;
};
constexpr std::array Filters{
    FilterKind{LineModel::Filter::All, "optALL", "전체(&A)", "주고받은 모든 것"},
    FilterKind{LineModel::Filter::Errors, "optERRORS", "오류(&E)",
               "응답이 없거나 잘못되었거나 거부된 것"},
    FilterKind{LineModel::Filter::Commands, "optCOMMANDS", "조회 제외(&M)",
               "잘 끝난 조회(DLE)를 뺀 나머지"},
};

QHBoxLayout* MakeRow(QWidget& box) {
    auto* row = new QHBoxLayout(&box);
    row->setContentsMargins(0, 0, 0, 0);
    return row;
}

// Spoken as it is captioned, without the mark of its key.
QPushButton* MakeKeyed(const QString& name, const QString& caption) {
    auto* button = MakeButton(name, caption);
    button->setAccessibleName({});
    return button;
}

}  // namespace

RECORD::RECORD(const LineTrace& trace, const History& history)
    : LineRows(trace), HistoryRows(history) {
    setObjectName(QStringLiteral("RECORD"));
    setWindowTitle(QStringLiteral("통신 기록"));
    setAttribute(Qt::WA_QuitOnClose, false);
    Tabs = new QTabWidget;
    Tabs->setObjectName(QStringLiteral("tabRECORD"));
    Tabs->setAccessibleName(QStringLiteral("기록 종류"));
    Tabs->addTab(MakeLinePage(), QStringLiteral("통신(&L)"));
    Tabs->addTab(MakeHistoryPage(), QStringLiteral("이력(&H)"));
    auto* centre = new QWidget;
    auto* column = new QVBoxLayout(centre);
    column->addWidget(Tabs, 1);
    column->addWidget(MakeFoot());
    setCentralWidget(centre);
    connect(Tabs, &QTabWidget::currentChanged, this, &RECORD::Refresh);
    for (RecordTable* table : {grdLINE, grdHISTORY})
        connect(table, &RecordTable::Copied, this, &RECORD::TellCopied);
    tmrRECORD.setInterval(LookInterval);
    tmrRECORD.callOnTimeout(this, &RECORD::Refresh);
    CopyTold.setSingleShot(true);
    CopyTold.setInterval(CopyToldFor);
    CopyTold.callOnTimeout(this, &RECORD::ShowState);
}

QSize RECORD::sizeHint() const {
    return QMainWindow::sizeHint().expandedTo(Suggested);
}

void RECORD::ShowPage(RecordTable& table) {
    Tabs->setCurrentWidget(table.parentWidget());
    table.setFocus();
}

QWidget* RECORD::MakeLinePage() {
    auto* page = new QWidget;
    auto* column = new QVBoxLayout(page);
    auto* tools = new QWidget;
    auto* row = MakeRow(*tools);
    grdLINE = new RecordTable(QStringLiteral("grdLINE"), QStringLiteral("통신 기록 표"), LineRows);
    cmdPAUSE = MakeKeyed(QStringLiteral("cmdPAUSE"), QStringLiteral("일시 정지(&P)"));
    connect(cmdPAUSE, &QPushButton::clicked, this, [this] { SetPaused(!LineRows.Paused()); });
    row->addWidget(MakeFilter());
    row->addStretch(1);
    row->addWidget(cmdPAUSE);
    row->addWidget(MakeCopy(QStringLiteral("cmdCOPY"), *grdLINE));
    column->addWidget(tools);
    column->addWidget(grdLINE, 1);
    return page;
}

QWidget* RECORD::MakeHistoryPage() {
    auto* page = new QWidget;
    auto* column = new QVBoxLayout(page);
    auto* tools = new QWidget;
    auto* row = MakeRow(*tools);
    grdHISTORY =
        new RecordTable(QStringLiteral("grdHISTORY"), QStringLiteral("이력 표"), HistoryRows);
    row->addStretch(1);
    row->addWidget(MakeCopy(QStringLiteral("cmdCOPYHISTORY"), *grdHISTORY));
    column->addWidget(tools);
    column->addWidget(grdHISTORY, 1);
    return page;
}

QWidget* RECORD::MakeFilter() {
    auto* box = new QWidget;
    box->setAccessibleName(QStringLiteral("보이는 것"));
    auto* row = MakeRow(*box);
    for (const FilterKind& kind : Filters) {
        auto* option = new QRadioButton(QString::fromUtf8(kind.Caption));
        option->setObjectName(QString::fromUtf8(kind.Name));
        option->setToolTip(QString::fromUtf8(kind.Meaning));
        option->setChecked(kind.Filter == LineModel::Filter::All);
        connect(option, &QRadioButton::toggled, this, [this, filter = kind.Filter](bool on) {
            if (!on) return;
            LineRows.SetFilter(filter);
            grdLINE->ShowEnd();
            ShowState();
        });
        row->addWidget(option);
    }
    return box;
}

QPushButton* RECORD::MakeCopy(const QString& name, RecordTable& table) {
    auto* button = MakeKeyed(name, QStringLiteral("복사(&C)"));
    button->setToolTip(QStringLiteral("선택한 행을 복사하고, 선택한 행이 없으면 모두 복사합니다."));
    connect(button, &QPushButton::clicked, &table, &RecordTable::Copy);
    return button;
}

QWidget* RECORD::MakeFoot() {
    auto* foot = new QWidget;
    auto* row = MakeRow(*foot);
    lblQUALITY = MakeLabel(QStringLiteral("lblQUALITY"), {}, QStringLiteral("통신 품질"));
    lblQUALITY->setWordWrap(true);
    lblSTATE = MakeLabel(QStringLiteral("lblSTATE"), {}, QStringLiteral("기록 상태"));
    row->addWidget(lblQUALITY, 1);
    row->addWidget(lblSTATE);
    return foot;
}

void RECORD::SetPaused(bool paused) {
    if (paused == LineRows.Paused()) return;
    LineRows.SetPaused(paused);
    cmdPAUSE->setText(paused ? QStringLiteral("계속(&P)") : QStringLiteral("일시 정지(&P)"));
    if (!paused) grdLINE->ShowEnd();
    ShowState();
}

void RECORD::Refresh() {
    (ShowsLine() ? grdLINE : grdHISTORY)->Follow();
    const QString foot = FootText();
    if (lblQUALITY->text() != foot) lblQUALITY->setText(foot);
    ShowState();
}

void RECORD::ShowState() {
    if (CopyTold.isActive()) return;
    const bool line = ShowsLine();
    const int rows = line ? LineRows.rowCount() : HistoryRows.rowCount();
    const QString text =
        (line && LineRows.Paused() ? QStringLiteral("멈춤 · %1행") : QStringLiteral("%1행"))
            .arg(rows);
    if (lblSTATE->text() != text) lblSTATE->setText(text);
}

void RECORD::TellCopied(int rows) {
    Say(*lblSTATE, QStringLiteral("%1행 복사됨").arg(rows));
    CopyTold.start();
}

void RECORD::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    Refresh();
    tmrRECORD.start();
}

void RECORD::hideEvent(QHideEvent* event) {
    QMainWindow::hideEvent(event);
    tmrRECORD.stop();
    if (!event->spontaneous()) SetPaused(false);  // closed, not just put aside
}

void RECORD::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        close();
    else
        QMainWindow::keyPressEvent(event);
}

}  // namespace zps
