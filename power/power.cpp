#include "power/power.h"

#include "controls/error_texts.h"
#include "controls/pressing.h"
#include "controls/window_time.h"
#include "power/freeing_message_boxes.h"
#include "power/log/statistics_view.h"
#include "power/panel/frame_watch.h"
#include "power/panel/gate.h"
#include "power/panel/link_layout.h"
#include "power/panel/panel_enabling.h"
#include "power/panel/status_display.h"
#include "power/panel/supply_identity.h"
#include "power/picture_menu.h"
#include "power/run/auto_progress.h"
#include "power/run/auto_sequence.h"
#include "power/run/link_report.h"
#include "power/run/output_switch.h"
#include "power/run/remote_switch.h"
#include "power/run/reply_handler.h"
#include "power/run/run_display.h"
#include "power/steps/step_entry.h"
#include "power/steps/step_scrolling.h"
#include "power/steps/step_upload.h"
#include "power/steps/table_menu.h"
#include "power/way_out.h"

#include <QCloseEvent>

namespace zps {

// In the order in which they are built on one another.
struct POWER::Inside {
    Inside(POWER& window, SOURCE& source, const Surroundings& around);
    ~Inside();
    Inside(const Inside&) = delete;
    Inside& operator=(const Inside&) = delete;

    PanelState State() const;
    // Lets what the present state allows be used, and nothing else. Runs after each change of it.
    void Refresh();
    // The output has been switched, by whomever.
    void ShowOutput();
    void ShowScrolled();
    bool SendTopStep();
    void AskStatus();
    // Nothing is sent by itself any more.
    void EndExchanges();

    FreeingMessageBoxes Boxes;
    Handlers Events;
    WindowTime Time;
    WindowTime TimeAtOnce;  // also while a box is up, for what is only shown
    PowerControls Controls;
    std::unique_ptr<serial::Port> comPOWER;
    Transmitter Sender;
    PowerParts Parts;
    Gate Door;
    SupplyIdentity Supply;

    Output Out;
    History Happened;
    LinkQuality Quality;
    Polling Polls;
    AwaitedAnswer Answer;
    HeldSteps Held;
    LinkReport Report;
    ReadOuts Shown;
    EditLock Lock;
    FrameWatch Place;
    QString PortTrouble;        // why the port could not be opened
    bool OvpUnderLoad = false;  // the list has been scrolled since the output went on

    Entries Fields;
    Commands Ways;
    AutoProgress Progress;
    StepList Rows;
    StepEntry Entry;
    StepScrolling Scrolling;
    StepUpload Upload;
    StepStart Start;
    MeasurementLog& Log;
    FunctionSwitches Functions;
    RemoteSwitch Remote;
    TableMenu Table;
    OutputSwitch OutputButton;
    AutoSequence Sequence;
    RunDisplay Display;
    ReplyHandler Replies;
    PictureMenu Pictures;
    WayOut Leaving;
};

POWER::Inside::Inside(POWER& window, SOURCE& source, const Surroundings& around)
    : Boxes(around.Boxes),
      Events(Boxes, &window),
      Time(Events),
      TimeAtOnce(Events, TickMode::AtOnce),
      Controls(MakePowerControls(window)),
      comPOWER(around.Ports.MakePort()),
      Sender(source, *comPOWER),
      Parts{source, Controls, Sender, Events, Boxes, window},
      Door(window),
      Supply(source, Controls, *comPOWER),
      Quality(Time, [this] { return Out.On(); }),
      Polls(source, Sender, Time, Quality, [this] { return Out.On(); }),
      Answer(source, *comPOWER, Sender, Time),
      Held(source, Sender, Answer),
      Report(Parts, Held, Quality, Happened, TimeAtOnce),
      Shown(Controls, source),
      Lock(Parts, around.Pointer),
      Place(*Controls.fraSTEPLIST, [this] { Lock.ResumeConfinement(); }),
      Fields(Parts, Door),
      Ways(Parts, Door, Fields),
      Progress(source, Time),
      Rows(Parts, {Held, Lock, [this] { return Progress.RunningStep(); }}),
      Entry(Parts, {Rows, Lock, Fields, Held, Polls, Shown, Happened, [this] { return Out.On(); }}),
      Scrolling(Parts, Door, Rows, Fields, [this] { ShowScrolled(); }),
      Upload(Parts, Ways, {Rows, Lock, Held, Polls, Shown, Happened, [this] { return Out.On(); }}),
      Start(Time, {[this] { return SendTopStep(); }, [this] { AskStatus(); },
                   [this] { return Out.Known() != OutputState::Off; }}),
      Log(*Controls.Log),
      Functions(Parts, Ways, Happened, [this] { Refresh(); }),
      Remote(Parts, Ways, Out, Happened, Start, Polls, [this] { Refresh(); }),
      Table(Parts, Ways,
            {Rows, Lock, Held, Shown, Upload, Door, Happened, Time,
             [this] { return Answer.Awaited() || Sender.ReplyInProgress(); },
             [this] { return Out.Known(); }, [this] { return Remote.ControlsUsable(); },
             [this] {
                 if (Start.UnderWay()) Start.CallOff();
             }}),
      OutputButton(Parts, Ways,
                   {Door, Fields, Out, Happened, Start, Polls, Quality, Shown, Lock, Rows, Held,
                    Answer, *comPOWER, Log, around.Loop}),
      Sequence(Parts, Fields, Progress),
      Display(Controls, TimeAtOnce, {source, Out, Shown, Rows, Progress, Quality}),
      Replies(Parts, {*comPOWER, Answer, Out, Happened, Start, Polls, Quality, Functions, Shown,
                      Log, Progress}),
      Pictures(Parts, Ways, Supply, Log),
      Leaving(Parts, Ways,
              {Out, Polls, Table, *comPOWER, [this] { EndExchanges(); },
               [&window] { Q_EMIT window.Closed(); }}) {
    source.Rows = &Rows;
    Boxes.Attend(Lock, Door);
    Log.SetRunning([this] { return Out.On(); });
    Log.SetSupply([this] { return Supply.OnLine(); });
    Log.OnSums([this] { Controls.Plate.lblENERGY->Show(Log.RunSums()); });
    Out.OnChange([this] { ShowOutput(); });
    Out.OnReport([this] { ShowOutputState(Controls, Out.Known()); });
    Shown.OnShown([this] { Display.NumbersShown(); });
    Lock.OnChange([this] { Refresh(); });
    Rows.OnSelect([this] { Refresh(); });
    Held.OnChange([this] { Refresh(); });
    Progress.OnChange([this] { Rows.Repaint(); });
}

POWER::Inside::~Inside() {
    Parts.Source.Rows = nullptr;
    Log.SetRunning([] { return false; });  // the window's children live a little longer
}

PanelState POWER::Inside::State() const {
    PanelState state;
    state.Identified = Remote.Identified();
    state.Remote = Remote.ControlsUsable();
    state.LeavesRemote = Remote.On();
    state.OutputOn = Out.On();
    state.AutoOn = Functions.AutoOn();
    state.Locked = Lock.Locked();
    state.EditedRow = Lock.EditedRow();
    state.SelectedRow = Rows.CurStep() - Rows.TopStep();
    for (int row = 0; row < RowCount; ++row) {
        state.Held.at(static_cast<std::size_t>(row)) = Parts.Source.StepFlag(Rows.StepOf(row));
    }
    state.OvpUnderLoad = OvpUnderLoad;
    return state;
}

void POWER::Inside::Refresh() {
    Enable(Controls, UsableIn(State()));
    Display.Refresh();
    Rows.Repaint();  // the marks and tool tips follow the same state
}

void POWER::Inside::ShowOutput() {
    ShowOutputState(Controls, Out.Known());
    OvpUnderLoad = false;
    Polls.Stop();
    Report.OutputSwitched(Out.On());
    if (!Out.On()) Functions.PollsEnded();
    Progress.OutputSwitched(Out.On(), Functions.AutoOn());
    Display.OutputChanged();
    Lock.ReleaseEditLock();
    Refresh();
}

void POWER::Inside::ShowScrolled() {
    OvpUnderLoad = Out.On();
    Lock.ReleaseEditLock();
    Refresh();
}

bool POWER::Inside::SendTopStep() {
    if (!Fields.Commit() || !Parts.Source.RatingsKnown()) return false;
    Upload.SendTopStep();
    return true;
}

void POWER::Inside::AskStatus() {
    Out.Asked();
    Polls.Poll();
}

void POWER::Inside::EndExchanges() {
    Polls.End();
    Start.CallOff();
    Table.CallOff();
}

POWER::POWER(SOURCE& source, const Surroundings& around) {
    // Only now: making the controls sends events to this window.
    Self = std::make_unique<Inside>(*this, source, around);
    setObjectName(QStringLiteral("POWER"));
    setWindowTitle(QStringLiteral("ZPS-RS232"));
    ConnectMenus();
    PowerControls& c = Self->Controls;
    c.lblORV_URL->OnDoubleClick = [this, &browser = around.Browser] {
        Self->Ways.Run([&] { lblORV_URL_DblClick(browser); });
    };
    Self->comPOWER->OnReceive(serial::EventKind::Input, [this] { comPOWER_Event(); });
}

POWER::~POWER() = default;

void POWER::Form_Load() {
    SOURCE& source = Self->Parts.Source;
    source.WasHandled();
    source.Settle();
    Self->comPOWER->SetCommPort(source.CommPort);
    Self->comPOWER->SetPortOpen(true);
    source.SetStartScales();
    source.PowerAddr = source.SetAddr;
    ShowModel();
    Self->Report.ShowConnection(Self->comPOWER->Device());
    Self->Controls.frmPOWERDISPLAY->setVisible(true);
    Self->Rows.Highlight(0);
    Self->Refresh();
}

void POWER::ConnectMenus() {
    const PowerControls& c = Self->Controls;
    Self->Ways.Connect(*c.mnuSET_MANU, [this] { OpenOther(&POWER::SettingsWanted); });
    Self->Ways.Connect(*c.mnuTEST, [this] { OpenOther(&POWER::TestWanted); });
    const auto showLine = [this] { Q_EMIT LineRecordWanted(); };
    const auto showHistory = [this] { Q_EMIT HistoryWanted(); };
    Self->Ways.Connect(*c.mnuRECORD, showLine);
    Self->Ways.Connect(*c.mnuHISTORY, showHistory);
    new Pressing(*c.lblPOLL, [this, showLine] { Self->Ways.Run(showLine); });
    new Pressing(*c.lblNOTICE, [this, showHistory] { Self->Ways.Run(showHistory); });
    Self->Ways.Connect(*c.mnuHELP, [this] { Q_EMIT AboutWanted(); });
    Self->Ways.Connect(*c.mnuData_Clear, [this] { mnuData_Clear_Click(); });
    Self->Ways.Connect(*c.mnuData_CopyStatistics, [this] { Self->Log.CopyStatistics(); });
}

void POWER::OpenOther(void (POWER::*wanted)()) {
    HandOver();
    Q_EMIT(this->*wanted)();
}

void POWER::HandOver() {
    Self->Fields.Commit();  // the sequence box may have the focus again, with unsent steps
    Self->EndExchanges();
    Self->Sender.AwaitOutstanding();
    Self->Parts.Source.MenuDialogFlag = true;
    Self->comPOWER->SetPortOpen(false);
    setEnabled(false);
}

std::optional<serial::PortError> POWER::TakeBack() {
    show();
    setEnabled(true);
    activateWindow();
    try {
        Self->comPOWER->SetCommPort(Self->Parts.Source.CommPort);
        Self->comPOWER->SetPortOpen(true);
        Self->Parts.Source.PortOpenedOn(Self->comPOWER->Device());
        if (!Self->PortTrouble.isEmpty()) Self->Controls.fraNOLINK->ExplainUnchecked();
        Self->PortTrouble.clear();
        ConnectionChanged();
    } catch (const serial::PortError& error) {
        Self->PortTrouble = MessageOf(error).Text;
        Self->Happened.Note(EventKind::Port, Self->PortTrouble);
        return error;
    }
    return std::nullopt;
}

void POWER::ConnectionChanged() {
    Self->Supply.ShowRatings();
    Self->Report.ShowConnection(Self->comPOWER->Device());
    Self->Shown.Refresh();
    Self->Rows.Repaint();
}

void POWER::ReportPort(const serial::PortError& error) {
    Self->Events.Run([&error] { throw error; });
}

void POWER::ShowPanels(bool identified, bool checked) {
    for (QFrame* frame : {Self->Controls.frmPOWERDISPLAY, Self->Controls.fraDATA}) {
        frame->setEnabled(identified);
        frame->setVisible(identified);
    }
    Self->Controls.mnuData_Curve->setEnabled(identified);  // there is none to be seen otherwise
    if (checked || !Self->PortTrouble.isEmpty())
        Self->Controls.fraNOLINK->Explain(Self->Parts.Source.RxResult(), Self->PortTrouble);
    else
        Self->Controls.fraNOLINK->ExplainUnchecked();
    Self->Controls.fraNOLINK->setVisible(!identified);
    if (!identified) Self->Controls.fraNOLINK->cmdSET_MANU->setFocus();
    if (identified)
        Self->Start.Begin();
    else
        Self->Start.CallOff();
}

void POWER::ShowModel() {
    Self->Supply.ShowModel();
}

void POWER::ShowRatings(const QString& ratings) {
    Self->Supply.RatingsRead(ratings);
    ConnectionChanged();
}

void POWER::StepTableReset() {
    Self->Held.Forget();
    Self->Table.TableReset();
    Self->Lock.ReleaseEditLock();
    Self->Rows.FillFields();
    Self->Rows.Highlight(0);
    Self->Shown.ShowStep(Self->Rows.CurStep());  // what it showed was of the supply before
    Self->Remote.SetRemoteControls(true);
}

void POWER::FunctionsReset() {
    if (Self->Out.On()) Self->Shown.ShowStep(Self->Rows.CurStep());
    Self->Out.WentOff();
    Self->Functions.Reset();
    Self->Sequence.Reset();
    Self->Progress.Forget();
    Self->Happened.Note(EventKind::Checked,
                        QStringLiteral("확인 중에 전원 장치의 출력과 기능을 모두 껐습니다."));
}

History& POWER::Happened() {
    return Self->Happened;
}

QString POWER::LinkText() const {
    return QualityText(Self->Quality);
}

void POWER::comPOWER_Event() {
    const bool waits = Self->Events.Busy();
    Self->Events.RunWhenFree(this, Origin::Event, [this, waits] {
        if (waits && Self->comPOWER->InBufferCount() == 0) return;
        Self->Replies.comPOWER_OnComm();
    });
}

void POWER::lblORV_URL_DblClick(platform::WebBrowser& browser) {
    const QString address = Self->Controls.lblORV_URL->text();
    if (browser.Open(address)) return;
    Self->Boxes.Show(this, {MessageIcon::Information, QStringLiteral("웹 브라우저"),
                            QStringLiteral("웹 브라우저를 열지 못했습니다.\n%1").arg(address)});
}

void POWER::mnuData_Clear_Click() {
    const Answer answer =
        Self->Boxes.Show(this, {MessageIcon::Question, QStringLiteral("측정 데이타 삭제"),
                                QStringLiteral("현재 데이타를 모두 삭제합니다."),
                                MessageButtons::YesNo, Answer::No});
    if (answer != Answer::Yes) return;
    const PowerControls& c = Self->Controls;
    Self->Log.Clear(c.txtSTEP->text(), c.txtVOLT->text(), c.txtCURR->text());
}

void POWER::closeEvent(QCloseEvent* event) {
    event->ignore();
    if (Self->Leaving.Close()) event->accept();
}

bool POWER::event(QEvent* event) {
    if (Self) {
        if (event->type() == QEvent::WindowActivate) Self->Lock.ResumeConfinement();
        if (event->type() == QEvent::WindowDeactivate) Self->Lock.SuspendConfinement();
        // The colours of plain rows are the desktop's.
        if (event->type() == QEvent::PaletteChange) {
            Self->Rows.Repaint();
            Self->Sequence.Repaint();
        }
    }
    return QMainWindow::event(event);
}

}  // namespace zps
