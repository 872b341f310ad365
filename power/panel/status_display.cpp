#include "power/panel/status_display.h"

#include "source/numbers.h"
#include "source/reply.h"

namespace zps {

namespace {

void ShowRemote(PowerControls& c, std::uint8_t bits) {
    const bool remote = (bits & (status::Remote | status::RemoteSerial)) != 0;
    const QString state = remote ? QStringLiteral("REMOTE") : QStringLiteral("LOCAL");
    c.cmdPREMOTE->setText(state);
    c.Rem_Loc->setText(state);
    c.lblPREMOTE->setText((bits & status::RemoteSerial) != 0 ? QStringLiteral("RS232")
                          : remote                           ? QStringLiteral("REMOTE")
                                                             : QStringLiteral("LOC"));
    c.RemoteLED->Light(remote ? Colour::PaleOrange : Colour::DarkRed);
}

}  // namespace

void ShowFunctions(PowerControls& c, std::uint8_t bits) {
    const auto is = [bits](std::uint8_t bit) { return (bits & bit) != 0; };
    c.cmdPVsense->setText(is(status::Sensing) ? QStringLiteral("Vsense OFF")
                                              : QStringLiteral("Vsense ON"));
    c.VsenseLED->Light(is(status::Sensing) ? Colour::BrightGreen : Colour::PaleGreen);
    c.cmdAUTO->setText(is(status::Auto) ? QStringLiteral("AUTO ") : QStringLiteral("AUTO"));
    c.AutoLED->Light(is(status::Auto) ? Colour::DarkRed : Colour::PaleOrange);
    c.cmdOCP->setText(QStringLiteral(" O.C.P "));
    c.OCPLED->Light(is(status::OverCurrentProtection) ? Colour::BrightGreen : Colour::PaleGreen);
}

void ShowStatus(PowerControls& c, std::uint8_t bits) {
    const bool limited = (bits & status::ConstantCurrent) != 0;
    c.lblMODE->setText(limited ? QStringLiteral("CC") : QStringLiteral("CV"));
    ShowFunctions(c, bits);
    ShowRemote(c, bits);
}

void ShowOutput(PowerControls& c, bool on) {
    c.Output_ONOFF->setText(on ? QStringLiteral("ON") : QStringLiteral("OFF"));
    c.OutputLED->Light(on ? Colour::DarkRed : Colour::PaleOrange);
}

void RaiseCounter(QLabel& counter) {
    const double count = LeadingNumber(counter.text().toStdString()) + 1;
    counter.setText(QString::fromStdString(FormatFixed(count, 0)));
}

}  // namespace zps
