// The whole panel in a test: its real windows, off-screen, on a line of the test's choice.
#pragma once

#include "app/program.h"
#include "platform/pointer_confinement.h"
#include "platform/qt_event_loop.h"
#include "platform/web_browser.h"
#include "tests/support/scripted_port.h"
#include "tests/support/simulated_parts.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>

#include <deque>
#include <functional>
#include <memory>
#include <vector>

namespace zps::tests {

using namespace std::chrono_literals;

// Runs events until `done`, at most for `limit`; whether it came about.
inline bool WaitFor(const std::function<bool()>& done, std::chrono::milliseconds limit = 20s) {
    return QTest::qWaitFor(done, static_cast<int>(limit.count()));
}

// By the first action that is offered, as a screen reader does. The toolkit holds such a button
// down for a moment before it clicks.
inline bool PressFromOutside(QAbstractButton& button) {
    auto& offered = *QAccessible::queryAccessibleInterface(&button)->actionInterface();
    offered.doAction(offered.actionNames().value(0));
    return button.isDown() && WaitFor([&] { return !button.isDown(); });
}

// Answers message boxes at once and remembers them.
class ScriptedBoxes : public MessageBoxes {
  public:
    // Answers for the next questions; a question beyond them is answered No.
    std::deque<Answer> Answers;
    std::vector<Message> Shown;
    // Called while a box is up.
    std::function<void(const Message&)> WhileUp;

    Answer Show(QWidget* parent, const Message& message) override;
    QString LastText() const { return Shown.empty() ? QString() : Shown.back().Text; }
    QString LastTitle() const { return Shown.empty() ? QString() : Shown.back().Title; }
};

// Remembers what the pointer is confined to.
class RecordingPointer : public platform::PointerConfinement {
  public:
    void Confine(QWidget& frame) override {
        Within = &frame;
        if (Real) Real->Confine(frame);
    }
    void Release() override {
        Within = nullptr;
        if (Real) Real->Release();
    }
    QWidget* Within = nullptr;
    // Confines a real pointer too.
    std::unique_ptr<platform::PointerConfinement> Real;
};

class RecordingBrowser : public platform::WebBrowser {
  public:
    bool Open(const QString& address) override {
        Opened = address;
        return Works;
    }
    QString Opened;
    bool Works = true;
};

// The program around scripted or real ports. One at a time in a process.
class Panel {
  public:
    Panel(serial::PortMaker& ports, serial::EventLoop& loop)
        : Run({ports, loop, Boxes, Pointer, Browser}) {}

    ScriptedBoxes Boxes;
    RecordingPointer Pointer;
    RecordingBrowser Browser;
    Program Run;

    SOURCE& Source() { return Run.Shared(); }
    POWER& Main() { return Run.Main(); }

    // A control by its given name, in the main window or in the settings window.
    template <class Control>
    Control& Get(const char* name) {
        return Find<Control>(Run.Main(), name);
    }
    template <class Control>
    Control& GetSetting(const char* name) {
        return Find<Control>(*Run.Settings(), name);
    }
    QString Text(const char* label) { return Get<QLabel>(label).text(); }
    // A control of a row of the step list.
    template <class Control = QLineEdit>
    Control& InRow(int row, const char* name) {
        return Get<Control>(qPrintable(QString("%1_%2").arg(name).arg(row)));
    }
    QPushButton& StepButton(int row) { return InRow<QPushButton>(row, "txPSTEP"); }
    QScrollBar& Bar() { return Get<QScrollBar>("vscAUTOSTEP"); }
    void Choose(const char* menu) { Get<QAction>(menu).trigger(); }
    void Click(const char* button) {
        QTest::mouseClick(&Get<QAbstractButton>(button), Qt::LeftButton);
    }

    // Types `text` into a field with the keyboard in place of what is there; the focus stays.
    void Type(const char* field, const QString& text);
    // Moves the focus as a click on a neutral place would.
    void Leave() { Get<QWidget>("cmdFOCUS").setFocus(); }
    void Enter(const char* field, const QString& text) { Type(field, text), Leave(); }
    // Waits until every frame has its reply handled.
    bool Settle() {
        return WaitFor([this] { return !Source().RxBusy(); });
    }

    // Waits until the settings window shows this caption for the data probe.
    bool WaitForDataResult(const QString& caption, std::chrono::milliseconds limit = 20s);

  private:
    template <class Control>
    static Control& Find(QObject& window, const char* name) {
        auto* control = window.findChild<Control*>(QLatin1String(name));
        if (control == nullptr) qFatal("no control %s", name);
        return *control;
    }
};

// The panel on COM1 with simulated supplies.
class SimulatedPanel : private SimulatedParts, public Panel {
  public:
    explicit SimulatedPanel(const std::vector<simulator::SupplyOptions>& supplies = {{}})
        : SimulatedParts(supplies), Panel(Ports(), Loop) {}

    using SimulatedParts::Line;
    using SimulatedParts::Link;

    // Starts the program and waits until the supply is identified; the settings window is open.
    bool Identify();
    // The same, then closes the settings window and waits until the top step has been started and
    // the line is quiet.
    bool Open();
    // The frames that have come since the last call, without polls (DLE).
    std::vector<Bytes> Frames();
};

struct ScriptedParts {
    std::shared_ptr<ScriptedLine> Line = std::make_shared<ScriptedLine>();
    platform::QtEventLoop Loop;
    ScriptedPortMaker Ports{Loop, Line};
};

// The panel on a scripted line: answers and time are the test's.
class ScriptedPanel : private ScriptedParts, public Panel {
  public:
    ScriptedPanel() : Panel(ScriptedParts::Ports, ScriptedParts::Loop) {}
    ScriptedLine& Line() { return *ScriptedParts::Line; }
};

}  // namespace zps::tests
