// Keeps a person inside the row that is being edited until the supply has its values.
#pragma once

#include "platform/pointer_confinement.h"
#include "power/panel/power_parts.h"

namespace zps {

class EditLock {
  public:
    EditLock(PowerParts& parts, platform::PointerConfinement& pointer)
        : Parts(parts), Pointer(pointer) {}

    // Only the controls of `row` can be used.
    void LockToRow(int row);
    // Only step button, voltage and current of the selected step can be used.
    void LockToCurrentStep();
    // Every step can be chosen, and the selected one be edited.
    void ReleaseEditLock();
    // Steps that the supply holds can be chosen, and voltage and current of the selected one
    // edited.
    void ReleaseEditLockOutputOn();

    // A step is held no longer: with the output on its button can't be used any more.
    void StepTakenBack();

    // The rows show other steps: what may be used in them follows the steps.
    void ScrolledTo();

    // The frame can't be used: the pointer must not be kept in it.
    void FreePointer() { Confine(false); }

    // Lets the pointer go while a message box is up or the window is not active, and takes it back.
    void SuspendConfinement();
    void ResumeConfinement();

  private:
    void Confine(bool on);
    void EnableKeys(bool locked);
    int StepOf(std::size_t row) const;
    bool IsCurrent(std::size_t row) const;

    PowerParts& Parts;
    platform::PointerConfinement& Pointer;
    bool Confined = false;
};

}  // namespace zps
