// The seven visible rows of the step list, as far as the shared state needs to reach them.
#pragma once

#include <cstdint>

namespace zps {

// How a row shows the state of its step.
enum class RowState : std::uint8_t { Plain, Held, Selected };

class StepRows {
  public:
    virtual ~StepRows() = default;
    // The number of the step in row 0; row r shows the step r further on.
    virtual int TopStep() const = 0;
    // Colours the button and the fields of a row, 0 to 6.
    virtual void PaintRow(int row, RowState state) = 0;
};

}  // namespace zps
