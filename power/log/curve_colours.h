// The colours of voltage and current in the measurement log.
#pragma once

#include <QColor>
#include <QPalette>

namespace zps {

// Of a curve, its axis and its title; `column` 0 is the voltage, 1 the current. Read well as text
// on the base and on the buttons of `palette`, light or dark.
QColor CurveColour(int column, const QPalette& palette);

// The text of `palette`, so faint.
QColor FaintText(const QPalette& palette, float share);

}  // namespace zps
