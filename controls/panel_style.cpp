#include "controls/panel_style.h"

#include <QPainter>
#include <QStyleOption>

namespace zps {

PanelStyle::PanelStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

void PanelStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                               QPainter* painter, const QWidget* widget) const {
    if (element != PE_FrameGroupBox) {
        return QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
    // Below the title, as the toolkit's own style has it.
    constexpr int gap = 3;
    const int title = option->fontMetrics.height() + gap;
    QColor line = option->palette.color(QPalette::WindowText);
    line.setAlphaF(0.3F);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(line);
    painter->setBrush(Qt::NoBrush);
    painter->drawRoundedRect(QRectF(option->rect).adjusted(0.5, title + 0.5, -0.5, -0.5), 3, 3);
    painter->restore();
}

}  // namespace zps
