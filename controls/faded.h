// Text that steps back: it is there to be read, but it is not what counts now.
#pragma once

#include <QColor>
#include <QPalette>
#include <QWidget>

namespace zps {

// How much of its colour is left to what is no longer, or not yet, true.
inline constexpr double Stale = 0.55;

// The colour of `widget`'s text with so much of its strength (0 to 1) left on its background.
inline QColor Faded(const QWidget& widget, double strength) {
    const QPalette palette = widget.palette();
    const QColor text = palette.color(QPalette::Active, QPalette::Text);
    const QColor ground = palette.color(QPalette::Window);
    const auto part = [strength](int of, int with) {
        return static_cast<int>(of * strength + with * (1 - strength));
    };
    return {part(text.red(), ground.red()), part(text.green(), ground.green()),
            part(text.blue(), ground.blue())};
}

// Gives the text of a label so much of its strength; 1 is that of the desktop.
inline void Fade(QWidget& label, double strength) {
    QPalette palette;
    if (strength < 1) palette.setColor(QPalette::WindowText, Faded(label, strength));
    if (palette != label.palette()) label.setPalette(palette);
}

}  // namespace zps
