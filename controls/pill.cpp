#include "controls/pill.h"

#include "controls/colours.h"
#include "controls/focus_mark.h"

#include <QPainter>

namespace zps {

namespace {
const QSize Border(14, 4);  // px, both sides together
}

Pill::Pill(const QString& name, const QString& text, const QString& accessibleName) : QLabel(text) {
    setObjectName(name);
    setAccessibleName(accessibleName);
    setTextFormat(Qt::PlainText);
    setAlignment(Qt::AlignCenter);
    setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
}

void Pill::Fill(const QColor& ground) {
    if (ground == Filled) return;
    Filled = ground;
    QPalette colours;  // what is not set is the parent's
    if (Filled.isValid()) {
        colours.setColor(QPalette::Window, Filled);
        colours.setColor(QPalette::WindowText, ReadableOn(Filled));
    }
    setPalette(colours);
}

QSize Pill::SizeFor(const QString& text) const {
    return fontMetrics().size(Qt::TextSingleLine, text) + Border;
}

void Pill::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QColor line = palette().color(QPalette::WindowText);
    line.setAlphaF(0.35F);
    painter.setPen(Filled.isValid() ? QPen(Qt::NoPen) : QPen(line));
    painter.setBrush(Filled.isValid() ? QBrush(Filled) : QBrush(Qt::NoBrush));
    const double radius = (height() - 1) / 2.0;
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
    painter.end();
    QLabel::paintEvent(event);
    PaintFocusMark(*this);
}

}  // namespace zps
