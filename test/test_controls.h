// The controls of the test window, under their given names. The window owns them all.
#pragma once

#include "controls/number_panels.h"
#include "controls/read_out.h"
#include "controls/sign_label.h"
#include "test/bit_lamps.h"
#include "test/reply_fields.h"

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
    SignLabel* lblRESULT = nullptr;
    QLabel* lblSTAMP = nullptr;  // when the verdict was given, and on what
    std::array<QLabel*, 3> lblRXDATA{};
    QLabel* lblRXBUFFER = nullptr;
    NumberPanels* StatusBar_RXDATA = nullptr;
    ReplyFields* Fields = nullptr;
    BitLamps* Lamps = nullptr;
};

// Makes the controls and lays them out in `window`.
TestControls MakeTestControls(QWidget& window);

}  // namespace zps
