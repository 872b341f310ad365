// A link: a label that can be double-clicked, or reached with Tab and pressed with Enter or Space.
#pragma once

#include "controls/colours.h"
#include "controls/tab_label.h"

#include <QKeyEvent>

#include <functional>

namespace zps {

class ClickLabel : public TabLabel {
  public:
    ClickLabel(const QString& name, const QString& text, const QString& accessibleName)
        : TabLabel(name, text, accessibleName) {
        setCursor(Qt::PointingHandCursor);
        setMargin(3);
        // The desktop's own colour of links is often too dark for a dark desktop.
        QPalette colours = palette();
        const bool dark = IsDark(colours.color(QPalette::Window));
        const QColor link = dark ? QColor(0x7A, 0xB8, 0xFF) : QColor(0x00, 0x50, 0xB0);
        colours.setColor(QPalette::Active, QPalette::WindowText, link);
        colours.setColor(QPalette::Inactive, QPalette::WindowText, link);
        setPalette(colours);
        QFont underlined = font();
        underlined.setUnderline(true);
        setFont(underlined);
    }

    std::function<void()> OnDoubleClick;

  protected:
    void keyPressEvent(QKeyEvent* event) override {
        const int key = event->key();
        const bool press = key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space;
        if (press && OnDoubleClick) {
            OnDoubleClick();
        } else {
            TabLabel::keyPressEvent(event);
        }
    }
    void mouseDoubleClickEvent(QMouseEvent* /*event*/) override {
        if (OnDoubleClick) OnDoubleClick();
    }
};

}  // namespace zps
