// The large read-outs of voltage and current.
#pragma once

#include "power/panel/power_controls.h"
#include "power/panel/reading_badge.h"
#include "source/source.h"

#include <functional>
#include <optional>
#include <string>
#include <utility>

namespace zps {

// Shows set values and read-back, and knows which of them it shows. Where the supply's ratings are
// not known nobody can vouch for a number, and "----" stands in its place.
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

    NumberFrom VoltFrom() const { return Volt.From; }
    NumberFrom CurrFrom() const { return Curr.From; }
    // Of the reading that is shown; empty where a set value is.
    std::optional<double> Watts() const;
    // Called whenever they have been shown anew.
    void OnShown(std::function<void()> told) { Told = std::move(told); }

  private:
    struct Number {
        std::string Text;
        NumberFrom From = NumberFrom::StepTable;
        double Value = 0;  // of a reading
    };

    PowerControls& Controls;
    const SOURCE& Source;
    Number Volt{"0.00"};
    Number Curr{"0.000"};
    std::function<void()> Told = [] {};
};

}  // namespace zps
