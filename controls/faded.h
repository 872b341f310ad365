// Text that steps back: it is there to be read, but it is not what counts now.
#pragma once

#include "controls/colours.h"

#include <QColor>
#include <QPalette>
#include <QWidget>

namespace zps {

// How much of its colour is left to what is no longer, or not yet, true.
inline constexpr double Stale = 0.56;
// And to what names a value beside it.
inline constexpr double FaintCaption = 0.72;

// The colour of `widget`'s text with so much of its strength left on its background.
inline QColor Faded(const QWidget& widget, double strength) {
    const QPalette& palette = widget.palette();
    return Between(palette.color(QPalette::Window), palette.color(QPalette::Active, QPalette::Text),
                   strength);
}

// Gives the text of a label so much of its strength; 1 is that of the desktop.
inline void Fade(QWidget& label, double strength) {
    QPalette palette;
    if (strength < 1) palette.setColor(QPalette::WindowText, Faded(label, strength));
    if (palette != label.palette()) label.setPalette(palette);
}

}  // namespace zps
