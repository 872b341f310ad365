// The models of the family, and which one a pair of ratings belongs to.
#pragma once

#include <array>

namespace zps {

// In the order of the list in the settings window.
inline constexpr std::array ModelNames{"unNAME",   "ZPS-150",  "ZPS-300",  "ZPS-500",  "ZPS-750",
                                       "ZPS-1000", "ZPS-1500", "ZPS-2000", "ZPS-3000", "ZPS_6000"};

// The least power of a listed model, in watts; a smaller supply is named after its power.
inline constexpr double LeastListedPower = 10;

// The place in the list of a supply of `watts`; 0 for one beyond the largest.
int ModelIndexOf(double watts);

}  // namespace zps
