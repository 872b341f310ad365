// What the five entry fields of a step differ in; everything else about them is one routine.
#pragma once

#include "power/panel/power_controls.h"
#include "source/source.h"
#include "source/transmitter.h"

#include <array>
#include <string>

namespace zps {

// One kind of field, in all seven rows.
struct StepField {
    std::array<EntryField*, RowCount> PowerControls::*Fields;
    std::array<std::string, StepCount> StepTable::*Texts;
    const char* Title;
    const char* FirstLine;
    const char* Unit;
    float (*Bound)(const SOURCE&);  // the highest value that is accepted
    double Smallest;                // the lowest value that is accepted, zero apart
    std::string (*Format)(SOURCE&, double);
    QLineEdit* PowerControls::*ReadOut;  // shows the value too; none for most fields
    bool StopsPolling;                   // whether the poll waits for the answer
    void (*Send)(SOURCE&, Transmitter&, const std::string& text);
};

const std::array<StepField, 5>& StepFields();

}  // namespace zps
