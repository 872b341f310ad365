#include "power/panel/panel_enabling.h"

#include <initializer_list>

namespace zps {

namespace {

void EnableAll(PowerControls& controls, std::initializer_list<QWidget*> list, bool on) {
    for (QWidget* control : list) EnableControl(controls, *control, on);
}

// The control with the focus if it is `control` or inside it, else null.
QWidget* FocusInside(const QWidget& control) {
    QWidget* focus = control.window()->focusWidget();
    return focus == &control || control.isAncestorOf(focus) ? focus : nullptr;
}

// Disabled in local, menus apart.
void EnableRemoteWidgets(PowerControls& c, bool on) {
    EnableAll(c,
              {c.cmdPVsense, c.cmdAUTO, c.cmdOCP, c.cmdOUTPUT, c.lblCount, c.txtPAUTOCOUNT,
               c.lblAutoStep, c.txtPAUTOSTEP, c.fraSTEPLIST},
              on);
}

}  // namespace

void EnableControl(PowerControls& controls, QWidget& control, bool on) {
    if (!on && FocusInside(control) != nullptr) {
        auto* open = dynamic_cast<EntryField*>(FocusInside(control));
        controls.cmdFOCUS->setFocus();
        if (open != nullptr && open != FocusInside(control)) open->Leave();
        // An entry in error has taken it back, but nobody can mend it now.
        if (auto* field = dynamic_cast<EntryField*>(FocusInside(control))) {
            field->Cancel();
            controls.cmdFOCUS->setFocus();
        }
    }
    control.setEnabled(on);
}

void SetRemoteControls(PowerParts& parts, bool on) {
    PowerControls& c = parts.Controls;
    EnableRemoteWidgets(c, on);
    for (QAction* menu : {c.mnuSET_MANU, c.mnuTEST, c.mnuData_Clear}) menu->setEnabled(on);
}

void SetOutputControls(PowerParts& parts, bool on) {
    PowerControls& c = parts.Controls;
    EnableAll(c,
              {c.cmdAUTO, c.cmdPVsense, c.cmdOCP, c.lblCount, c.txtPAUTOCOUNT, c.lblAutoStep,
               c.txtPAUTOSTEP},
              on);
    for (std::size_t row = 0; row < RowCount; ++row) {
        if (parts.State.AutoOn) EnableAll(c, {c.txPSTEP[row], c.txPVOLT[row], c.txPCURR[row]}, on);
        EnableAll(c, {c.txPTIME[row], c.txPSLOPE[row], c.txPOVP[row]}, on);
    }
    for (QAction* menu : {c.mnuSET_MANU, c.mnuTEST}) menu->setEnabled(on);
}

void DisablePanel(PowerParts& parts) {
    EnableRemoteWidgets(parts.Controls, false);
}

}  // namespace zps
