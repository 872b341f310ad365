// The seven visible rows as the rest of the window sees them, and which step is selected.
#pragma once

#include "power/link/held_steps.h"
#include "power/panel/power_parts.h"
#include "power/steps/edit_lock.h"
#include "power/steps/step_fields.h"

#include <functional>
#include <optional>

namespace zps {

class StepList : public StepRows {
  public:
    // Who is asked. `RunningStep` is the step that the supply is at with the output on, if known.
    struct Surround {
        const HeldSteps& Held;
        const EditLock& Lock;
        std::function<std::optional<int>()> RunningStep;
    };
    StepList(PowerParts& parts, Surround around);
    ~StepList() override;  // the frame lives a little longer
    StepList(const StepList&) = delete;
    StepList& operator=(const StepList&) = delete;

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
    // Paints the rows again as they are, with their marks and what their tool tips tell.
    void Repaint();

    // Shows the steps from `top` on, 0 to 93, in buttons and fields.
    void ShowSteps(int top);
    // Fills the fields of all rows anew.
    void FillFields();

  private:
    StepMark MarkOf(int row) const;
    bool BeingEdited(int row) const;
    void PaintButton(int row, const RowLook& look);
    void PaintField(const StepField& kind, int row, const RowLook& look);
    void Paint(QWidget& cell, const QColor& background) const;
    QString HintFor(const StepField& kind, int row) const;
    void Point(const QWidget& barred);

    PowerParts& Parts;
    Surround Around;
    int Top = 0;
    int Selected = 0;
    int Highlighted = 0;
    std::function<void()> Told = [] {};
};

}  // namespace zps
