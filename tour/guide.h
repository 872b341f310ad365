// The hands and eyes of the guided session: real key presses and clicks on the panel's own windows,
// a line on standard output for each thing seen, and a look at each window.
#pragma once

#include "app/program.h"

#include <QMessageBox>
#include <QPointer>
#include <QTest>
#include <QTimer>

#include <functional>

namespace zps::tour {

class Guide {
  public:
    // Looks at a window in a state of the session. What it returns false for fails the session.
    using Look = std::function<bool(QWidget& window, const QString& state)>;

    Guide(Program& program, Look look);

    // Runs events until `seen`, for some seconds at most, and tells what came of it. What was not
    // seen fails the session.
    void Expect(const QString& what, const std::function<bool()>& seen);
    // The same for what `act` brings about. Where an answer comes too late, as on a busy machine, a
    // person does it again.
    void Bring(const QString& what, const std::function<void()>& act,
               const std::function<bool()>& seen);
    bool AllSeen() const { return Missed == 0; }

    void LookAt(QWidget& window, const QString& state);

    // A control of the main window by its name.
    template <class Control>
    Control& Get(const char* name) {
        auto* control = Panel.Main().findChild<Control*>(QLatin1String(name));
        if (control == nullptr) qFatal("no control %s", name);
        return *control;
    }
    void Click(const char* button);
    // Types into a field; Enter() confirms it with the Enter key.
    void Type(const char* field, const QString& text);
    void Enter(const char* field, const QString& text);

    // The next message box is looked at as `state` and answered with `key`. Its text is BoxText()
    // then. A box that comes without this is shut and fails the session.
    void AnswerBox(const QString& state, Qt::Key key);
    QString BoxText() const { return LastBoxText; }

  private:
    void Tell(bool good, const QString& what);
    void LookForBox();

    Program& Panel;
    Look Seen;
    QTimer BoxWatch;
    QString BoxState;
    Qt::Key BoxKey = Qt::Key_Return;
    QString LastBoxText;
    QPointer<QMessageBox> LastBox;  // a second look at one box, from a loop within, does nothing
    int Missed = 0;
};

}  // namespace zps::tour
