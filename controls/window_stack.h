// Where windows stand, and how large they are at first.
#pragma once

class QWidget;

namespace zps {

// Keeps `window` above `owner` without making it its child: a child would be disabled with it.
void StandAbove(QWidget& window, QWidget& owner);

// Gives `window` the size of what stands in it, up to nine tenths of its screen or, on a small one,
// what it needs to show everything at once.
void FitToScreen(QWidget& window);

// Puts `window` in the middle of its screen. What is to stand above it can then be placed before
// the desktop has shown either.
void Centre(QWidget& window);

}  // namespace zps
