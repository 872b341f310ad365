// The mark in the titles of all windows that tells the simulated supply from a real one.
#pragma once

#include <QObject>

namespace zps::demo {

// While it lives, every window and message box of the program bears the mark behind its title. Make
// it after the application object, on the window thread.
class MarkedTitles : public QObject {
  public:
    MarkedTitles();

  private:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

}  // namespace zps::demo
