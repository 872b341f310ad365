// Windows that stand above another one.
#pragma once

class QWidget;

namespace zps {

// Keeps `window` above `owner` without making it its child: a child would be disabled with it.
void StandAbove(QWidget& window, QWidget& owner);

}  // namespace zps
