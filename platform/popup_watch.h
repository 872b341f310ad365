// Tells when a pop-up of the program (a menu, a drop-down list) comes up and goes: its entries may
// lie outside the frame that the pointer is kept in.
#pragma once

#include <QApplication>
#include <QEvent>
#include <QObject>
#include <QWidget>

#include <functional>
#include <utility>

namespace zps::platform {

// Window thread only.
class PopupWatch : public QObject {
  public:
    PopupWatch(std::function<void()> shown, std::function<void()> hidden)
        : Shown(std::move(shown)), Hidden(std::move(hidden)) {}

    void Start() { qApp->installEventFilter(this); }
    void Stop() {
        if (qApp) qApp->removeEventFilter(this);
    }

    bool eventFilter(QObject* target, QEvent* event) override {
        const auto type = event->type();
        if (type != QEvent::Show && type != QEvent::Hide) return false;
        const auto* widget = qobject_cast<QWidget*>(target);
        if (widget && widget->windowType() == Qt::Popup) type == QEvent::Show ? Shown() : Hidden();
        return false;
    }

  private:
    std::function<void()> Shown, Hidden;
};

}  // namespace zps::platform
