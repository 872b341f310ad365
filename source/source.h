// SOURCE: the state that all windows share. There is one object of it in a program; whoever needs
// it is handed it, so that a test makes a fresh one. Window thread only.
#pragma once

#include "source/exchange.h"
#include "source/ratings.h"
#include "source/step_rows.h"
#include "source/step_table.h"

#include <cstdint>
#include <string>

namespace zps {

// What is chosen for the link between the panel and its supply.
struct LinkState {
    std::int16_t CommPort = 1;   // serial port, 1 to 4
    std::int16_t SetAddr = 1;    // address chosen in the settings window
    std::int16_t PowerAddr = 0;  // in every frame, expected in every reply
    std::string ModelName = "ZPS_150";
    std::int16_t ModelIndex = 0;  // its place in the settings window's list
    bool MenuDialogFlag = false;  // the settings or test window is open
};

struct SOURCE : LinkState, Exchange, Ratings, StepTable {
    // The visible rows; set by the main window while it lives.
    StepRows* Rows = nullptr;

    // Whether the ratings are those of the supply at the chosen address.
    bool RatingsKnown() const { return KnownAt(SetAddr); }

    // Colours the visible rows: `step` highlighted, held steps marked, the others plain. A step
    // that is not visible highlights none. Throws OverflowError at a row that shows no step.
    void PaintStepRows(int step) const;

    // A value of a step as its field shows it, with the bytes that it has on the wire at the
    // present scales. Throws OverflowError, and stores nothing, where it fits none.
    void StoreStep(StepValue value, int step, const Figure& shown);

    // The texts of all steps as a supply with the present ratings starts with: no voltage, full
    // current, no time and slope, the highest over-voltage level.
    void ResetSteps();
};

}  // namespace zps
