// A label that is reached with Tab.
#pragma once

#include <QLabel>
#include <QPainter>
#include <QStyleOptionFocusRect>

namespace zps {

class TabLabel : public QLabel {
  public:
    TabLabel(const QString& name, const QString& text, const QString& accessibleName)
        : QLabel(text) {
        setObjectName(name);
        setAccessibleName(accessibleName);
        setTextFormat(Qt::PlainText);
        setFocusPolicy(Qt::TabFocus);
    }

  protected:
    void paintEvent(QPaintEvent* event) override {
        QLabel::paintEvent(event);
        if (!hasFocus()) return;
        QPainter painter(this);
        QStyleOptionFocusRect option;
        option.initFrom(this);
        option.backgroundColor = palette().color(QPalette::Window);
        style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
    }
};

}  // namespace zps
