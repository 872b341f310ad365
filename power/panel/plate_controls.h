// What stands around the read-outs, beside the controls of given names. The window owns them all.
#pragma once

#include "controls/pill.h"
#include "controls/read_out.h"

namespace zps {

class OutputRegion;
class StatisticsView;

struct PlateControls {
    OutputRegion* fraOUTPUT = nullptr;  // around switches and read-outs
    QLabel* lblELAPSED = nullptr;       // of the run
    Pill* lblREADING = nullptr;         // what the large numbers are
    QLabel* lblSETVOLT = nullptr;
    QLabel* lblSETCURR = nullptr;
    ReadOut* txtWATT = nullptr;
    StatisticsView* lblENERGY = nullptr;  // the run's statistics on a line
    QLabel* lblAUTORUN = nullptr;         // how far an automatic run has come
};

}  // namespace zps
