#include "power/panel/status_display.h"

#include "controls/spoken_labels.h"
#include "power/panel/output_region.h"
#include "power/panel/plate_look.h"
#include "source/reply.h"

#include <utility>

namespace zps {

namespace {

QString OnOff(bool on) {
    return on ? QStringLiteral("ON") : QStringLiteral("OFF");
}

void Light(PowerControls& c, const Function& function, bool on) {
    (c.*function.Light)->Light(on ? function.Active : function.Idle);
    (c.*function.Button)->ShowOn(on);
}

QColor StateColour(const Function& function, bool on) {
    if (!on) return {};
    return &function == &OutputFunction() ? ToQColor(Colour::DarkRed) : QColor(shade::Green);
}

Control ControlOf(std::uint8_t bits) {
    if ((bits & status::RemoteSerial) != 0) return Control::Serial;
    return (bits & status::Remote) != 0 ? Control::Remote : Control::Local;
}

}  // namespace

void ShowFunctions(PowerControls& c, std::uint8_t bits) {
    for (std::size_t place = 0; place < PlainFunctionCount; ++place) {
        const Function& function = PlainFunction(place);
        const bool on = (bits & function.Bit) != 0;
        (c.*function.Button)
            ->setText(QString::fromUtf8(on ? function.CaptionOn : function.CaptionOff));
        Light(c, function, on);
    }
}

void ShowStatus(PowerControls& c, std::uint8_t bits) {
    const bool limited = (bits & status::ConstantCurrent) != 0;
    ShowMode(c, limited);
    ShowFunctions(c, bits);
    ShowControl(c, ControlOf(bits));
}

// Filled where it is on, an outline where it is off.
void ShowAsked(PowerControls& c, const Function& function, bool on) {
    Pill& label = *(c.*function.Label);
    if (&function == &OutputFunction())
        label.setText(OnOff(on));  // said where the cause is known
    else
        Say(label, OnOff(on));
    label.Fill(StateColour(function, on));
    Light(c, function, on);
}

void ShowDifference(PowerControls& c, const Function& function, bool askedOn, bool differs) {
    Pill& label = *(c.*function.Label);
    const QString words =
        differs ? QStringLiteral("전원 장치가 알린 상태: %1").arg(OnOff(!askedOn)) : QString();
    if (label.toolTip() == words) return;
    label.setToolTip(words);
    label.setAccessibleDescription(words);
    label.Fill(differs ? ToQColor(Colour::Yellow) : StateColour(function, askedOn));
}

void ShowOutputState(PowerControls& c, OutputState state) {
    const Function& function = OutputFunction();
    const bool on = state == OutputState::On;
    const bool differs = state == OutputState::ReportedOn;
    ShowAsked(c, function, on);
    ShowDifference(c, function, on, differs);
    if (differs) (c.*function.Light)->Light(function.Active);
    c.Plate.fraOUTPUT->Show(state);
}

void ShowControl(PowerControls& c, Control control) {
    const Function& function = RemoteFunction();
    const bool remote = control != Control::Local;
    const QString state = QString::fromUtf8(remote ? function.CaptionOn : function.CaptionOff);
    c.cmdPREMOTE->setText(state);
    Say(*c.Rem_Loc, state);
    c.Rem_Loc->Fill(StateColour(function, remote));
    c.lblPREMOTE->setText(control == Control::Serial   ? QStringLiteral("RS232")
                          : control == Control::Remote ? QStringLiteral("REMOTE")
                                                       : QStringLiteral("LOC"));
    Light(c, function, remote);
}

void ShowCounts(PowerControls& c, const LinkQuality& quality) {
    for (const auto& [counter, fault] : {std::pair{c.lblZPS_ERR, Fate::Empty},
                                         {c.lblZPS_ERR1, Fate::WrongLength},
                                         {c.lblZPS_ENQ, Fate::WrongHeader}}) {
        if (const auto count = quality.Count(fault)) counter->setText(QString::number(*count));
    }
}

}  // namespace zps
