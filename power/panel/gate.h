// Whether the main window takes anything from a person now.
#pragma once

#include <QWidget>

namespace zps {

// Mouse and keys don't reach a disabled window, but a menu command or text from outside (a screen
// reader, a global menu) does: every way in asks here.
class Gate {
  public:
    explicit Gate(const QWidget& window) : Window(window) {}

    bool Open() const { return !IsShut && Window.isEnabled(); }

    // While one lives, a click is being worked on whose wait lets replies and timers run: what the
    // person does with mouse and keys meanwhile is lost, not kept for later.
    class Shut : public QObject {
      public:
        explicit Shut(Gate& gate);
        ~Shut() override;

      protected:
        bool eventFilter(QObject* watched, QEvent* event) override;

      private:
        Gate& Of;
    };

  private:
    const QWidget& Window;
    bool IsShut = false;
};

}  // namespace zps
