// Text that steps back: it is there to be read, but it is not what counts now.
#pragma once

#include <QColor>
#include <QPalette>
#include <QWidget>

namespace zps {

// How much of its colour is left to what is no longer, or not yet, true.
inline constexpr double Stale = 0.55;
// And to what names a value beside it.
inline constexpr double FaintCaption = 0.72;

// So much (0 to 1) of `colour` on `ground`.
inline QColor Mixed(const QColor& colour, const QColor& ground, double share) {
    const auto part = [share](int of, int with) {
        return static_cast<int>(of * share + with * (1 - share));
    };
    return {part(colour.red(), ground.red()), part(colour.green(), ground.green()),
            part(colour.blue(), ground.blue())};
}

// The colour of `widget`'s text with so much of its strength left on its background.
inline QColor Faded(const QWidget& widget, double strength) {
    const QPalette palette = widget.palette();
    return Mixed(palette.color(QPalette::Active, QPalette::Text), palette.color(QPalette::Window),
                 strength);
}

// Gives the text of a label so much of its strength; 1 is that of the desktop.
inline void Fade(QWidget& label, double strength) {
    QPalette palette;
    if (strength < 1) palette.setColor(QPalette::WindowText, Faded(label, strength));
    if (palette != label.palette()) label.setPalette(palette);
}

}  // namespace zps
