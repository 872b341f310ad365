// The controls of the test window, under their given names. The window owns them all.
#pragma once

#include "controls/number_panels.h"
#include "controls/read_out.h"

#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <array>

namespace zps {

struct TestControls {
    QLineEdit* txtPADDR = nullptr;
    ReadOut* txtPCOMMPORT = nullptr;
    QPushButton* cmdENQ = nullptr;
    QPushButton* cmdDLE = nullptr;
    QGroupBox* frmDATA = nullptr;
    QLabel* lblRESULT = nullptr;
    std::array<QLabel*, 3> lblRXDATA{};
    QLabel* lblRXBUFFER = nullptr;
    NumberPanels* StatusBar_RXDATA = nullptr;
    QLabel* lblSTATUS = nullptr;
    QLabel* lblERROR = nullptr;
    QLabel* lblVOLTAGE = nullptr;
    QLabel* lblOVP = nullptr;
    QLabel* lblCURRENT = nullptr;
    QLabel* lblSTEP = nullptr;
    std::array<QLabel*, 8> ledSTATUS{};  // lamp k shows bit k of the status byte
};

// Makes the controls and lays them out in `window`.
TestControls MakeTestControls(QWidget& window);

}  // namespace zps
