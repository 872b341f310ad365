// The scroll bar of the step list.
#pragma once

#include <QCursor>
#include <QMouseEvent>
#include <QScrollBar>

#include <functional>

namespace zps {

// Asks before a press or the wheel moves it: an open entry is committed first, and one in error
// keeps the list where it is. A key comes only to a bar that has the focus itself, and leaves it
// there for the next one: no entry is open then.
//
// A box over the window ends a press, also one that is only just being asked about: the box gets
// the release of the button, and the bar would go on by itself.
class StepScrollBar : public QScrollBar {
  public:
    explicit StepScrollBar(QWidget* parent = nullptr) : QScrollBar(Qt::Vertical, parent) {}

    std::function<bool()> MayScroll;

  protected:
    bool event(QEvent* event) override {
        const auto type = event->type();
        if (type == QEvent::Polish) window()->installEventFilter(this);
        const bool moves = type == QEvent::MouseButtonPress ||
                           type == QEvent::MouseButtonDblClick || type == QEvent::Wheel;
        if (!moves || !isEnabled()) return QScrollBar::event(event);
        if (Permitted()) QScrollBar::event(event);
        event->accept();  // at its end, too: nothing else is to scroll instead
        return true;
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::WindowBlocked) EndPress();
        return QScrollBar::eventFilter(watched, event);
    }

  private:
    bool Permitted() {
        Blocked = false;
        return (!MayScroll || MayScroll()) && !Blocked;
    }

    void EndPress() {
        Blocked = true;
        const QPointF place = QCursor::pos();
        QMouseEvent release(QEvent::MouseButtonRelease, mapFromGlobal(place), place, Qt::LeftButton,
                            Qt::NoButton, Qt::NoModifier);
        QScrollBar::event(&release);
    }

    bool Blocked = false;  // a box has come up since the bar last asked
};

}  // namespace zps
