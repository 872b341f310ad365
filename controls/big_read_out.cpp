#include "controls/big_read_out.h"

#include "controls/number_face.h"
#include "controls/widgets.h"

#include <QResizeEvent>

#include <algorithm>

namespace zps {

namespace {
const QSize Border(10, 0);  // px
}

BigReadOut::BigReadOut(const QString& name, const QString& text, const QString& accessibleName,
                       const QString& widest, Range pixels)
    : ReadOut(name, text, accessibleName), Pixels(pixels), Base(font()), ByWidth(pixels.Least) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    SetNumberFace(Base);
    Embolden(Base);
    Base.setPixelSize(Pixels.Most);
    const QFontMetricsF metrics(Base);
    Text = QSizeF(metrics.horizontalAdvance(widest), metrics.height()) / Pixels.Most;
}

QSize BigReadOut::BoxFor(int pixels) const {
    const QSizeF text = Text * pixels;
    return QSize(qCeil(text.width()), qCeil(text.height())) + Border;
}

QSize BigReadOut::sizeHint() const {
    return {BoxFor(Pixels.Least).width(), BoxFor(ByWidth).height()};
}

QSize BigReadOut::minimumSizeHint() const {
    return BoxFor(Pixels.Least);
}

void BigReadOut::resizeEvent(QResizeEvent* event) {
    ReadOut::resizeEvent(event);
    const QSizeF room = size() - Border;
    const auto within = [this](double pixels) {
        return std::clamp(static_cast<int>(pixels), Pixels.Least, Pixels.Most);
    };
    const int byWidth = within(room.width() / Text.width());
    if (byWidth != ByWidth) {
        ByWidth = byWidth;
        updateGeometry();
    }
    QFont digits = Base;
    digits.setPixelSize(std::min(byWidth, within(room.height() / Text.height())));
    setFont(digits);
}

}  // namespace zps
