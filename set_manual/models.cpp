#include "set_manual/models.h"

#include <algorithm>

namespace zps {

namespace {
// The largest power of each model but the first.
constexpr std::array<double, 9> LargestPower{150, 300, 500, 750, 1000, 1500, 2000, 3000, 6000};
}  // namespace

int ModelIndexOf(double watts) {
    const auto fits = std::find_if(LargestPower.begin(), LargestPower.end(),
                                   [watts](double largest) { return watts <= largest; });
    return fits == LargestPower.end() ? 0 : static_cast<int>(fits - LargestPower.begin()) + 1;
}

}  // namespace zps
