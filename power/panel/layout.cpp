// The lay-out of the main window: what the supply is, what it does, what it is told, and the link.

#include "controls/big_read_out.h"
#include "controls/flowing_row.h"
#include "controls/shortcuts.h"
#include "controls/widgets.h"
#include "power/log/measurement_log.h"
#include "power/panel/functions.h"
#include "power/panel/step_list_layout.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QMainWindow>
#include <QMenuBar>
#include <QScrollArea>
#include <QStatusBar>
#include <QVBoxLayout>

namespace zps {

namespace {

constexpr int ReplyPanels = 14;

QAction* MakeAction(QMenu& menu, const QString& name, const QString& text) {
    auto* action = menu.addAction(text);
    action->setObjectName(name);
    return action;
}

void MakeMenus(PowerControls& controls, QMenuBar& bar) {
    auto* connection = bar.addMenu(QStringLiteral("설정(&S)"));
    controls.mnuSET_MANU =
        MakeAction(*connection, QStringLiteral("mnuSET_MANU"), QStringLiteral("ZPS설정(&R)"));
    controls.mnuTEST =
        MakeAction(*connection, QStringLiteral("mnuTEST"), QStringLiteral("TEST(&T)"));
    auto* data = bar.addMenu(QStringLiteral("데이타(&D)"));
    controls.mnuData_Clear =
        MakeAction(*data, QStringLiteral("mnuData_Clear"), QStringLiteral("측정 데이타 삭제(&C)"));
    auto* program = bar.addMenu(QStringLiteral("프로그램(&P)"));
    controls.mnuHELP =
        MakeAction(*program, QStringLiteral("mnuHELP"), QStringLiteral("프로그램 정보(&A)"));
    controls.mnuPROGRAM_END =
        MakeAction(*program, QStringLiteral("mnuPROGRAM_END"), QStringLiteral("프로그램 종료(&X)"));
}

QWidget* MakeIdentity(PowerControls& controls) {
    auto* box = new QWidget;
    auto* row = new QHBoxLayout(box);
    row->setContentsMargins(0, 0, 0, 0);
    controls.lblZPS_MODEL =
        MakeLabel(QStringLiteral("lblZPS_MODEL"), {}, QStringLiteral("모델 이름"));
    controls.lblSPEC_VA =
        MakeLabel(QStringLiteral("lblSPEC_VA"), {}, QStringLiteral("최대 전압과 전류"));
    Enlarge(*controls.lblZPS_MODEL, 1.6);
    Enlarge(*controls.lblSPEC_VA, 1.6);
    row->addWidget(controls.lblZPS_MODEL);
    row->addSpacing(24);
    row->addWidget(controls.lblSPEC_VA);
    controls.lblNOTICE = MakeLabel(QStringLiteral("lblNOTICE"), {}, QStringLiteral("알림"));
    controls.lblNOTICE->setAlignment(Qt::AlignCenter);
    controls.lblNOTICE->setWordWrap(true);
    Enlarge(*controls.lblNOTICE, 1.1);
    // However long its text is, it moves nothing.
    controls.lblNOTICE->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    row->addWidget(controls.lblNOTICE, 1);
    controls.lblORV_URL =
        new ClickLabel(QStringLiteral("lblORV_URL"), QStringLiteral(ZPS_WEB_ADDRESS),
                       QStringLiteral("제조사 웹 주소"));
    row->addWidget(controls.lblORV_URL);
    return box;
}

ReadOut* AddReadOut(QGridLayout& grid, int row, const QString& title, const QString& unit,
                    const QString& name, const QString& text, const QString& accessible) {
    auto* value = new BigReadOut(name, text, accessible, QStringLiteral("600.0000"));
    auto* unitLabel = MakeLabel({}, unit);
    Enlarge(*unitLabel, 1.8);
    grid.addWidget(MakeLabel({}, title), row, 0);
    grid.addWidget(value, row, 1);
    grid.addWidget(unitLabel, row, 2);
    grid.setRowStretch(row, 1);
    return value;
}

QLabel* AddState(QHBoxLayout& row, const QString& title, const QString& name, const QString& text,
                 const QString& accessible) {
    auto* value = MakeLabel(name, text, accessible);
    Enlarge(*value, 1.8);
    value->setMinimumWidth(WidthFor(*value, QStringLiteral("00")));
    row.addWidget(MakeLabel({}, title));
    row.addWidget(value);
    return value;
}

QWidget* MakeReadOuts(PowerControls& controls) {
    auto* box = new QGroupBox(QStringLiteral("표시"));
    auto* grid = new QGridLayout(box);
    controls.txtVOLT =
        AddReadOut(*grid, 0, QStringLiteral("VOLTAGE"), QStringLiteral("V"),
                   QStringLiteral("txtVOLT"), QStringLiteral("0.00"), QStringLiteral("전압 V"));
    controls.txtCURR =
        AddReadOut(*grid, 1, QStringLiteral("CURRENT"), QStringLiteral("A"),
                   QStringLiteral("txtCURR"), QStringLiteral("0.000"), QStringLiteral("전류 A"));
    auto* states = new QHBoxLayout;
    controls.txtSTEP = AddState(*states, QStringLiteral("STEP"), QStringLiteral("txtSTEP"),
                                QStringLiteral("00"), QStringLiteral("단계 번호"));
    states->addSpacing(24);
    controls.lblMODE = AddState(*states, QStringLiteral("MODE"), QStringLiteral("lblMODE"),
                                QStringLiteral("CV"), QStringLiteral("동작 모드"));
    states->addStretch(1);
    grid->addLayout(states, 2, 0, 1, 3);
    return box;
}

QWidget* MakeSwitches(PowerControls& controls) {
    auto* box = new QGroupBox(QStringLiteral("스위치"));
    auto* grid = new QGridLayout(box);
    int place = 0;
    for (const Function& function : Functions()) {
        const QString accessible = QString::fromUtf8(function.Accessible);
        const QString state =
            QString::fromUtf8(&function == &RemoteFunction() ? function.CaptionOff : "OFF");
        auto* button = MakeButton(QString::fromUtf8(function.ButtonName),
                                  QString::fromUtf8(function.CaptionOff), accessible);
        button->setMinimumHeight(button->fontMetrics().height() * 2);
        LetGrow(*button);
        GiveKey(*button, function.Key, QString::fromUtf8(function.ToolTip));
        auto* label = MakeLabel(QString::fromUtf8(function.LabelName), state,
                                accessible + QStringLiteral(" 상태"));
        label->setAlignment(Qt::AlignCenter);
        Enlarge(*label, 1.1);
        label->setMinimumWidth(WidthFor(*label, QStringLiteral("REMOTE")));
        auto* light = new Lamp(function.Idle);
        light->setObjectName(QString::fromUtf8(function.LightName));
        light->setAccessibleName(accessible + QStringLiteral(" 표시등"));
        controls.*function.Button = button;
        controls.*function.Label = label;
        controls.*function.Light = light;
        grid->addWidget(button, place, 0);
        grid->addWidget(light, place, 1);
        grid->addWidget(label, place, 2);
        ++place;
    }
    controls.lblPREMOTE =
        MakeLabel(QStringLiteral("lblPREMOTE"), QStringLiteral("LOC"), QStringLiteral("제어 경로"));
    controls.lblPREMOTE->setAlignment(Qt::AlignCenter);
    grid->addWidget(controls.lblPREMOTE, place, 2);
    grid->setRowStretch(place + 1, 1);
    return box;
}

QWidget* MakeAutoSequence(PowerControls& controls) {
    auto* box = new QWidget;
    auto* row = new QHBoxLayout(box);
    row->setContentsMargins(0, 0, 0, 0);
    controls.lblAutoStep = MakeLabel(QStringLiteral("lblAutoStep"), QStringLiteral("AUTO STEP"));
    controls.txtPAUTOSTEP =
        new EntryField(QStringLiteral("txtPAUTOSTEP"), QStringLiteral("자동 운전 단계 순서"), box);
    controls.lblCount = MakeLabel(QStringLiteral("lblCount"), QStringLiteral("COUNT"));
    controls.txtPAUTOCOUNT =
        new EntryField(QStringLiteral("txtPAUTOCOUNT"), QStringLiteral("자동 운전 반복 횟수"), box);
    controls.txtPAUTOCOUNT->setText(QStringLiteral("0"));
    controls.txtPAUTOCOUNT->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    controls.txtPAUTOCOUNT->setMaximumWidth(
        WidthFor(*controls.txtPAUTOCOUNT, QStringLiteral("0000000")));
    row->addWidget(controls.lblAutoStep);
    row->addWidget(controls.txtPAUTOSTEP, 1);
    row->addWidget(controls.lblCount);
    row->addWidget(controls.txtPAUTOCOUNT);
    return box;
}

QWidget* MakeSteps(PowerControls& controls) {
    auto* box = new QGroupBox(QStringLiteral("단계표"));
    auto* column = new QVBoxLayout(box);
    MakeStepList(controls);
    column->addWidget(controls.fraSTEPLIST, 1);
    column->addWidget(MakeAutoSequence(controls));
    return box;
}

// Switches and read-outs stay side by side and in sight; in a narrow window the steps go below.
QFrame* MakePowerDisplay(PowerControls& controls) {
    auto* frame = new FlowingRow(QBoxLayout::BottomToTop);
    frame->setObjectName(QStringLiteral("frmPOWERDISPLAY"));
    frame->setAccessibleName(QStringLiteral("전원 장치 제어"));
    frame->Add(*MakeSteps(controls), 3);
    auto* watched = new QWidget;
    auto* row = new QHBoxLayout(watched);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(MakeSwitches(controls));
    row->addWidget(MakeReadOuts(controls), 1);
    frame->Add(*watched, 3);
    controls.frmPOWERDISPLAY = frame;
    return frame;
}

QFrame* MakeData(PowerControls& controls) {
    auto* frame = new QFrame;
    frame->setObjectName(QStringLiteral("fraDATA"));
    frame->setAccessibleName(QStringLiteral("측정 데이타"));
    auto* box = new QGroupBox(QStringLiteral("측정 데이타"));
    controls.Log = new MeasurementLog(box);
    for (auto [outer, inner] : {std::pair<QWidget*, QWidget*>{box, controls.Log}, {frame, box}}) {
        (new QVBoxLayout(outer))->addWidget(inner);
    }
    frame->layout()->setContentsMargins(0, 0, 0, 0);
    controls.fraDATA = frame;
    return frame;
}

QLabel* MakeCounter(const QString& name, const QString& what) {
    auto* counter = MakeLabel(name, QStringLiteral("ZPS"), what);
    counter->setToolTip(what);
    counter->setAlignment(Qt::AlignCenter);
    counter->setMinimumWidth(WidthFor(*counter, QStringLiteral("0000")));
    QPalette palette = counter->palette();
    const QColor ground = palette.color(QPalette::Base);
    PaintBackground(*counter, ground);
    palette = counter->palette();
    palette.setColor(QPalette::WindowText, ReadableOn(ground) == Qt::black
                                               ? QColor(0xC0, 0, 0)
                                               : QColor(0xFF, 0x80, 0x80));
    counter->setPalette(palette);
    return counter;
}

QWidget* MakeLinkLine(PowerControls& controls) {
    auto* box = new QWidget;
    auto* row = new QHBoxLayout(box);
    controls.StatusBar_RXDATA =
        new NumberPanels(QStringLiteral("StatusBar_RXDATA"), ReplyPanels, ReplyPanels);
    controls.lblZPS_ERR = MakeCounter(QStringLiteral("lblZPS_ERR"), QStringLiteral("무응답 횟수"));
    controls.lblZPS_ERR1 =
        MakeCounter(QStringLiteral("lblZPS_ERR1"), QStringLiteral("길이 오류 횟수"));
    controls.lblZPS_ENQ =
        MakeCounter(QStringLiteral("lblZPS_ENQ"), QStringLiteral("헤더 오류 횟수"));
    // Outside every frame that is ever disabled or hidden, so that it can always take the focus.
    controls.cmdFOCUS = MakeButton(QStringLiteral("cmdFOCUS"), {}, QStringLiteral("입력 대기"));
    controls.cmdFOCUS->setFocusPolicy(Qt::ClickFocus);
    controls.cmdFOCUS->setFlat(true);
    controls.cmdFOCUS->setFixedSize(1, 1);
    row->setContentsMargins(3, 2, 8, 4);
    row->setSpacing(4);
    row->addWidget(controls.cmdFOCUS);
    row->addWidget(controls.StatusBar_RXDATA, 1);
    row->addWidget(MakeLabel({}, QStringLiteral("통신 오류")));
    for (QLabel* counter : {controls.lblZPS_ERR, controls.lblZPS_ERR1, controls.lblZPS_ENQ}) {
        row->addWidget(counter);
    }
    return box;
}

}  // namespace

PowerControls MakePowerControls(QMainWindow& window) {
    PowerControls controls;
    MakeMenus(controls, *window.menuBar());
    auto* centre = new QWidget;
    auto* column = new QVBoxLayout(centre);
    column->addWidget(MakeIdentity(controls));
    column->addWidget(MakePowerDisplay(controls));
    column->addWidget(MakeData(controls), 1);
    // On a small or finely scaled screen the window may be smaller than what stands in it.
    auto* view = new QScrollArea(&window);
    view->setWidget(centre);
    view->setWidgetResizable(true);
    view->setFrameShape(QFrame::NoFrame);
    view->setFocusPolicy(Qt::NoFocus);
    view->verticalScrollBar()->setAccessibleName(QStringLiteral("창 위아래 이동"));
    view->horizontalScrollBar()->setAccessibleName(QStringLiteral("창 좌우 이동"));
    window.setCentralWidget(view);
    window.statusBar()->addWidget(MakeLinkLine(controls), 1);
    window.statusBar()->setSizeGripEnabled(false);  // a small screen needs the room
    // Tab goes along the work; the address is last.
    QWidget::setTabOrder(controls.Log->findChild<LogGrid*>(), controls.lblORV_URL);
    QWidget::setTabOrder(controls.lblORV_URL, controls.cmdFOCUS);
    return controls;
}

}  // namespace zps
