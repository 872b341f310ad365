// What the history tells of values that went onto a live output.
#pragma once

#include "power/link/held_steps.h"
#include "source/step_table.h"

#include <QString>

namespace zps {

// "출력 중 단계 03 설정: CURRENT(A) 2.000"; with all its values the step has been selected.
QString LiveText(const StepTable& steps, int step, const StepValues& values);

}  // namespace zps
