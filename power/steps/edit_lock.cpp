#include "power/steps/edit_lock.h"

namespace zps {

void EditLock::Become(std::optional<Lock> lock) {
    if (lock == Present) return;
    Present = lock;
    Parts.Controls.fraSTEPLIST->KeepFocus(Locked());
    Parts.Controls.fraSTEPLEGEND->ShowEditing(Locked());
    Told();
    if (Locked())
        ResumeConfinement();
    else
        Pointer.Release();
}

void EditLock::SuspendConfinement() {
    if (Locked()) Pointer.Release();
}

void EditLock::ResumeConfinement() {
    if (Locked() && Parts.Window.isActiveWindow()) Pointer.Confine(*Parts.Controls.fraSTEPLIST);
}

}  // namespace zps
