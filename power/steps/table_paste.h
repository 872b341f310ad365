// A table of steps from outside: judged as a whole, stored as a whole, and taken back.
#pragma once

#include "power/link/held_steps.h"
#include "power/steps/table_text.h"

#include <string>
#include <variant>
#include <vector>

namespace zps {

// A value that a step is to have.
struct NewValue {
    int Step;
    StepValue Value;
    Figure Shown;
};

// What keeps a text from being a step table.
struct BadCell {
    int Line;            // in the text, counted from 1
    std::size_t Column;  // of TableColumns; from there on one that the table does not have
    std::string Text;    // empty where nothing stands
};

struct TooLarge {};

// Five columns without captions whose first one may be the numbers of the steps as well as their
// voltages.
struct Ambiguous {};

// The values that `text` has for the steps; for those from `top` on, where it does not number them.
// A cell must be a number as a whole, in the range of its field; one that says what is on display
// already is always good. Each step comes once. The first cell that is not so is named. Nothing is
// stored. The ratings are known.
using ReadSteps = std::variant<std::vector<NewValue>, BadCell, TooLarge, Ambiguous>;
ReadSteps ReadTable(std::string_view text, const SOURCE& source, int top);

// Nothing is sent by any of it: the steps are marked as not sent. A step that is held and whose
// values stay as they are remains held.
class TablePaste {
  public:
    TablePaste(SOURCE& source, HeldSteps& held) : Source(source), Held(held) {}

    // Stores `values` and returns the steps that have other values now.
    std::bitset<StepCount> Store(const std::vector<NewValue>& values);

    // Whether there is a paste that can be taken back: one that changed something, under the
    // present ratings.
    bool CanUndo() const;
    // Gives each value that the last Store has changed the text of before, unless it has been
    // changed again since. Returns the steps that have other values now.
    std::bitset<StepCount> Undo();
    // The table is another one.
    void Forget() { Last.clear(); }

  private:
    struct Change {
        NewValue Before;
        std::string After;
    };
    const std::string& TextOf(const NewValue& value) const {
        return Source.Text(value.Value, value.Step);
    }

    SOURCE& Source;
    HeldSteps& Held;
    std::vector<Change> Last;
    float MaxVolt = 0;  // when it was stored
    float MaxCurr = 0;
};

}  // namespace zps
