#include "controls/big_read_out.h"

#include "controls/number_face.h"
#include "controls/widgets.h"

#include <QPainter>
#include <QResizeEvent>
#include <QStyleOptionFocusRect>

#include <algorithm>
#include <utility>

namespace zps {

namespace {
const QSize Border(16, 0);  // px; a part of it stands before the unit
constexpr int LeastUnit = 18;
}  // namespace

BigReadOut::BigReadOut(const QString& name, QString unit, const QString& accessibleName,
                       const QString& widest, Range pixels)
    : ReadOut(name, {}, accessibleName), Unit(std::move(unit)), Pixels(pixels), Base(font()) {
    setFrame(false);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    SetNumberFace(Base);
    Embolden(Base);
    Base.setPixelSize(Pixels.Most);
    const QFontMetricsF metrics(Base);
    const double ofUnit = QFontMetricsF(UnitFont(Pixels.Most)).horizontalAdvance(QLatin1Char('W'));
    Text = QSizeF(metrics.horizontalAdvance(widest) + ofUnit, metrics.height()) / Pixels.Most;
}

QFont BigReadOut::UnitFont(int pixels) const {
    QFont small = Base;
    small.setPixelSize(std::max(LeastUnit, pixels * 2 / 5));
    return small;
}

QSize BigReadOut::BoxFor(int pixels) const {
    const QSizeF text = Text * pixels;
    return QSize(qCeil(text.width()), qCeil(text.height())) + Border;
}

QSize BigReadOut::sizeHint() const {
    return BoxFor(Pixels.Least);
}

void BigReadOut::resizeEvent(QResizeEvent* event) {
    ReadOut::resizeEvent(event);
    const QSizeF room = size() - Border;
    const double fits = std::min(room.width() / Text.width(), room.height() / Text.height());
    QFont digits = Base;
    digits.setPixelSize(std::clamp(static_cast<int>(fits), Pixels.Least, Pixels.Most));
    setFont(digits);
    setTextMargins(0, 0, UnitWidth(digits.pixelSize()), 0);
}

int BigReadOut::UnitWidth(int pixels) const {
    return QFontMetrics(UnitFont(pixels)).horizontalAdvance(QLatin1Char('W')) + Border.width() / 2;
}

void BigReadOut::paintEvent(QPaintEvent* event) {
    ReadOut::paintEvent(event);
    QPainter painter(this);
    if (hasFocus()) {
        QStyleOptionFocusRect option;
        option.initFrom(this);
        option.backgroundColor = palette().color(QPalette::Base);
        style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
    }
    painter.setFont(UnitFont(font().pixelSize()));
    painter.setPen(palette().color(QPalette::PlaceholderText));
    const QFontMetrics digits = fontMetrics();
    const int baseLine = (height() - digits.height() + 1) / 2 + digits.ascent();
    painter.drawText(width() - painter.fontMetrics().horizontalAdvance(Unit) - 2, baseLine, Unit);
}

}  // namespace zps
