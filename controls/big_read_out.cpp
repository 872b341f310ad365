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
constexpr int Overhang = 2;  // px, of a digit beyond its place, to both sides
}  // namespace

BigReadOut::BigReadOut(const QString& name, QString unit, const QString& accessibleName,
                       const QString& widest, Range pixels)
    : ReadOut(name, {}, accessibleName), Unit(std::move(unit)), Pixels(pixels), Base(font()) {
    setFrame(false);
    setAttribute(Qt::WA_OpaquePaintEvent);
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

int BigReadOut::BaseLine() const {
    const QFontMetrics digits = fontMetrics();
    return (height() - digits.height() + 1) / 2 + digits.ascent();
}

// In the present face and colour, on nothing.
const QPixmap& BigReadOut::PictureOf(QChar digit) {
    QPixmap& picture = Pictures[digit];
    const double ratio = devicePixelRatio();
    if (!picture.isNull() && picture.devicePixelRatio() == ratio) return picture;
    const QFontMetrics metrics = fontMetrics();
    const QSize size(metrics.horizontalAdvance(digit) + 2 * Overhang, metrics.height());
    picture = QPixmap(size * ratio);
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setFont(font());
    painter.setPen(palette().color(QPalette::Text));
    painter.drawText(Overhang, metrics.ascent(), digit);
    return picture;
}

// A copy of the window is finer than the screen, and so than the pictures.
void BigReadOut::PaintDigits(QPainter& painter) {
    const QFontMetrics metrics = fontMetrics();
    const bool onScreen = painter.deviceTransform().m11() == devicePixelRatio();
    const QString shown = text();
    int left = width() - textMargins().right() - Overhang;
    for (const QChar digit : shown) left -= metrics.horizontalAdvance(digit);
    painter.setPen(palette().color(QPalette::Text));
    for (const QChar digit : shown) {
        if (onScreen)
            painter.drawPixmap(left - Overhang, BaseLine() - metrics.ascent(), PictureOf(digit));
        else
            painter.drawText(left, BaseLine(), digit);
        left += metrics.horizontalAdvance(digit);
    }
}

void BigReadOut::changeEvent(QEvent* event) {
    Pictures.clear();
    ReadOut::changeEvent(event);
}

// What is selected is shown as in any field.
void BigReadOut::paintEvent(QPaintEvent* event) {
    if (hasSelectedText()) ReadOut::paintEvent(event);
    QPainter painter(this);
    if (!hasSelectedText()) {
        painter.fillRect(rect(), palette().base());
        PaintDigits(painter);
    }
    if (hasFocus()) {
        QStyleOptionFocusRect option;
        option.initFrom(this);
        option.backgroundColor = palette().color(QPalette::Base);
        style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
    }
    painter.setFont(UnitFont(font().pixelSize()));
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawText(width() - painter.fontMetrics().horizontalAdvance(Unit) - 2, BaseLine(), Unit);
}

}  // namespace zps
