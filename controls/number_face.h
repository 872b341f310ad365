// The face that figures are set in.
#pragma once

#include <QFont>
#include <QWidget>

namespace zps {

// Gives `font` a family whose digits are all equally wide and whose decimal point stands on the
// base line, so that it can't be taken for a comma. Leaves the family alone if the machine has
// none.
void SetNumberFace(QFont& font);
void SetNumberFace(QWidget& widget);

}  // namespace zps
