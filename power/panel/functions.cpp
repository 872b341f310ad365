#include "power/panel/functions.h"

#include "source/frame.h"
#include "source/reply.h"

namespace zps {

namespace {
constexpr std::size_t OutputPlace = 0;
constexpr std::size_t FirstPlainPlace = 1;
constexpr std::size_t RemotePlace = 4;
}  // namespace

const std::array<Function, FunctionCount>& Functions() {
    static constexpr std::array<Function, FunctionCount> functions{{
        {letter::Output, status::Output, &PowerControls::cmdOUTPUT, "cmdOUTPUT", "출력",
         &PowerControls::Output_ONOFF, "Output_ONOFF", &PowerControls::OutputLED, "OutputLED",
         Colour::DarkRed, Colour::PaleOrange, "OUTPUT", "OUTPUT", Qt::Key_F9, "출력 켜기/끄기"},
        {letter::Auto, status::Auto, &PowerControls::cmdAUTO, "cmdAUTO", "자동 운전",
         &PowerControls::Auto_ONOFF, "Auto_ONOFF", &PowerControls::AutoLED, "AutoLED",
         Colour::DarkRed, Colour::PaleOrange, "AUTO", "AUTO ", Qt::Key_F6, "자동 운전 켜기/끄기"},
        {letter::Sensing, status::Sensing, &PowerControls::cmdPVsense, "cmdPVsense", "원격 센싱",
         &PowerControls::Vsense_ONOFF, "Vsense_ONOFF", &PowerControls::VsenseLED, "VsenseLED",
         Colour::BrightGreen, Colour::PaleGreen, "Vsense ON", "Vsense OFF", Qt::Key_F7,
         "원격 센싱 켜기/끄기"},
        {letter::OverCurrent, status::OverCurrentProtection, &PowerControls::cmdOCP, "cmdOCP",
         "과전류 보호", &PowerControls::OCP_ONOFF, "OCP_ONOFF", &PowerControls::OCPLED, "OCPLED",
         Colour::BrightGreen, Colour::PaleGreen, " O.C.P ", " O.C.P ", Qt::Key_F8,
         "과전류 보호 켜기/끄기"},
        // The lamp stands the other way round: dark red is local control, the idle state.
        {0, status::Remote | status::RemoteSerial, &PowerControls::cmdPREMOTE, "cmdPREMOTE",
         "원격 제어", &PowerControls::Rem_Loc, "Rem_Loc", &PowerControls::RemoteLED, "RemoteLED",
         Colour::PaleOrange, Colour::DarkRed, "LOCAL", "REMOTE", Qt::Key_F5,
         "원격 제어/본체 제어 전환"},
    }};
    return functions;
}

const Function& OutputFunction() {
    return Functions()[OutputPlace];
}
const Function& RemoteFunction() {
    return Functions()[RemotePlace];
}
const Function& PlainFunction(std::size_t place) {
    return Functions().at(FirstPlainPlace + place);
}

}  // namespace zps
