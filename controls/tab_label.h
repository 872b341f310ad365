// A label that is reached with Tab.
#pragma once

#include "controls/focus_mark.h"

#include <QLabel>

namespace zps {

class TabLabel : public QLabel {
  public:
    TabLabel(const QString& name, const QString& text, const QString& accessibleName)
        : QLabel(text) {
        setObjectName(name);
        setAccessibleName(accessibleName);
        setTextFormat(Qt::PlainText);
        setFocusPolicy(Qt::TabFocus);
    }

  protected:
    void paintEvent(QPaintEvent* event) override {
        QLabel::paintEvent(event);
        PaintFocusMark(*this);
    }
};

}  // namespace zps
