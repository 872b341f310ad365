#include "power/log/curve_colours.h"

#include "power/log/chart_table.h"

#include <array>

namespace zps {

namespace {

struct Pair {
    QRgb OnLight;
    QRgb OnDark;
};
constexpr std::array<Pair, ChartColumns> Colours{
    {{0xFF0050B0, 0xFF7AB8FF}, {0xFFB03A00, 0xFFFFB070}}};

}  // namespace

QColor CurveColour(int column, const QPalette& palette) {
    const Pair& pair = Colours.at(static_cast<std::size_t>(column));
    const bool dark =
        palette.color(QPalette::Base).lightness() < palette.color(QPalette::Text).lightness();
    QColor colour(dark ? pair.OnDark : pair.OnLight);
    if (palette.currentColorGroup() == QPalette::Disabled) colour.setAlphaF(0.4F);
    return colour;
}

QColor FaintText(const QPalette& palette, float share) {
    QColor faint = palette.color(QPalette::Text);
    faint.setAlphaF(share);
    return faint;
}

}  // namespace zps
