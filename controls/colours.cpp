#include "controls/colours.h"

#include <QPalette>

#include <algorithm>
#include <cmath>

namespace zps {

namespace {

// Relative luminance of an sRGB colour, 0 (black) to 1 (white).
double Luminance(const QColor& colour) {
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

constexpr double ReadableContrast = 4.5;

}  // namespace

QColor ToQColor(Colour colour) {
    const auto value = static_cast<std::uint32_t>(colour);
    const auto part = [value](unsigned shift) {
        return static_cast<int>((value >> shift) & 0xFFU);
    };
    return {part(0), part(8), part(16)};
}

double Contrast(const QColor& one, const QColor& other) {
    constexpr double stray = 0.05;  // light that any screen reflects
    const auto [dark, light] = std::minmax({Luminance(one), Luminance(other)});
    return (light + stray) / (dark + stray);
}

QColor FaintOn(const QColor& background) {
    QColor faint = ReadableOn(background);
    const int step = faint == Qt::white ? -3 : 3;
    while (true) {
        const int level = faint.red() + step;
        const QColor next(level, level, level);
        if (!next.isValid() || Contrast(background, next) < ReadableContrast) return faint;
        faint = next;
    }
}

QColor ReadableOn(const QColor& background) {
    const bool whiteReadsBetter =
        Contrast(background, Qt::white) >= Contrast(background, Qt::black);
    return whiteReadsBetter ? Qt::white : Qt::black;
}

QColor Between(const QColor& one, const QColor& other, double share) {
    const auto mixed = [share](int of, int with) {
        return static_cast<int>(of * (1 - share) + with * share);
    };
    return {mixed(one.red(), other.red()), mixed(one.green(), other.green()),
            mixed(one.blue(), other.blue())};
}

QColor DisabledText(const QColor& text, const QColor& background) {
    for (int percent = 25; percent > 0; percent -= 5) {
        const QColor dimmed = Between(text, background, percent / 100.0);
        if (Contrast(dimmed, background) >= ReadableContrast) return dimmed;
    }
    return text;
}

QColor FocusColour(const QPalette& palette, const QColor& ground) {
    constexpr double seen = 3;  // as a shape, not as a text
    const QColor highlight = palette.color(QPalette::Highlight);
    for (int percent = 0; percent < 100; percent += 10) {
        const QColor ring = Between(highlight, ReadableOn(ground), percent / 100.0);
        if (Contrast(ring, ground) >= seen) return ring;
    }
    return ReadableOn(ground);
}

void PaintBackground(QWidget& control, const QColor& background, const QColor& disabledText) {
    const QColor text = ReadableOn(background);
    const QColor disabled = disabledText.isValid() ? disabledText : DisabledText(text, background);
    QPalette palette = control.palette();
    for (const auto role : {QPalette::Window, QPalette::Base, QPalette::Button}) {
        palette.setColor(role, background);
    }
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(role, text);
        palette.setColor(QPalette::Disabled, role, disabled);
    }
    if (palette == control.palette()) return;
    control.setPalette(palette);
    control.setAutoFillBackground(true);
}

void PaintBackground(QWidget& control, Colour colour) {
    PaintBackground(control, ToQColor(colour));
}

}  // namespace zps
