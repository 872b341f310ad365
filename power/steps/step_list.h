// The seven visible rows as the rest of the window sees them.
#pragma once

#include "power/panel/power_parts.h"
#include "source/step_frame.h"

namespace zps {

class StepList : public StepRows {
  public:
    explicit StepList(PowerParts& parts) : Parts(parts) {}

    // The step of row 0. It follows the scroll bar once the rows show the steps of its value.
    int TopStep() const override { return Top; }
    void PaintRow(int row, RowState state) override;

    // Shows the steps from `top` on, 0 to 93, in buttons and fields.
    void ShowSteps(int top);
    // Fills the rows with the texts of the steps from `first` on.
    void FillFields(int first);
    // The texts that stand in the fields of a row.
    StepTexts RowTexts(int row) const;

    // Writes a field by program: the change is no edit of the operator.
    void WriteField(EntryField& field, const std::string& text);

    // After program writes: OldText is again that of the field that has the focus.
    void KeepOldTextOfFocus();

  private:
    PowerParts& Parts;
    int Top = 0;
};

}  // namespace zps
