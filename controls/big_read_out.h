// A value in digits as large as their box has room for.
#pragma once

#include "controls/read_out.h"

namespace zps {

// The size of the digits depends on the box and on the widest text that is to fit in it, never on
// the text that is shown, so that they don't jump. A wider box asks for the height that they need.
class BigReadOut : public ReadOut {
  public:
    BigReadOut(const QString& name, const QString& text, const QString& accessibleName,
               const QString& widest);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    // What the box must measure for digits `factor` times as large as the desktop's text.
    QSize BoxFor(double factor) const;

    QFont Base;
    QSizeF Text;         // the widest text at the size of the desktop's
    double WidthFactor;  // how many times larger the width allows it to be
};

}  // namespace zps
