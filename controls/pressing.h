// A label that can be pressed: with the pointer, with Tab and Enter or Space, and by the
// accessibility bus.
#pragma once

#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>

#include <functional>
#include <utility>

namespace zps {

// Belongs to the label, which can be pressed while it shows a text. Whether Tab reaches it is told
// by its focus policy.
class Pressing : public QObject {
  public:
    Pressing(QLabel& label, std::function<void()> pressed)
        : QObject(&label), Label(label), Pressed(std::move(pressed)) {
        Label.installEventFilter(this);
        Label.setCursor(Qt::PointingHandCursor);
    }

    // What presses `label`; null for one that is not for pressing.
    static Pressing* Of(const QLabel& label) {
        for (QObject* child : label.children())
            if (auto* pressing = dynamic_cast<Pressing*>(child)) return pressing;
        return nullptr;
    }

    bool CanPress() const { return Label.isEnabled() && !Label.text().isEmpty(); }
    void Press() {
        if (CanPress()) Pressed();
    }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::MouseButtonPress) return true;  // the release is to come here
        if (event->type() == QEvent::MouseButtonRelease) {
            const auto& mouse = static_cast<const QMouseEvent&>(*event);
            const bool inside = Label.rect().contains(mouse.position().toPoint());
            if (inside && mouse.button() == Qt::LeftButton) Press();
        }
        if (event->type() == QEvent::KeyPress && IsPress(static_cast<const QKeyEvent&>(*event))) {
            Press();
            return true;
        }
        return QObject::eventFilter(watched, event);
    }

  private:
    static bool IsPress(const QKeyEvent& event) {
        const int key = event.key();
        return key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space;
    }

    QLabel& Label;
    const std::function<void()> Pressed;
};

}  // namespace zps
