// The seven visible rows as the rest of the window sees them, and which step is selected.
#pragma once

#include "power/link/held_steps.h"
#include "power/panel/power_parts.h"

#include <functional>
#include <utility>

namespace zps {

class StepList : public StepRows {
  public:
    StepList(PowerParts& parts, const HeldSteps& held) : Parts(parts), Held(held) {}

    // The step of row 0. It follows the scroll bar once the rows show the steps of its value.
    int TopStep() const override { return Top; }
    int StepOf(int row) const { return Top + row; }
    void PaintRow(int row, RowState state) override;

    // The step selected on the supply, 0 to 99.
    int CurStep() const { return Selected; }
    void Select(int step);
    // Called after each selection.
    void OnSelect(std::function<void()> told) { Told = std::move(told); }

    // Highlights `step` in place of the selected one.
    void Highlight(int step);
    // Paints the rows again as they are, with the marks of refused values.
    void Repaint();

    // Shows the steps from `top` on, 0 to 93, in buttons and fields.
    void ShowSteps(int top);
    // Fills the fields of all rows anew.
    void FillFields();

  private:
    PowerParts& Parts;
    const HeldSteps& Held;
    int Top = 0;
    int Selected = 0;
    int Highlighted = 0;
    std::function<void()> Told = [] {};
};

}  // namespace zps
