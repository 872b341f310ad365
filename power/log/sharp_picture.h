// Pictures of widgets finer than the screen is.
#pragma once

#include <QPainter>
#include <QWidget>

namespace zps {

// Draws `shown` and what is in it at `place`. Texts, lines and plots are drawn anew, as fine as the
// picture of `painter` is.
void DrawSharply(QPainter& painter, QPoint place, QWidget& shown);

}  // namespace zps
