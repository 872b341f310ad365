#include "source/step_table.h"

#include <utility>

namespace zps {

StepTable::StepTable() {
    const std::array<Figure, StepValueCount> design{
        {{0, "0.00"}, {1, "1.000"}, {0, "0.00000"}, {0, "0.00000"}, {218, "218.0"}}};
    for (std::size_t value = 0; value < StepValueCount; ++value) {
        Cells.at(value).fill({design.at(value), {}});
    }
}

StepBytes StepTable::WireOf(int step) const {
    StepBytes all;
    for (std::size_t value = 0; value < StepValueCount; ++value) {
        all.at(value) = Wire(static_cast<StepValue>(value), step);
    }
    return all;
}

void StepTable::Store(StepValue value, int step, const Figure& shown, Bytes wire) {
    Cells.at(static_cast<std::size_t>(value)).at(static_cast<std::size_t>(step)) = {
        shown, std::move(wire)};
}

const StepTable::Cell& StepTable::At(StepValue value, int step) const {
    return Cells.at(static_cast<std::size_t>(value)).at(static_cast<std::size_t>(step));
}

}  // namespace zps
