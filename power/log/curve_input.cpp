// What keys and pointer do with the curve of the whole run.

#include "power/log/curve_view.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>

#include <cmath>

namespace zps {

namespace {

constexpr double WheelZoom = 1.25;  // a notch
constexpr double Notch = 120;       // of the wheel, as the toolkit counts
constexpr double Part = 0.1;        // of what is seen
constexpr double Page = 0.8;
constexpr int ManyColumns = 20;

}  // namespace

void CurveView::keyPressEvent(QKeyEvent* event) {
    const bool control = event->modifiers().testFlag(Qt::ControlModifier);
    const int columns = event->modifiers().testFlag(Qt::ShiftModifier) ? ManyColumns : 1;
    const std::size_t count = Curve.Count();
    switch (event->key()) {
        case Qt::Key_Left:
            return control ? Move(-Part) : Step(-columns);
        case Qt::Key_Right:
            return control ? Move(Part) : Step(columns);
        case Qt::Key_PageUp:
            return Move(-Page);
        case Qt::Key_PageDown:
            return Move(Page);
        case Qt::Key_Home:
            return count == 0 ? void() : Pick(0);
        case Qt::Key_End:
            return count == 0 ? void() : Pick(count - 1);
        case Qt::Key_Plus:
        case Qt::Key_Equal:  // the key of the plus sign
            return ZoomIn();
        case Qt::Key_Minus:
            return ZoomOut();
        case Qt::Key_0:
            return ShowAll();
        case Qt::Key_F:
            return ToggleFollow();
        case Qt::Key_Space:
            return Mark();
        case Qt::Key_Delete:
            return Unmark();
        default:
            ChartFrame::keyPressEvent(event);
    }
}

// Upright it zooms about the pointer; across, or with Shift, it moves.
void CurveView::wheelEvent(QWheelEvent* event) {
    const QPoint turned = event->angleDelta();
    const double across = event->modifiers().testFlag(Qt::ShiftModifier) ? turned.y() : turned.x();
    const QPoint place = Canvas.mapFrom(this, event->position().toPoint());
    if (across != 0)
        Window.Move(-Part * across / Notch * Window.Width());
    else
        Window.Zoom(std::pow(WheelZoom, -turned.y() / Notch), PlaceAt(place.x()));
    Replot();
    event->accept();
}

void CurveView::mousePressEvent(QMouseEvent* event) {
    const QPoint place = Canvas.mapFrom(this, event->position().toPoint());
    if (event->button() != Qt::LeftButton || !Canvas.rect().contains(place)) return;
    Dragged = Drag{place.x(), place.x()};
}

void CurveView::mouseMoveEvent(QMouseEvent* event) {
    const QPoint place = Canvas.mapFrom(this, event->position().toPoint());
    if (Dragged) return DragTo(place.x());
    if (!Canvas.rect().contains(place)) return leaveEvent(event);
    PointerX = place.x();
    Cursor.reset();
    ShowNotes();
}

void CurveView::DragTo(int x) {
    Dragged->Moves |= std::abs(x - Dragged->From) >= QApplication::startDragDistance();
    if (!Dragged->Moves) return;
    Move(static_cast<double>(Dragged->To - x) / Canvas.Columns());
    Dragged->To = x;
}

void CurveView::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || !Dragged) return;
    const bool click = !Dragged->Moves;
    Dragged.reset();
    mouseMoveEvent(event);
    if (click) Mark();
}

void CurveView::leaveEvent(QEvent* /*event*/) {
    if (!PointerX) return;
    PointerX.reset();
    ShowNotes();
}

void CurveView::focusOutEvent(QFocusEvent* event) {
    ChartFrame::focusOutEvent(event);
    if (event->reason() == Qt::PopupFocusReason) return;  // its own menu
    Cursor.reset();
    ShowNotes();
}

}  // namespace zps
