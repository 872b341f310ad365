#include "power/panel/panel_enabling.h"

#include "controls/shortcuts.h"

#include <algorithm>

namespace zps {

namespace {

RowUse RowWithOutputOff(const PanelState& state, int row) {
    const bool selected = row == state.SelectedRow;
    if (!state.Locked) return {true, selected, selected, selected};
    const bool edited = row == state.EditedRow;
    return {edited, edited, edited, edited};
}

RowUse RowWithOutputOn(const PanelState& state, int row) {
    const bool selected = row == state.SelectedRow;
    if (state.AutoOn) return {false, false, false, false};
    const bool held = state.Held.at(static_cast<std::size_t>(row));
    return {state.Locked ? selected : held, selected, false, selected && state.OvpUnderLoad};
}

using Fields = std::array<EntryField*, RowCount> PowerControls::*;

constexpr std::array<std::pair<Fields, bool RowUse::*>, 5> FieldUses{{
    {&PowerControls::txPVOLT, &RowUse::SetPoints},
    {&PowerControls::txPCURR, &RowUse::SetPoints},
    {&PowerControls::txPTIME, &RowUse::Times},
    {&PowerControls::txPSLOPE, &RowUse::Times},
    {&PowerControls::txPOVP, &RowUse::Ovp},
}};

void EnableOne(PowerControls& c, QWidget& control, bool on) {
    const QWidget* focus = control.window()->focusWidget();
    const bool inside = focus == &control || control.isAncestorOf(focus);
    if (!on && inside) c.cmdFOCUS->setFocus();  // never left to the toolkit
    control.setEnabled(on);
}

void EnableRows(PowerControls& c, const PanelUse& use) {
    for (std::size_t row = 0; row < RowCount; ++row) {
        EnableOne(c, *c.txPSTEP[row], use.Rows[row].Step);
        for (const auto& [fields, part] : FieldUses) {
            EnableOne(c, *(c.*fields)[row], use.Rows[row].*part);
        }
    }
}

void EnableKeys(const PowerControls& c, const PanelUse& use) {
    for (QPushButton* button : {c.cmdAUTO, c.cmdPVsense, c.cmdOCP}) {
        EnableKey(*button, use.FunctionKeys);
    }
    EnableKey(*c.cmdPREMOTE, use.RemoteKey);
    EnableKey(*c.cmdOUTPUT, use.OutputKey);
}

}  // namespace

PanelUse UsableIn(const PanelState& state) {
    PanelUse use{};
    use.Output = state.Remote;
    use.Functions = state.Remote && !state.OutputOn;
    use.StepList = state.Remote;
    use.Clear = state.Remote || !state.Identified;
    use.Windows = use.Clear && !state.OutputOn;
    use.Scrolling = !state.Locked;
    use.FunctionKeys = !state.Locked;
    use.RemoteKey = !state.Locked || state.LeavesRemote;
    use.OutputKey = !state.Locked || state.OutputOn;
    for (int row = 0; row < RowCount; ++row) {
        use.Rows.at(static_cast<std::size_t>(row)) =
            state.OutputOn ? RowWithOutputOn(state, row) : RowWithOutputOff(state, row);
    }
    return use;
}

void Enable(PowerControls& c, const PanelUse& use) {
    EnableRows(c, use);
    for (QWidget* control :
         std::initializer_list<QWidget*>{c.cmdAUTO, c.cmdPVsense, c.cmdOCP, c.lblCount,
                                         c.txtPAUTOCOUNT, c.lblAutoStep, c.txtPAUTOSTEP}) {
        EnableOne(c, *control, use.Functions);
    }
    EnableOne(c, *c.cmdOUTPUT, use.Output);
    EnableOne(c, *c.vscAUTOSTEP, use.Scrolling);
    EnableOne(c, *c.fraSTEPLIST, use.StepList);
    for (QAction* menu : {c.mnuSET_MANU, c.mnuTEST}) menu->setEnabled(use.Windows);
    c.mnuData_Clear->setEnabled(use.Clear);
    EnableKeys(c, use);
}

}  // namespace zps
