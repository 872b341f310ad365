// A label with a drawn sign before its text, so that what its colour says is also told by a shape.
// One with a background of its own has a border.
#pragma once

#include <QLabel>

#include <cstdint>

namespace zps {

enum class Sign : std::uint8_t { None, Open, Running, Good, Bad, Doubtful };

class SignLabel : public QLabel {
  public:
    // Names as MakeLabel takes them.
    SignLabel(const QString& name, const QString& text, const QString& accessibleName);

    // In the colour of the text.
    void ShowSign(Sign sign);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    int Side() const { return fontMetrics().ascent(); }

    Sign Shown = Sign::None;
};

}  // namespace zps
