// Keeps a person inside the row that is being edited until the supply has its values.
#pragma once

#include "platform/pointer_confinement.h"
#include "power/panel/power_parts.h"

#include <functional>
#include <optional>

namespace zps {

class EditLock {
  public:
    EditLock(PowerParts& parts, platform::PointerConfinement& pointer)
        : Parts(parts), Pointer(pointer) {}

    // With the output off: only the controls of `row` can be used.
    void LockToRow(int row) { Become(Lock{row}); }
    // With the output on: only step button, voltage and current of the selected step.
    void LockToCurrentStep() { Become(Lock{}); }
    // Every step can be chosen that may be, and the selected one be edited.
    void ReleaseEditLock() { Become(std::nullopt); }

    bool Locked() const { return Present.has_value(); }
    // The row that is being edited with the output off.
    std::optional<int> EditedRow() const { return Present ? Present->Row : std::nullopt; }

    // Lets the pointer go while a message box is up or the window is not active, and takes it back;
    // also to the place where the frame is now.
    void SuspendConfinement();
    void ResumeConfinement();

    // Called after each change.
    void OnChange(std::function<void()> told) { Told = std::move(told); }

  private:
    struct Lock {
        std::optional<int> Row;
        bool operator==(const Lock&) const = default;
    };
    void Become(std::optional<Lock> lock);

    PowerParts& Parts;
    platform::PointerConfinement& Pointer;
    std::optional<Lock> Present;
    std::function<void()> Told = [] {};
};

}  // namespace zps
