// The 100 program steps as the panel knows them.
#pragma once

#include <array>
#include <string>

namespace zps {

inline constexpr int StepCount = 100;
inline constexpr int RowCount = 7;  // steps that are visible at a time

// The texts are those of the entry fields, exactly as displayed.
struct StepTable {
    std::array<std::string, StepCount> StepVolt;   // V
    std::array<std::string, StepCount> StepCurr;   // A
    std::array<std::string, StepCount> StepTime;   // s
    std::array<std::string, StepCount> StepSlope;  // s
    std::array<std::string, StepCount> StepOvp;    // V
    std::array<bool, StepCount> StepFlag{};        // the supply holds the step's present values

    // The text of the field that last got the focus.
    std::string OldText;
};

}  // namespace zps
