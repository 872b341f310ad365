// A field that shows a value and takes none.
#pragma once

class QLineEdit;

namespace zps {

// Disables `field`, and leaves so much of its strength to its text; 1 is that of an enabled one.
void ShowOnly(QLineEdit& field, double strength = 1);

}  // namespace zps
