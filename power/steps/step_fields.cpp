#include "power/steps/step_fields.h"

#include "source/numbers.h"
#include "source/step_frame.h"

namespace zps {

namespace {

constexpr float SlopeBound = 50;        // s
constexpr float TimeBound = 50000;      // s
constexpr double ShortestTime = 0.001;  // s

float MaxVolt(const SOURCE& source) {
    return source.MaxVolt;
}
float MaxCurr(const SOURCE& source) {
    return source.MaxCurr;
}
float MaxOvp(const SOURCE& source) {
    return source.MaxOvp;
}

std::string Volts(SOURCE& source, double value) {
    return source.FormatVolt(ToSingle(value));
}
std::string Amperes(SOURCE& source, double value) {
    return source.FormatCurr(ToSingle(value));
}
std::string Seconds(SOURCE& /*source*/, double value) {
    return FormatSeconds(value);
}

void SendSetPoint(Transmitter& line, char letter, std::int32_t counts) {
    const Word word = SplitWord(counts);
    line.SendCommand(letter, word.High, word.Low);
}

void SendVolt(SOURCE& source, Transmitter& line, const std::string& text) {
    SendSetPoint(line, 'V', SetPointCounts(text, source.VoltScale));
}

void SendCurr(SOURCE& source, Transmitter& line, const std::string& text) {
    SendSetPoint(line, 'C', SetPointCounts(text, source.CurrScale));
}

void SendTime(SOURCE& source, Transmitter& line, const std::string& text) {
    line.Send(TimeFrame(source.PowerAddr, text), ExpectAck);
}

void SendSlope(SOURCE& source, Transmitter& line, const std::string& text) {
    line.Send(SlopeFrame(source.PowerAddr, text), ExpectAck);
}

void SendOvp(SOURCE& source, Transmitter& line, const std::string& text) {
    line.Send(OvpFrame(source.PowerAddr, text, source.VoltScale), ExpectAck);
}

}  // namespace

const std::array<StepField, 5>& StepFields() {
    static const std::array<StepField, 5> fields{{
        {&PowerControls::txPVOLT, &StepTable::StepVolt, "VOLTAGE 설정 오류",
         "VOLTAGE SETTING값 범위 초과", "V", MaxVolt, 0, Volts, &PowerControls::txtVOLT, true,
         SendVolt},
        {&PowerControls::txPCURR, &StepTable::StepCurr, "CURRENT 설정 오류",
         "CURRENT SETTING값 범위 초과", "A", MaxCurr, 0, Amperes, &PowerControls::txtCURR, true,
         SendCurr},
        {&PowerControls::txPTIME, &StepTable::StepTime, "TIME 설정 오류",
         "TIME SETTING값 범위 초과", "sec", [](const SOURCE&) { return TimeBound; }, ShortestTime,
         Seconds, nullptr, false, SendTime},
        {&PowerControls::txPSLOPE, &StepTable::StepSlope, "SLOPE 설정 오류",
         "SLOPE SETTING값 범위 초과", "sec", [](const SOURCE&) { return SlopeBound; }, ShortestTime,
         Seconds, nullptr, false, SendSlope},
        {&PowerControls::txPOVP, &StepTable::StepOvp, "OVP 설정 오류", "O.V.P SETTING값 범위 초과",
         "V", MaxOvp, 0, Volts, nullptr, false, SendOvp},
    }};
    return fields;
}

}  // namespace zps
