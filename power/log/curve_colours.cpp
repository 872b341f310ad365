#include "power/log/curve_colours.h"

#include "controls/colours.h"
#include "power/log/chart_table.h"

#include <array>

namespace zps {

namespace {

struct Pair {
    QRgb OnLight;
    QRgb OnDark;
};
constexpr std::array<Pair, ChartColumns> Colours{
    {{0xFF0050B0, shade::Volt}, {0xFFB03A00, shade::Curr}}};

}  // namespace

QColor CurveColour(int column, const QPalette& palette) {
    const Pair& pair = Colours.at(static_cast<std::size_t>(column));
    QColor colour(IsDark(palette.color(QPalette::Base)) ? pair.OnDark : pair.OnLight);
    if (palette.currentColorGroup() == QPalette::Disabled)
        return DisabledText(colour, palette.color(QPalette::Base));
    return colour;
}

QColor FaintText(const QPalette& palette, float share) {
    QColor faint = palette.color(QPalette::Text);
    faint.setAlphaF(share);
    return faint;
}

}  // namespace zps
