#include "controls/show_only.h"

#include "controls/faded.h"

#include <QLineEdit>

namespace zps {

void ShowOnly(QLineEdit& field, double strength) {
    field.setEnabled(false);
    QPalette palette;
    palette.setColor(QPalette::Disabled, QPalette::Text, Faded(field, strength));
    if (palette != field.palette()) field.setPalette(palette);
}

}  // namespace zps
