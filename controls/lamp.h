// A round lamp in one of the fixed colours. Lit it is large, with a white spot and a halo, in a
// black socket; idle it is flat and small: without its colours too the two are told apart. Its
// glass is 28 px across, and 20 px at least where there is no more room. Assistive tools hear
// whether it is lit.
#pragma once

#include "controls/colours.h"

#include <QWidget>

namespace zps {

class Lamp : public QWidget {
  public:
    // It shows `idle` until it is lit; any other colour means that it is.
    explicit Lamp(Colour idle, QWidget* parent = nullptr);

    void Light(Colour colour);
    // So many times as large as usual.
    void Enlarge(double factor);
    Colour Lit() const { return Shown; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    void Describe();
    void PaintLit(QPainter& painter, const QPointF& middle, double radius, double reach) const;
    void PaintIdle(QPainter& painter, const QPointF& middle, double radius) const;

    const Colour Idle;
    Colour Shown;
    double Factor = 1;
};

}  // namespace zps
