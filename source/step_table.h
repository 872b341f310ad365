// The 100 program steps as the panel knows them.
#pragma once

#include "source/numbers.h"
#include "source/step_frame.h"

#include <array>
#include <bitset>
#include <string>

namespace zps {

inline constexpr int StepCount = 100;
inline constexpr int RowCount = 7;  // steps that are visible at a time

// What stands over the values of the steps, by StepValue, and over their numbers.
inline constexpr const char* StepCaption = "STEP";
inline constexpr std::array<const char*, StepValueCount> ValueCaptions{
    "VOLTAGE(V)", "CURRENT(A)", "TIME(sec)", "SLOPE(sec)", "O.V.P(V)"};

class HeldSteps;

// The texts are those of the entry fields, exactly as displayed; the values are what they say, and
// the bytes are what goes on the wire for them. All are made once, when a value is stored.
class StepTable {
  public:
    // Before any ratings are read the steps have the texts of a new table and no bytes.
    StepTable();

    const std::string& StepVolt(int step) const { return Text(StepValue::Volt, step); }    // V
    const std::string& StepCurr(int step) const { return Text(StepValue::Curr, step); }    // A
    const std::string& StepTime(int step) const { return Text(StepValue::Time, step); }    // s
    const std::string& StepSlope(int step) const { return Text(StepValue::Slope, step); }  // s
    const std::string& StepOvp(int step) const { return Text(StepValue::Ovp, step); }      // V
    const std::string& Text(StepValue value, int step) const { return At(value, step).Shown.Text; }
    double Value(StepValue value, int step) const { return At(value, step).Shown.Value; }
    const Bytes& Wire(StepValue value, int step) const { return At(value, step).Wire; }
    // All values of a step as an upload takes them.
    StepBytes WireOf(int step) const;

    // The supply holds the step's present values, as far as its answers tell.
    bool StepFlag(int step) const { return Flags.test(static_cast<std::size_t>(step)); }

  protected:
    void Store(StepValue value, int step, const Figure& shown, Bytes wire);

  private:
    friend HeldSteps;  // alone writes the flags

    struct Cell {
        Figure Shown;
        Bytes Wire;
    };
    const Cell& At(StepValue value, int step) const;

    std::array<std::array<Cell, StepCount>, StepValueCount> Cells;
    std::bitset<StepCount> Flags;
};

}  // namespace zps
