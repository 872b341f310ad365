#include "controls/big_read_out.h"

#include "controls/number_face.h"
#include "controls/widgets.h"

#include <QResizeEvent>

#include <algorithm>
#include <cmath>

namespace zps {

namespace {

constexpr double Least = 2.2;  // times the desktop's text
constexpr double Usual = 4;
constexpr double Most = 9;
const QSize Border(20, 8);  // px, frame and margins

}  // namespace

BigReadOut::BigReadOut(const QString& name, const QString& text, const QString& accessibleName,
                       const QString& widest)
    : ReadOut(name, text, accessibleName), Base(font()), WidthFactor(Usual) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    SetNumberFace(Base);
    Embolden(Base);
    QFont largest = Base;
    largest.setPointSizeF(Base.pointSizeF() * Most);
    const QFontMetricsF metrics(largest);
    Text = QSizeF(metrics.horizontalAdvance(widest), metrics.height()) / Most;
}

QSize BigReadOut::BoxFor(double factor) const {
    return (Text * factor).toSize() + Border;
}

QSize BigReadOut::sizeHint() const {
    return {BoxFor(Usual).width(), BoxFor(WidthFactor).height()};
}

QSize BigReadOut::minimumSizeHint() const {
    return BoxFor(Least);
}

void BigReadOut::resizeEvent(QResizeEvent* event) {
    ReadOut::resizeEvent(event);
    const QSizeF room = size() - Border;
    const auto within = [](double factor) {
        return std::floor(std::clamp(factor, Least, Most) * 10) / 10;
    };
    const double byWidth = within(room.width() / Text.width());
    if (byWidth != WidthFactor) {
        WidthFactor = byWidth;
        updateGeometry();
    }
    QFont digits = Base;
    digits.setPointSizeF(Base.pointSizeF() *
                         std::min(byWidth, within(room.height() / Text.height())));
    setFont(digits);
}

}  // namespace zps
