// The controls of the settings window, under their given names. The window owns them all.
#pragma once

#include "controls/read_out.h"
#include "controls/sign_label.h"
#include "set_manual/port_option.h"
#include "set_manual/stage_rail.h"

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <array>

namespace zps {

inline constexpr int PortCount = 4;
inline constexpr int HighestAddress = 30;

struct SetManualControls {
    QGroupBox* frmCOMMPORT = nullptr;
    std::array<PortOption*, PortCount> Ports{};  // optPORT(1) to optPORT(4)
    QGroupBox* frmPOW_SETTING = nullptr;
    QComboBox* cmbMODEL = nullptr;
    ReadOut* POWERVoltage = nullptr;
    ReadOut* POWERCurrent = nullptr;
    QComboBox* cmbADDR = nullptr;
    QPushButton* cmdZPS_ENQ = nullptr;
    StageRail* fraSTAGES = nullptr;
    SignLabel* lblZPS_ENQ = nullptr;
    QPushButton* cmdZPS_DLE = nullptr;
    SignLabel* lblZPS_DLE = nullptr;
    QLabel* lblNEXT = nullptr;  // what the operator is to do now

    PortOption& optPORT(int number) const {
        return *Ports.at(static_cast<std::size_t>(number - 1));
    }
};

// Makes the controls and lays them out in `window`.
SetManualControls MakeSetManualControls(QWidget& window);

}  // namespace zps
