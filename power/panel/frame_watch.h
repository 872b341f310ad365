// Tells when a frame of a window has come to another place on the screen.
#pragma once

#include <QObject>
#include <QRect>
#include <QTimer>

#include <functional>

class QWidget;

namespace zps {

// Whatever the cause: the window was moved, resized, maximised or came to a screen of another
// scale, the view above the frame was scrolled, or the layout put the frame elsewhere.
class FrameWatch : public QObject {
  public:
    // Calls `moved` from the event loop, once the layout has settled. `frame` and all that it lies
    // in outlive the watch and are not exchanged meanwhile.
    FrameWatch(QWidget& frame, std::function<void()> moved);

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void Look();

    QWidget& Frame;
    std::function<void()> Moved;
    QTimer Settled;
    QRect Place;      // of what can be seen of the frame, on the screen
    qreal Scale = 0;  // the display's pixels for one of the toolkit's
};

}  // namespace zps
