#include "power/steps/edit_lock.h"

#include "controls/shortcuts.h"
#include "power/panel/panel_enabling.h"

namespace zps {

namespace {

void EnableSetPoints(PowerControls& c, std::size_t row, bool on) {
    EnableControl(c, *c.txPVOLT[row], on);
    EnableControl(c, *c.txPCURR[row], on);
}

void EnableFields(PowerControls& c, std::size_t row, bool on) {
    EnableSetPoints(c, row, on);
    EnableControl(c, *c.txPTIME[row], on);
    EnableControl(c, *c.txPSLOPE[row], on);
    EnableControl(c, *c.txPOVP[row], on);
}

}  // namespace

void EditLock::LockToRow(int row) {
    PowerControls& c = Parts.Controls;
    EnableControl(c, *c.vscAUTOSTEP, false);
    for (std::size_t r = 0; r < RowCount; ++r) {
        const bool edited = r == static_cast<std::size_t>(row);
        EnableControl(c, *c.txPSTEP[r], edited);
        EnableFields(c, r, edited);
    }
    Confine(true);
}

void EditLock::LockToCurrentStep() {
    PowerControls& c = Parts.Controls;
    EnableControl(c, *c.vscAUTOSTEP, false);
    for (std::size_t r = 0; r < RowCount; ++r) {
        EnableControl(c, *c.txPSTEP[r], IsCurrent(r));
        EnableSetPoints(c, r, IsCurrent(r));
    }
    Confine(true);
}

void EditLock::ReleaseEditLock() {
    PowerControls& c = Parts.Controls;
    for (std::size_t r = 0; r < RowCount; ++r) {
        EnableControl(c, *c.txPSTEP[r], true);
        EnableFields(c, r, IsCurrent(r));
    }
    EnableControl(c, *c.vscAUTOSTEP, true);
    Confine(false);
}

void EditLock::ReleaseEditLockOutputOn() {
    PowerControls& c = Parts.Controls;
    for (std::size_t r = 0; r < RowCount; ++r) {
        EnableControl(c, *c.txPSTEP[r],
                      Parts.Source.StepFlag.at(static_cast<std::size_t>(StepOf(r))));
        EnableSetPoints(c, r, IsCurrent(r));
    }
    EnableControl(c, *c.vscAUTOSTEP, true);
    Confine(false);
}

void EditLock::StepTakenBack() {
    if (Parts.State.OutputOn && !Parts.State.AutoOn && !Confined) ReleaseEditLockOutputOn();
}

void EditLock::ScrolledTo() {
    if (!Parts.State.OutputOn) {
        ReleaseEditLock();
        return;
    }
    ReleaseEditLockOutputOn();
    for (std::size_t r = 0; r < RowCount; ++r) {
        EnableControl(Parts.Controls, *Parts.Controls.txPOVP[r], IsCurrent(r));
    }
    if (Parts.State.AutoOn) SetOutputControls(Parts, false);  // an auto run keeps all rows locked
}

void EditLock::SuspendConfinement() {
    if (Confined) Pointer.Release();
}

void EditLock::ResumeConfinement() {
    if (Confined && Parts.Window.isActiveWindow()) Pointer.Confine(*Parts.Controls.fraSTEPLIST);
}

void EditLock::Confine(bool on) {
    EnableKeys(on);
    if (on == Confined) {
        ResumeConfinement();  // the frame may have moved
        return;
    }
    Confined = on;
    Parts.Controls.fraSTEPLIST->KeepFocus(on);
    on ? ResumeConfinement() : Pointer.Release();
}

// A key must not do what the pointer can't reach, except that the output can always be switched
// off.
void EditLock::EnableKeys(bool locked) {
    const PowerControls& c = Parts.Controls;
    for (QPushButton* button : {c.cmdAUTO, c.cmdPVsense, c.cmdOCP, c.cmdPREMOTE}) {
        EnableKey(*button, !locked);
    }
    const bool outputShownOn = c.Output_ONOFF->text() == QStringLiteral("ON");
    EnableKey(*c.cmdOUTPUT, !locked || Parts.State.OutputOn || outputShownOn);
}

int EditLock::StepOf(std::size_t row) const {
    return Parts.Source.Rows->TopStep() + static_cast<int>(row);
}

bool EditLock::IsCurrent(std::size_t row) const {
    return StepOf(row) == Parts.State.CurStep;
}

}  // namespace zps
