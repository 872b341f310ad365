// The fixed colours of the panel, and how they are put on a control so that its text stays readable
// on light and dark desktops.
#pragma once

#include <QColor>
#include <QWidget>

#include <cstdint>

namespace zps {

// A colour value 0x00BBGGRR.
enum class Colour : std::uint32_t {
    PaleOrange = 0xC0E0FF,   // selected step; idle lamp
    LightCyan = 0xFFFF80,    // step that the supply holds
    DarkRed = 0x0000C0,      // active lamp
    PaleGreen = 0xC0FFC0,    // idle lamp
    BrightGreen = 0x00FF00,  // active lamp; good result
    LightGreen = 0x80FF80,
    Red = 0x0000FF,
    Blue = 0xFF0000,
    Yellow = 0x00FFFF,
    White = 0xFFFFFF,
    LightGrey = 0xE0E0E0,
    Grey = 0x808080,
};

QColor ToQColor(Colour colour);

// What the panel has beside those: on grounds of its own, as text on dark ones.
namespace shade {
inline constexpr QRgb Amber = 0xFFFFC94D;  // wants somebody to look
inline constexpr QRgb Green = 0xFF1E6B3C;  // live, on
inline constexpr QRgb Blue = 0xFF1F6FA8;   // selected; told, not urgent
inline constexpr QRgb Volt = 0xFF7AB8FF;   // on a dark ground
inline constexpr QRgb Curr = 0xFFFFB070;
}  // namespace shade

// How far two colours stand apart: 1 (not at all) to 21 (black and white); a text is read well from
// 4 or so.
double Contrast(const QColor& one, const QColor& other);

// Black or white, whichever reads better on `background`.
QColor ReadableOn(const QColor& background);

// A ground that white text reads better on.
inline bool IsDark(const QColor& ground) {
    return ReadableOn(ground) == Qt::white;
}

// `one` with this share (0 to 1) of `other` in it.
QColor Between(const QColor& one, const QColor& other, double share);

// What `text` looks like in a disabled control: a little towards the background, and still to be
// read.
QColor DisabledText(const QColor& text, const QColor& background);

// The grey that stands back most on `background` and can still be read.
QColor FaintOn(const QColor& background);

// A ring around what has the focus, seen on `ground`: the highlight of `palette`, lighter or darker
// where it must be.
QColor FocusColour(const QPalette& palette, const QColor& ground);

// Gives `control` this background with a readable text, enabled or not; while it is disabled in
// `disabledText`, if that is given.
void PaintBackground(QWidget& control, const QColor& background, const QColor& disabledText = {});
void PaintBackground(QWidget& control, Colour colour);

}  // namespace zps
