// A label that can be double-clicked, or reached with Tab and pressed with Enter or Space.
#pragma once

#include <QKeyEvent>
#include <QLabel>

#include <functional>

namespace zps {

class ClickLabel : public QLabel {
  public:
    ClickLabel(const QString& name, const QString& text, const QString& accessibleName)
        : QLabel(text) {
        setObjectName(name);
        setAccessibleName(accessibleName);
        setTextFormat(Qt::PlainText);
        setCursor(Qt::PointingHandCursor);
        setFocusPolicy(Qt::TabFocus);
    }

    std::function<void()> OnDoubleClick;

  protected:
    void keyPressEvent(QKeyEvent* event) override {
        const bool press = event->key() == Qt::Key_Return || event->key() == Qt::Key_Space;
        if (press && OnDoubleClick) {
            OnDoubleClick();
        } else {
            QLabel::keyPressEvent(event);
        }
    }
    void mouseDoubleClickEvent(QMouseEvent* /*event*/) override {
        if (OnDoubleClick) OnDoubleClick();
    }
};

}  // namespace zps
