// The large read-outs of voltage and current.
#pragma once

#include "power/panel/power_controls.h"
#include "source/source.h"

#include <array>
#include <string>

namespace zps {

// Shows set values and read-back. Where the supply's ratings are not known nobody can vouch for a
// number, and "----" stands in its place.
class ReadOuts {
  public:
    ReadOuts(PowerControls& controls, const SOURCE& source);

    // The texts of a step's voltage and current; of one of them, where `value` is one.
    void ShowStep(int step);
    void ShowValue(StepValue value, const std::string& text);
    // A reading, in volts and amperes.
    void ShowReading(float volts, float amps);
    // The ratings have become known or unknown.
    void Refresh();

  private:
    void Show(const std::string& volts, const std::string& amps);

    PowerControls& Controls;
    const SOURCE& Source;
    std::array<std::string, 2> Texts{"0.00", "0.000"};  // voltage, current
};

}  // namespace zps
