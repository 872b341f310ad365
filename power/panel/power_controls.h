// The controls of the main window, under their given names. The window owns them all.
#pragma once

#include "controls/click_label.h"
#include "controls/entry_field.h"
#include "controls/lamp.h"
#include "controls/number_panels.h"
#include "controls/pill.h"
#include "controls/read_out.h"
#include "controls/switch_button.h"
#include "power/panel/link_pill.h"
#include "power/panel/no_link_card.h"
#include "power/panel/plate_controls.h"
#include "power/panel/step_button.h"
#include "power/panel/step_legend.h"
#include "power/panel/step_list_frame.h"
#include "power/panel/step_scroll_bar.h"
#include "source/step_table.h"

#include <QAction>
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <array>

class QMainWindow;

namespace zps {

class MeasurementLog;

struct PowerControls {
    // Menus
    QAction* mnuSET_MANU = nullptr;
    QAction* mnuTEST = nullptr;
    QAction* mnuRECORD = nullptr;
    QAction* mnuHISTORY = nullptr;
    QAction* mnuData_Clear = nullptr;
    QAction* mnuData_CopyStatistics = nullptr;
    QAction* mnuData_Curve = nullptr;   // copies a picture
    QAction* mnuData_Window = nullptr;  // the same
    QAction* mnuData_Copy = nullptr;    // of the step table, with what follows
    QAction* mnuData_Copy_All = nullptr;
    QAction* mnuData_Copy_Visible = nullptr;
    QAction* mnuData_Copy_Range = nullptr;
    QAction* mnuData_Paste = nullptr;
    QAction* mnuData_Undo = nullptr;
    QAction* mnuData_Send = nullptr;
    QAction* mnuPROGRAM_END = nullptr;
    QAction* mnuHELP = nullptr;

    // Model and read-outs
    QLabel* lblZPS_MODEL = nullptr;
    QLabel* lblSPEC_VA = nullptr;
    QLabel* lblLINK = nullptr;    // port and address
    LinkPill* lblPOLL = nullptr;  // how long ago the supply answered
    QLabel* lblNOTICE = nullptr;  // the last event
    ReadOut* txtVOLT = nullptr;
    ReadOut* txtCURR = nullptr;
    QLabel* txtSTEP = nullptr;
    Pill* lblMODE = nullptr;
    PlateControls Plate;

    // Switches, their labels and lamps
    SwitchButton* cmdOUTPUT = nullptr;
    SwitchButton* cmdAUTO = nullptr;
    SwitchButton* cmdPVsense = nullptr;
    SwitchButton* cmdOCP = nullptr;
    SwitchButton* cmdPREMOTE = nullptr;
    Pill* Output_ONOFF = nullptr;
    Pill* Auto_ONOFF = nullptr;
    Pill* Vsense_ONOFF = nullptr;
    Pill* OCP_ONOFF = nullptr;
    Pill* Rem_Loc = nullptr;
    QLabel* lblPREMOTE = nullptr;
    Lamp* OutputLED = nullptr;
    Lamp* AutoLED = nullptr;
    Lamp* VsenseLED = nullptr;
    Lamp* OCPLED = nullptr;
    Lamp* RemoteLED = nullptr;

    // Step list
    StepListFrame* fraSTEPLIST = nullptr;
    StepScrollBar* vscAUTOSTEP = nullptr;
    QLabel* lblSTEPRANGE = nullptr;  // which steps are visible
    StepLegend* fraSTEPLEGEND = nullptr;
    std::array<StepButton*, RowCount> txPSTEP{};
    std::array<EntryField*, RowCount> txPVOLT{};
    std::array<EntryField*, RowCount> txPCURR{};
    std::array<EntryField*, RowCount> txPTIME{};
    std::array<EntryField*, RowCount> txPSLOPE{};
    std::array<EntryField*, RowCount> txPOVP{};
    QPushButton* cmdFOCUS = nullptr;  // takes the focus that no field should have

    // Auto sequence
    QLabel* lblAutoStep = nullptr;
    EntryField* txtPAUTOSTEP = nullptr;
    QLabel* lblCount = nullptr;
    EntryField* txtPAUTOCOUNT = nullptr;

    // Frames that are there only with an identified supply
    QFrame* frmPOWERDISPLAY = nullptr;
    QFrame* fraDATA = nullptr;
    NoLinkCard* fraNOLINK = nullptr;  // in their place

    // Link
    NumberPanels* StatusBar_RXDATA = nullptr;
    QLabel* lblZPS_ERR = nullptr;   // polls without any byte
    QLabel* lblZPS_ERR1 = nullptr;  // data replies of the wrong length
    QLabel* lblZPS_ENQ = nullptr;   // data replies with a wrong header
    ClickLabel* lblORV_URL = nullptr;

    MeasurementLog* Log = nullptr;
};

// Makes the controls and lays them out in `window`.
PowerControls MakePowerControls(QMainWindow& window);

}  // namespace zps
