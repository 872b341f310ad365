// A label that can be double-clicked.
#pragma once

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
    }

    std::function<void()> OnDoubleClick;

  protected:
    void mouseDoubleClickEvent(QMouseEvent* /*event*/) override {
        if (OnDoubleClick) OnDoubleClick();
    }
};

}  // namespace zps
