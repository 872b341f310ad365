#include "source/source.h"

#include "source/errors.h"

namespace zps {

void SOURCE::PaintStepRows(int step) const {
    if (Rows == nullptr) return;
    for (int row = 0; row < RowCount; ++row) {
        const int shown = Rows->TopStep() + row;
        if (shown < 0 || shown >= StepCount) {
            throw OverflowError(Overflow::NoStep, std::to_string(shown));
        }
        const bool held = StepFlag(shown);
        Rows->PaintRow(row, shown == step ? RowState::Selected
                            : held        ? RowState::Held
                                          : RowState::Plain);
    }
}

void SOURCE::StoreStep(StepValue value, int step, const Figure& shown) {
    const auto wire = [&] {
        switch (value) {
            case StepValue::Volt:
            case StepValue::Ovp:
                return SetPointBytes(shown.Value, VoltScale());
            case StepValue::Curr:
                return SetPointBytes(shown.Value, CurrScale());
            case StepValue::Time:
                return TimeBytes(shown.Value);
            case StepValue::Slope:
                break;
        }
        return SlopeBytes(shown.Value);
    };
    Store(value, step, shown, wire());
}

void SOURCE::ResetSteps() {
    for (int step = 0; step < StepCount; ++step) {
        StoreStep(StepValue::Volt, step, FormatVolt(0));
        StoreStep(StepValue::Curr, step, FormatCurr(MaxCurr()));
        StoreStep(StepValue::Time, step, FormatSeconds(0));
        StoreStep(StepValue::Slope, step, FormatSeconds(0));
        StoreStep(StepValue::Ovp, step, FormatVolt(MaxOvp()));
    }
}

}  // namespace zps
