// The hands and eyes of the guided session: real key presses and clicks on the panel's own windows,
// a line on standard output for each thing seen, and pictures.
#pragma once

#include "app/program.h"
#include "power/log/measurement_log.h"
#include "simulator/line.h"

#include <QApplication>
#include <QDir>
#include <QMessageBox>
#include <QTest>
#include <QTimer>

#include <functional>

namespace zps::tour {

class Guide {
  public:
    // Pictures go into `pictures`, which is made if absent.
    Guide(Program& program, const QString& pictures);

    // Runs events until `seen`, for some seconds at most, and tells what came of it. What was not
    // seen fails the session.
    void Expect(const QString& what, const std::function<bool()>& seen);
    bool AllSeen() const { return Missed == 0; }

    void Picture(QWidget& window, const QString& name);

    // A control of the main window by its name.
    template <class Control>
    Control& Get(const char* name) {
        auto* control = Panel.Main().findChild<Control*>(QLatin1String(name));
        if (control == nullptr) qFatal("no control %s", name);
        return *control;
    }
    void Click(const char* button);
    // Types into a field and leaves it with the Tab key.
    void Enter(const char* field, const QString& text);

    // The next message box is pictured under `name` and answered with `key`. Its text is BoxText()
    // then.
    void AnswerBox(const QString& name, Qt::Key key);
    QString BoxText() const { return LastBoxText; }

  private:
    void LookForBox();

    Program& Panel;
    QDir Pictures;
    QTimer BoxWatch;
    QString BoxName;
    Qt::Key BoxKey = Qt::Key_Return;
    QString LastBoxText;
    int Missed = 0;
};

}  // namespace zps::tour
