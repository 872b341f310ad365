// The frame round what has the focus of the keyboard.
#pragma once

#include <QPainter>
#include <QStyleOptionFocusRect>
#include <QWidget>

namespace zps {

// While `widget` is painted, as the last of it.
inline void PaintFocusMark(QWidget& widget) {
    if (!widget.hasFocus()) return;
    QPainter painter(&widget);
    QStyleOptionFocusRect option;
    option.initFrom(&widget);
    option.backgroundColor = widget.palette().color(QPalette::Window);
    widget.style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, &widget);
}

}  // namespace zps
