// The lay-out of the main window: what the supply is, what it does, what it is told, and the link.

#include "controls/flowing_row.h"
#include "controls/growing_frame.h"
#include "controls/shortcuts.h"
#include "controls/widgets.h"
#include "power/log/measurement_log.h"
#include "power/panel/display_layout.h"
#include "power/panel/header_layout.h"
#include "power/panel/link_layout.h"
#include "power/panel/output_region.h"
#include "power/panel/step_list_layout.h"
#include "power/panel/switches_layout.h"

#include <QHBoxLayout>
#include <QMainWindow>
#include <QMenuBar>
#include <QScrollArea>
#include <QStatusBar>
#include <QVBoxLayout>

namespace zps {

namespace {

// px
constexpr int Gap = 6;  // between the regions and around them
constexpr int Inset = 4;
constexpr int MostDisplay = 1000;  // higher, its numbers and rows would only drift apart

QAction* MakeAction(QMenu& menu, const QString& name, const QString& text) {
    auto* action = menu.addAction(text);
    action->setObjectName(name);
    return action;
}

// For the menu bar and the list itself.
void MakeTableMenu(PowerControls& controls, QMenu& data) {
    auto* copy = data.addMenu(QStringLiteral("단계표 복사(&S)"));
    controls.mnuData_Copy_All =
        MakeAction(*copy, QStringLiteral("mnuData_Copy_All"), QStringLiteral("전체(&A)"));
    controls.mnuData_Copy_Visible = MakeAction(*copy, QStringLiteral("mnuData_Copy_Visible"),
                                               QStringLiteral("보이는 단계(&V)"));
    controls.mnuData_Copy_Range =
        MakeAction(*copy, QStringLiteral("mnuData_Copy_Range"), QStringLiteral("범위(&R)..."));
    controls.mnuData_Paste =
        MakeAction(data, QStringLiteral("mnuData_Paste"), QStringLiteral("단계표 붙여넣기(&P)"));
    controls.mnuData_Undo =
        MakeAction(data, QStringLiteral("mnuData_Undo"), QStringLiteral("붙여넣기 되돌리기(&U)"));
    controls.mnuData_Send = MakeAction(data, QStringLiteral("mnuData_Send"),
                                       QStringLiteral("미송신 단계 모두 송신(&N)"));
    controls.mnuData_Copy = copy->menuAction();
}

// At what is about the list, for a list that can't be used can still be copied.
void OfferTableMenu(const PowerControls& controls, QWidget& box) {
    box.setContextMenuPolicy(Qt::ActionsContextMenu);
    box.addActions({controls.mnuData_Copy, controls.mnuData_Paste, controls.mnuData_Undo,
                    controls.mnuData_Send});
}

void MakeMenus(PowerControls& controls, QMenuBar& bar) {
    auto* connection = bar.addMenu(QStringLiteral("설정(&S)"));
    controls.mnuSET_MANU =
        MakeAction(*connection, QStringLiteral("mnuSET_MANU"), QStringLiteral("ZPS설정(&R)"));
    controls.mnuTEST =
        MakeAction(*connection, QStringLiteral("mnuTEST"), QStringLiteral("TEST(&T)"));
    controls.mnuRECORD =
        MakeAction(*connection, QStringLiteral("mnuRECORD"), QStringLiteral("통신 기록(&L)"));
    controls.mnuHISTORY =
        MakeAction(*connection, QStringLiteral("mnuHISTORY"), QStringLiteral("이력(&H)"));
    auto* data = bar.addMenu(QStringLiteral("데이터(&D)"));
    controls.mnuData_Clear =
        MakeAction(*data, QStringLiteral("mnuData_Clear"), QStringLiteral("측정 데이터 삭제(&C)"));
    controls.mnuData_CopyStatistics = MakeAction(*data, QStringLiteral("mnuData_CopyStatistics"),
                                                 QStringLiteral("통계 복사(&T)"));
    controls.mnuData_CopyStatistics->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_C));
    controls.mnuData_Curve =
        MakeAction(*data, QStringLiteral("mnuData_Curve"), QStringLiteral("그래프 그림 복사(&G)"));
    controls.mnuData_Window =
        MakeAction(*data, QStringLiteral("mnuData_Window"), QStringLiteral("창 그림 복사(&W)"));
    data->addSeparator();
    MakeTableMenu(controls, *data);
    auto* program = bar.addMenu(QStringLiteral("프로그램(&P)"));
    controls.mnuHELP =
        MakeAction(*program, QStringLiteral("mnuHELP"), QStringLiteral("프로그램 정보(&A)"));
    controls.mnuPROGRAM_END =
        MakeAction(*program, QStringLiteral("mnuPROGRAM_END"), QStringLiteral("프로그램 종료(&X)"));
}

QWidget* MakeAutoSequence(PowerControls& controls) {
    auto* box = new QWidget;
    auto* row = new QHBoxLayout(box);
    row->setContentsMargins(0, 0, 0, 0);
    controls.lblAutoStep = MakeLabel(QStringLiteral("lblAutoStep"), QStringLiteral("AUTO STEP"));
    controls.txtPAUTOSTEP = new EntryField(QStringLiteral("txtPAUTOSTEP"),
                                           QStringLiteral("AUTO STEP 자동 운전 순서"), box);
    controls.lblCount = MakeLabel(QStringLiteral("lblCount"), QStringLiteral("COUNT"));
    controls.txtPAUTOCOUNT = new EntryField(QStringLiteral("txtPAUTOCOUNT"),
                                            QStringLiteral("COUNT 자동 운전 반복 횟수"), box);
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
    auto* box = new QFrame;
    box->setFrameShape(QFrame::StyledPanel);
    box->setAccessibleName(QStringLiteral("단계표"));
    auto* column = new QVBoxLayout(box);
    column->setContentsMargins(Inset, Inset, Inset, Inset);
    column->setSpacing(Inset);
    MakeStepList(controls);
    OfferTableMenu(controls, *box);
    column->addWidget(controls.fraSTEPLIST, 1);
    column->addWidget(MakeAutoSequence(controls));
    return box;
}

// Switches and read-outs stay side by side and in sight; in a narrow window the steps go below.
OutputRegion* MakeOutputRegion(PowerControls& controls) {
    auto* inside = new QWidget;
    auto* row = new QHBoxLayout(inside);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(Gap);
    row->addWidget(MakeSwitches(controls), 18);
    row->addWidget(MakeReadOuts(controls), 36);
    PlateControls& plate = controls.Plate;
    plate.lblAUTORUN =
        MakeLabel(QStringLiteral("lblAUTORUN"), {}, QStringLiteral("자동 운전 진행"));
    plate.lblELAPSED =
        MakeLabel(QStringLiteral("lblELAPSED"), {}, QStringLiteral("운전 경과 시간"));
    plate.fraOUTPUT = new OutputRegion({plate.lblAUTORUN, plate.lblELAPSED}, *inside);
    return controls.Plate.fraOUTPUT;
}

QFrame* MakePowerDisplay(PowerControls& controls) {
    auto* frame = new FlowingRow(QBoxLayout::BottomToTop);
    frame->setObjectName(QStringLiteral("frmPOWERDISPLAY"));
    frame->setAccessibleName(QStringLiteral("전원 장치 제어"));
    frame->Add(*MakeSteps(controls), 46);
    frame->Add(*MakeOutputRegion(controls), 54);
    frame->setMaximumHeight(MostDisplay);
    controls.frmPOWERDISPLAY = frame;
    return frame;
}

const QSize Natural(1600, 900);  // px, of the window
constexpr int Bars = 50;         // px, menus and link line

// What stands between the menus and the link line. On a screen that is much larger than the window
// needs, all texts grow with it.
class Centre : public GrowingFrame {
  public:
    Centre() : GrowingFrame(Natural, 2) {}

    QSize sizeHint() const override {
        return QFrame::sizeHint().expandedTo(Natural - QSize(0, Bars));
    }

  protected:
    // The link line grows as well, and must not take from this what makes it grow.
    QSize Room() const override { return window()->size(); }
};

QFrame* MakeData(PowerControls& controls) {
    auto* frame = new QFrame;
    frame->setObjectName(QStringLiteral("fraDATA"));
    frame->setAccessibleName(QStringLiteral("측정 데이터"));
    controls.Log = new MeasurementLog(frame);
    for (QAction* copy : {controls.mnuData_Curve, controls.mnuData_Window})
        controls.Log->OfferAtCurves(*copy);
    auto* column = new QVBoxLayout(frame);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(controls.Log);
    controls.fraDATA = frame;
    return frame;
}

QWidget* MakeCard(PowerControls& controls) {
    controls.fraNOLINK = new NoLinkCard(QStringLiteral("fraNOLINK"));
    QObject::connect(controls.fraNOLINK->cmdSET_MANU, &QPushButton::clicked, controls.mnuSET_MANU,
                     &QAction::trigger);
    return controls.fraNOLINK;
}

}  // namespace

PowerControls MakePowerControls(QMainWindow& window) {
    PowerControls controls;
    MakeMenus(controls, *window.menuBar());
    auto* centre = new Centre;
    auto* column = new QVBoxLayout(centre);
    column->setContentsMargins(Gap, Gap / 2, Gap, 0);
    column->setSpacing(Gap);
    column->addWidget(MakeIdentity(controls));
    column->addWidget(MakePowerDisplay(controls), 5);
    column->addWidget(MakeData(controls), 3);
    column->addWidget(MakeCard(controls), 1);
    for (auto* part : centre->findChildren<QWidget*>(Qt::FindDirectChildrenOnly))
        centre->GrowAll(*part);
    // On a small or finely scaled screen the window may be smaller than what stands in it.
    auto* view = new QScrollArea(&window);
    view->setWidget(centre);
    view->setWidgetResizable(true);
    view->setFrameShape(QFrame::NoFrame);
    view->setFocusPolicy(Qt::NoFocus);
    view->verticalScrollBar()->setAccessibleName(QStringLiteral("창 위아래 이동"));
    view->horizontalScrollBar()->setAccessibleName(QStringLiteral("창 좌우 이동"));
    window.setCentralWidget(view);
    window.menuBar()->setAccessibleName(QStringLiteral("메뉴"));
    GiveMenuKey(*window.menuBar());
    window.statusBar()->setAccessibleName(QStringLiteral("통신 줄"));
    auto* linkLine = MakeLinkLine(controls);
    window.statusBar()->addWidget(linkLine, 1);
    centre->GrowAll(*linkLine);
    window.statusBar()->setSizeGripEnabled(false);  // a small screen needs the room
    // Tab goes along the work; what is only read or seldom used is last.
    auto* before = controls.Log->findChild<QWidget*>(QStringLiteral("chkFOLLOW"));
    for (auto* next : controls.Log->findChildren<StatisticsView*>()) {
        QWidget::setTabOrder(before, next);
        before = next;
    }
    for (QWidget* next : std::initializer_list<QWidget*>{
             controls.lblZPS_ERR, controls.lblZPS_ERR1, controls.lblZPS_ENQ, controls.lblPOLL,
             controls.lblNOTICE, controls.lblORV_URL, controls.cmdFOCUS}) {
        QWidget::setTabOrder(before, next);
        before = next;
    }
    return controls;
}

}  // namespace zps
