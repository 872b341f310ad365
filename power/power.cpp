#include "power/power.h"

#include "power/freeing_message_boxes.h"
#include "power/link/polling.h"
#include "power/log/measurement_log.h"
#include "power/panel/frame_watch.h"
#include "power/panel/panel_enabling.h"
#include "power/panel/power_parts.h"
#include "power/run/auto_sequence.h"
#include "power/run/reply_handler.h"
#include "power/run/switches.h"
#include "power/steps/edit_lock.h"
#include "power/steps/entries.h"
#include "power/steps/step_entry.h"
#include "power/steps/step_list.h"
#include "power/steps/step_scrolling.h"
#include "power/steps/step_upload.h"

#include <QApplication>
#include <QCloseEvent>

namespace zps {

// In the order in which they are built on one another.
struct POWER::Inside {
    Inside(POWER& window, SOURCE& source, const Surroundings& around)
        : Boxes(around.Boxes),
          Events(Boxes, &window),
          Controls(MakePowerControls(window)),
          Timers(Events),
          comPOWER(around.Ports.MakePort()),
          Line(source, *comPOWER),
          Held(source, *comPOWER, Line, State.CurStep),
          Parts{source, State, Controls, Timers, Line, Held, Events, Boxes, around.Loop, window},
          Rows(Parts),
          Lock(Parts, around.Pointer),
          Place(*Controls.fraSTEPLIST, [this] { Lock.ResumeConfinement(); }),
          Fields(Parts),
          Entry(Parts, Rows, Lock, Fields),
          Scrolling(Parts, Rows, Lock, Fields),
          Upload(Parts, Rows, Lock, Fields),
          Log(*Controls.Log),
          Replies(Parts, Lock, Log, *comPOWER),
          Polls(Parts, Replies),
          Buttons(Parts, Lock, Fields, Log),
          Sequence(Parts, Fields) {
        source.Rows = &Rows;
        Boxes.Free(Lock);
        Held.OnTakenBack([this] { Lock.StepTakenBack(); });
        Log.SetRunning([this] { return State.OutputOn; });
        Timers.tmrSTART.OnTick([this] { Upload.tmrSTART_Timer(); });
    }

    ~Inside() {
        Parts.Source.Rows = nullptr;
        Log.SetRunning([] { return false; });  // the window's children live a little longer
    }
    Inside(const Inside&) = delete;
    Inside& operator=(const Inside&) = delete;

    FreeingMessageBoxes Boxes;
    Handlers Events;
    PowerControls Controls;
    PowerState State;
    PowerTimers Timers;
    std::unique_ptr<serial::Port> comPOWER;
    Transmitter Line;
    HeldSteps Held;
    PowerParts Parts;
    StepList Rows;
    EditLock Lock;
    FrameWatch Place;  // of the rows, to which the lock keeps the pointer
    Entries Fields;
    StepEntry Entry;
    StepScrolling Scrolling;
    StepUpload Upload;
    MeasurementLog& Log;
    ReplyHandler Replies;
    Polling Polls;
    Switches Buttons;
    AutoSequence Sequence;
};

POWER::POWER(SOURCE& source, const Surroundings& around)
    : Self(std::make_unique<Inside>(*this, source, around)) {
    setObjectName(QStringLiteral("POWER"));
    setWindowTitle(QStringLiteral("ZPS-RS232"));
    ConnectMenus();
    PowerControls& c = Self->Controls;
    c.lblORV_URL->OnDoubleClick = [this, &browser = around.Browser] {
        if (!Self->State.Switching) Self->Events.Run([&] { lblORV_URL_DblClick(browser); });
    };
    Self->comPOWER->OnReceive(serial::EventKind::Input, [this] { comPOWER_Event(); });
}

POWER::~POWER() = default;

void POWER::Form_Load() {
    SOURCE& source = Self->Parts.Source;
    source.RxBusy = false;
    Self->comPOWER->SetCommPort(source.CommPort);
    Self->comPOWER->SetPortOpen(true);
    source.VoltScale = 100;
    source.CurrScale = 10000;
    Self->State = PowerState{};
    source.PowerAddr = source.SetAddr;
    ShowModel();
    source.ReplyFlag = ExpectAck;
    Self->Controls.frmPOWERDISPLAY->setVisible(true);
    source.PaintStepRows(0);
    DisablePanel(Self->Parts);
}

void POWER::ConnectMenus() {
    const auto connectMenu = [this](QAction* menu, std::function<void()> click) {
        connect(menu, &QAction::triggered, this, [this, click = std::move(click)] {
            if (!Self->State.Switching) Self->Events.Run(click);
        });
    };
    const PowerControls& c = Self->Controls;
    connectMenu(c.mnuSET_MANU, [this] { OpenOther(&POWER::SettingsWanted); });
    connectMenu(c.mnuTEST, [this] { OpenOther(&POWER::TestWanted); });
    connectMenu(c.mnuHELP, [this] { Q_EMIT AboutWanted(); });
    connectMenu(c.mnuData_Clear, [this] { mnuData_Clear_Click(); });
    connectMenu(c.mnuPROGRAM_END, [this] { mnuPROGRAM_END_Click(); });
}

void POWER::OpenOther(void (POWER::*wanted)()) {
    if (HandOver()) Q_EMIT(this->*wanted)();
}

bool POWER::HandOver() {
    if (!Self->Fields.CommitAll()) return false;
    Self->Timers.StopAll();
    Self->Line.AwaitOutstanding();
    Self->Parts.Source.MenuDialogFlag = true;
    Self->comPOWER->SetPortOpen(false);
    setEnabled(false);
    return true;
}

std::optional<serial::PortError> POWER::TakeBack() {
    show();
    setEnabled(true);
    activateWindow();
    try {
        Self->comPOWER->SetCommPort(Self->Parts.Source.CommPort);
        Self->comPOWER->SetPortOpen(true);
        Self->Parts.Source.PortOpenedOn(Self->comPOWER->Device());
    } catch (const serial::PortError& error) {
        return error;
    }
    return std::nullopt;
}

void POWER::ReportPort(const serial::PortError& error) {
    Self->Events.Run([&error] { throw error; });
}

void POWER::ShowPanels(bool identified) {
    for (QFrame* frame : {Self->Controls.frmPOWERDISPLAY, Self->Controls.fraDATA}) {
        EnableControl(Self->Controls, *frame, identified);
        frame->setVisible(identified);
    }
    Self->Timers.tmrSTART.SetEnabled(identified);
}

void POWER::ShowModel() {
    Self->Controls.lblZPS_MODEL->setText(QString::fromStdString(Self->Parts.Source.ModelName));
}

void POWER::ShowRatings(const QString& ratings) {
    Self->Controls.lblSPEC_VA->setText(ratings);
}

void POWER::StepTableReset() {
    Self->Rows.FillFields(0);
    Self->Parts.Source.PaintStepRows(0);
    SetRemoteControls(Self->Parts, true);
}

void POWER::FunctionsReset() {
    Self->Buttons.ResetFunctions();
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
    const Answer answer = Self->Boxes.Show(
        this, {MessageIcon::Question, QStringLiteral("측정 데이타 삭제"),
               QStringLiteral("현재 데이타를 모두 삭제합니다."), MessageButtons::YesNo});
    if (answer != Answer::Yes) return;
    const PowerControls& c = Self->Controls;
    Self->Log.Clear(c.txtSTEP->text(), c.txtVOLT->text(), c.txtCURR->text());
}

namespace {

Message EndQuestion(MessageIcon icon) {
    return {icon, QStringLiteral("프로그램 종료"), QStringLiteral("프로그램을 종료합니다."),
            MessageButtons::YesNo};
}

}  // namespace

void POWER::mnuPROGRAM_END_Click() {
    Self->Timers.tmrDLE.SetEnabled(false);
    if (Self->Boxes.Show(this, EndQuestion(MessageIcon::Information)) != Answer::Yes) return;
    const int address = Self->Parts.Source.PowerAddr;
    if (Self->comPOWER->PortOpen()) {
        Self->Parts.Source.LayFrame(ProbeFrame(address, code::Dc1, address));
        Self->Line.TransmitFrame();
        Self->comPOWER->SetPortOpen(false);
    }
    Self->Timers.StopAll();
    Q_EMIT Closed();
    QCoreApplication::exit(0);
}

bool POWER::MayUnload() {
    if (Self->Boxes.Show(this, EndQuestion(MessageIcon::Question)) != Answer::Yes) return false;
    Self->Timers.StopAll();
    if (Self->comPOWER->PortOpen()) {
        Self->Line.Send(ControlFrame(Self->Parts.Source.PowerAddr, code::Dc1), ExpectAck);
        Self->comPOWER->SetPortOpen(false);
    }
    return true;
}

void POWER::closeEvent(QCloseEvent* event) {
    event->ignore();
    // Another window has the port, or a click is still being worked on.
    if (!isEnabled() || Self->State.Switching) return;
    Self->Events.Run([&] {
        if (!MayUnload()) return;
        event->accept();
        Q_EMIT Closed();
    });
}

bool POWER::event(QEvent* event) {
    if (Self) {
        if (event->type() == QEvent::WindowActivate) Self->Lock.ResumeConfinement();
        if (event->type() == QEvent::WindowDeactivate) Self->Lock.SuspendConfinement();
    }
    return QMainWindow::event(event);
}

}  // namespace zps
