// The scroll bar of the step list.
#pragma once

#include <QEvent>
#include <QScrollBar>

#include <functional>

namespace zps {

// Asks before a press or the wheel moves it: an open entry is committed first, and one in error
// keeps the list where it is. A key comes only to a bar that has the focus itself, and leaves it
// there for the next one: no entry is open then.
class StepScrollBar : public QScrollBar {
  public:
    explicit StepScrollBar(QWidget* parent = nullptr) : QScrollBar(Qt::Vertical, parent) {}

    std::function<bool()> MayScroll;

  protected:
    bool event(QEvent* event) override {
        const auto type = event->type();
        const bool moves = type == QEvent::MouseButtonPress ||
                           type == QEvent::MouseButtonDblClick || type == QEvent::Wheel;
        if (moves && isEnabled() && MayScroll && !MayScroll()) return true;
        return QScrollBar::event(event);
    }
};

}  // namespace zps
