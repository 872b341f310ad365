#include "source/source.h"

#include "source/errors.h"

#include <utility>

namespace zps {

void SOURCE::LayFrame(Frame frame) {
    TxFrame = std::move(frame.Data);
    FrameLen = frame.Length;
    FrameSum = frame.Sum;
}

void SOURCE::PaintStepRows(int step) const {
    if (Rows == nullptr) return;
    for (int row = 0; row < RowCount; ++row) {
        const int shown = Rows->TopStep() + row;
        if (shown < 0 || shown >= StepCount) {
            throw OverflowError(Overflow::NoStep, std::to_string(shown));
        }
        const bool held = StepFlag[static_cast<std::size_t>(shown)];
        Rows->PaintRow(row, shown == step ? RowState::Selected
                            : held        ? RowState::Held
                                          : RowState::Plain);
    }
}

void SOURCE::ResetSteps() {
    StepFlag.fill(false);
    StepVolt.fill(FormatVolt(0));
    StepCurr.fill(FormatCurr(MaxCurr));
    StepTime.fill(FormatSeconds(0));
    StepSlope.fill(FormatSeconds(0));
    StepOvp.fill(FormatVolt(MaxOvp));
}

}  // namespace zps
