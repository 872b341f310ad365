// What a row of the step list looks like: its colours, and the mark beside its number.
#pragma once

#include "source/step_rows.h"

#include <QColor>
#include <QPainter>
#include <QString>

#include <cstdint>

namespace zps {

struct RowLook {
    QColor Button;
    QColor Fields;
    QString Spoken;  // the colours in a word
};
// Those of plain rows are the desktop's at the time of the call.
RowLook LookOf(RowState state);

// What is to be known of a step at a glance; the shapes can be told apart without colours.
enum class StepMark : std::uint8_t {
    None,
    Running,  // the supply is at it, with the output on
    Refused,  // the supply has not taken a value
    Changed,  // a value has been changed and not been sent
    Held,     // the supply has all its values
};

// Draws it into the square `place` in the colour of the painter's pen.
void DrawMark(QPainter& painter, const QRectF& place, StepMark mark);

// It in words; none for no mark.
QString Spoken(StepMark mark);

}  // namespace zps
