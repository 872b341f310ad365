#include "source/step_table.h"

#include <utility>

namespace zps {

StepTable::StepTable() {
    constexpr std::array<const char*, StepValueCount> designTexts{"0.00", "1.000", "0.00000",
                                                                  "0.00000", "218.0"};
    for (std::size_t value = 0; value < StepValueCount; ++value) {
        Cells.at(value).fill({designTexts.at(value), {}});
    }
}

StepBytes StepTable::WireOf(int step) const {
    StepBytes all;
    for (std::size_t value = 0; value < StepValueCount; ++value) {
        all.at(value) = Wire(static_cast<StepValue>(value), step);
    }
    return all;
}

void StepTable::Store(StepValue value, int step, const std::string& text, Bytes wire) {
    Cells.at(static_cast<std::size_t>(value)).at(static_cast<std::size_t>(step)) = {
        text, std::move(wire)};
}

const StepTable::Cell& StepTable::At(StepValue value, int step) const {
    return Cells.at(static_cast<std::size_t>(value)).at(static_cast<std::size_t>(step));
}

}  // namespace zps
