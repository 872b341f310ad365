#include "power/panel/frame_watch.h"

#include <QEvent>
#include <QWidget>

#include <utility>

namespace zps {

FrameWatch::FrameWatch(QWidget& frame, std::function<void()> moved)
    : Frame(frame), Moved(std::move(moved)) {
    Settled.setSingleShot(true);
    Settled.callOnTimeout(this, [this] { Look(); });
    for (QWidget* widget = &frame; widget != nullptr; widget = widget->parentWidget())
        widget->installEventFilter(this);
}

bool FrameWatch::eventFilter(QObject* /*watched*/, QEvent* event) {
    switch (event->type()) {
        case QEvent::Move:
        case QEvent::Resize:
        case QEvent::Show:
        case QEvent::ScreenChangeInternal:
            Settled.start(0);
            break;
        default:
            break;
    }
    return false;
}

void FrameWatch::Look() {
    const QRect seen = Frame.visibleRegion().boundingRect();
    const QRect place(Frame.mapToGlobal(seen.topLeft()), seen.size());
    const qreal scale = Frame.devicePixelRatio();
    if (place == Place && scale == Scale) return;
    Place = place;
    Scale = scale;
    Moved();
}

}  // namespace zps
