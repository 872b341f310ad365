// Where windows stand, and how large they are at first.
#pragma once

class QWidget;

namespace zps {

// Keeps `window` above `owner` without making it its child: a child would be disabled with it.
void StandAbove(QWidget& window, QWidget& owner);

// Gives `window` the size of what stands in it, as far as its screen has room for that.
void FitToScreen(QWidget& window);

}  // namespace zps
