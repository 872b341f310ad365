// Makers of plain controls: name, what a person would call it, and its text.
#pragma once

#include <QLabel>
#include <QPushButton>

namespace zps {

QLabel* MakeLabel(const QString& name, const QString& text, const QString& accessibleName = {});

// A button that takes no focus from the mouse: its handler decides where the focus goes.
QPushButton* MakeButton(const QString& name, const QString& text,
                        const QString& accessibleName = {});

// A bold `font` that can be told apart from ink blots: where the face has no bold of its own and
// the strokes are only thickened, they must not be drawn to whole pixels as well.
void Embolden(QFont& font);

// `widget`'s font, larger by `factor` and bold.
void Enlarge(QWidget& widget, double factor);

// `widget`'s font, this many pixels large.
void SetPixels(QWidget& widget, int pixels, bool bold);

// Lets `widget` become half as high again as it usually is, where there is room.
void LetGrow(QWidget& widget);

// The width of `text` in the widget's font, with room for a frame around it.
int WidthFor(const QWidget& widget, const QString& text);

}  // namespace zps
