// A round lamp in one of the fixed colours.
#pragma once

#include "controls/colours.h"

#include <QWidget>

namespace zps {

class Lamp : public QWidget {
  public:
    explicit Lamp(QWidget* parent = nullptr);

    void Light(Colour colour);
    Colour Lit() const { return Shown; }

    QSize sizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    Colour Shown = Colour::White;
};

}  // namespace zps
