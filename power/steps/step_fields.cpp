#include "power/steps/step_fields.h"

#include "source/numbers.h"

namespace zps {

namespace {

constexpr float SlopeBound = 50;        // s
constexpr float TimeBound = 50000;      // s
constexpr double ShortestTime = 0.001;  // s

float MaxVolt(const SOURCE& source) {
    return source.MaxVolt();
}
float MaxCurr(const SOURCE& source) {
    return source.MaxCurr();
}
float MaxOvp(const SOURCE& source) {
    return source.MaxOvp();
}

Figure Volts(const SOURCE& source, double value) {
    return source.FormatVolt(ToSingle(value));
}
Figure Amperes(const SOURCE& source, double value) {
    return source.FormatCurr(ToSingle(value));
}
Figure Seconds(const SOURCE& /*source*/, double value) {
    return FormatSeconds(value);
}

}  // namespace

QString RangeText(const StepField& kind, const SOURCE& source) {
    const QString least =
        kind.Smallest > 0 ? QStringLiteral("0, %1").arg(kind.Smallest) : QStringLiteral("0");
    return QStringLiteral("%1 ~ %2 %3")
        .arg(least, QString::fromStdString(ShortestText(kind.Bound(source))),
             QString::fromUtf8(kind.Unit));
}

bool OutOfRange(const StepField& kind, const SOURCE& source, double value) {
    const double compared = kind.Smallest > 0 ? value : ToSingle(value);
    return value < 0 || compared > kind.Bound(source) || (value > 0 && value < kind.Smallest);
}

const std::array<StepField, StepValueCount>& StepFields() {
    static const std::array<StepField, StepValueCount> fields{{
        {&PowerControls::txPVOLT, StepValue::Volt, "VOLTAGE 설정 오류",
         "VOLTAGE SETTING값 범위 초과", "V", MaxVolt, 0, Volts, true},
        {&PowerControls::txPCURR, StepValue::Curr, "CURRENT 설정 오류",
         "CURRENT SETTING값 범위 초과", "A", MaxCurr, 0, Amperes, true},
        {&PowerControls::txPTIME, StepValue::Time, "TIME 설정 오류", "TIME SETTING값 범위 초과",
         "sec", [](const SOURCE&) { return TimeBound; }, ShortestTime, Seconds, false},
        {&PowerControls::txPSLOPE, StepValue::Slope, "SLOPE 설정 오류", "SLOPE SETTING값 범위 초과",
         "sec", [](const SOURCE&) { return SlopeBound; }, ShortestTime, Seconds, false},
        {&PowerControls::txPOVP, StepValue::Ovp, "OVP 설정 오류", "O.V.P SETTING값 범위 초과", "V",
         MaxOvp, 0, Volts, false},
    }};
    return fields;
}

}  // namespace zps
