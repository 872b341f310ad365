// Whether the main window takes anything from a person now.
#pragma once

#include <QWidget>

namespace zps {

// Mouse and keys don't reach a disabled window, but a menu command or text from outside (a screen
// reader, a global menu) does: every way in asks here.
class Gate {
  public:
    explicit Gate(const QWidget& window) : Window(window) {}

    bool Open() const { return Bars == 0 && Window.isEnabled(); }

    // While one lives, the window takes nothing: a message box is up.
    class Bar {
      public:
        explicit Bar(Gate& gate) : Of(gate) { ++Of.Bars; }
        ~Bar() { --Of.Bars; }
        Bar(const Bar&) = delete;
        Bar& operator=(const Bar&) = delete;

      private:
        Gate& Of;
    };

    // The same while a click is being worked on whose wait lets replies and timers run: what the
    // person does with mouse and keys meanwhile is lost, not kept for later.
    class Shut : public QObject {
      public:
        explicit Shut(Gate& gate);

      protected:
        bool eventFilter(QObject* watched, QEvent* event) override;

      private:
        Bar Across;
        const QWidget& Window;
    };

  private:
    const QWidget& Window;
    int Bars = 0;
};

}  // namespace zps
