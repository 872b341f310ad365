// What the five entry fields of a step differ in; everything else about them is one routine.
#pragma once

#include "power/panel/power_controls.h"
#include "source/source.h"

#include <array>

namespace zps {

// One kind of field, in all seven rows.
struct StepField {
    std::array<EntryField*, RowCount> PowerControls::*Fields;
    StepValue Value;
    const char* Title;
    const char* FirstLine;
    const char* Unit;
    float (*Bound)(const SOURCE&);  // the highest value that is accepted
    double Smallest;                // the smallest value that is accepted; 0 is accepted too
    Figure (*Format)(const SOURCE&, double);
    bool StopsPolling;  // whether the polls wait for the answer to a new value
};

// What the field takes: "0 ~ 150 V", "0, 0.001 ~ 50 sec".
QString RangeText(const StepField& kind, const SOURCE& source);

// Whether `value` is beyond what the field takes. Ratings are single-precision values; the bounds
// in seconds are exact.
bool OutOfRange(const StepField& kind, const SOURCE& source, double value);

// By StepValue.
const std::array<StepField, StepValueCount>& StepFields();

}  // namespace zps
