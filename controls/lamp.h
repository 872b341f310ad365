// A round lamp in one of the fixed colours. Assistive tools hear whether it is lit.
#pragma once

#include "controls/colours.h"

#include <QWidget>

#include <optional>

namespace zps {

class Lamp : public QWidget {
  public:
    explicit Lamp(QWidget* parent = nullptr);

    // The first colour that it is given is that of the idle lamp; any other means that it is lit.
    void Light(Colour colour);
    Colour Lit() const { return Shown; }

    QSize sizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    Colour Shown = Colour::White;
    std::optional<Colour> Idle;
};

}  // namespace zps
