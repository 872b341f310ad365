// A tool tip whose words are looked up when somebody asks for it.
#pragma once

#include <QEvent>
#include <QWidget>

#include <functional>
#include <utility>

namespace zps {

// Belongs to the widget. For figures that change faster than anyone asks for them.
class LiveToolTip : public QObject {
  public:
    LiveToolTip(QWidget& widget, std::function<QString()> words)
        : QObject(&widget), Widget(widget), Words(std::move(words)) {
        widget.installEventFilter(this);
    }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::ToolTip) Widget.setToolTip(Words());
        return QObject::eventFilter(watched, event);
    }

  private:
    QWidget& Widget;
    std::function<QString()> Words;
};

}  // namespace zps
