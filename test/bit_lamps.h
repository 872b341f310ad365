// The eight bits of the status byte, each as a lamp that bears the name of what it reports.
#pragma once

#include <QLabel>
#include <QWidget>

#include <array>
#include <cstdint>

namespace zps {

class BitLamps : public QWidget {
  public:
    static constexpr std::size_t BitCount = 8;

    BitLamps();

    void Show(std::uint8_t status);
    // Whether another reply has come since: the digits step back, the lamps keep their colours.
    void ShowOld(bool old);

  private:
    QWidget* MakeCell(std::size_t bit);

    std::array<QLabel*, BitCount> ledSTATUS{};  // lamp k shows bit k
    std::array<QLabel*, BitCount> lblBIT{};     // the same as a digit
};

}  // namespace zps
