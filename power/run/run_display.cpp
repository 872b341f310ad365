#include "power/run/run_display.h"

#include "power/log/statistics_text.h"
#include "power/panel/plate_look.h"

#include <QDateTime>

namespace zps {

using namespace std::chrono_literals;

namespace {

constexpr auto Beat = 100ms;  // FreshFor is a multiple of it

void ShowText(QLabel& label, const QString& text) {
    if (label.text() != text) label.setText(text);
}

QString ElapsedText(std::optional<std::chrono::milliseconds> elapsed, bool running) {
    if (!elapsed) return {};
    const std::chrono::duration<double> seconds = *elapsed;
    return (running ? QStringLiteral("경과 ") : QStringLiteral("지난 운전 ")) +
           DurationText(seconds.count());
}

}  // namespace

RunDisplay::RunDisplay(PowerControls& controls, Timekeeper& time, const Surround& around)
    : Controls(controls),
      Time(time),
      Around(around),
      Clock(time),
      tmrPLATE(time.MakeTicker("tmrPLATE", Beat)) {
    tmrPLATE->OnTick([this] { Refresh(); });
    Refresh();
}

void RunDisplay::OutputChanged() {
    const bool on = Around.Out.On();
    Clock.OutputIs(on);
    tmrPLATE->SetEnabled(on);
    Refresh();
}

// The beat starts anew with each reading: its marks are due a whole number of beats later.
void RunDisplay::NumbersShown() {
    if (tmrPLATE->Enabled()) tmrPLATE->Restart();
    Refresh();
}

void RunDisplay::Refresh() {
    const bool known = Around.Source.RatingsKnown();
    const ReadingBadge badge = BadgeFor({.RatingsKnown = known,
                                         .OutputOn = Around.Out.On(),
                                         .Volt = Around.Shown.VoltFrom(),
                                         .Curr = Around.Shown.CurrFrom(),
                                         .Age = Around.Quality.ReadingAge(),
                                         .Answered = Around.Quality.HasReading()});
    ShowBadge(Controls, badge, badge.Spoken != Badge.Spoken);
    Badge = badge;
    const auto power = known ? Around.Shown.Watts() : std::nullopt;
    const QString watts = power ? PowerText(*power) : QStringLiteral("---");
    if (Controls.Plate.txtWATT->text() != watts) Controls.Plate.txtWATT->ShowValue(watts);
    ShowText(*Controls.Plate.lblELAPSED, ElapsedText(Clock.Elapsed(), Around.Out.On()));
    ShowSetValues();
    ShowText(*Controls.Plate.lblAUTORUN, AutoRun());
}

// Those of the step that the supply is at, which an automatic run changes.
void RunDisplay::ShowSetValues() {
    const SOURCE& source = Around.Source;
    const int step = Around.Progress.RunningStep().value_or(Around.Rows.CurStep());
    const bool known = source.RatingsKnown() && step < StepCount;
    const auto shown = [&](StepValue value) {
        return known ? QString::fromStdString(source.Text(value, step)) : QStringLiteral("----");
    };
    ShowText(*Controls.Plate.lblSETVOLT, QStringLiteral("설정 %1 V · O.V.P %2 V")
                                             .arg(shown(StepValue::Volt), shown(StepValue::Ovp)));
    ShowText(*Controls.Plate.lblSETCURR, QStringLiteral("설정 %1 A").arg(shown(StepValue::Curr)));
}

// What nobody can know is left out.
QString RunDisplay::AutoRun() {
    QStringList parts;
    if (const auto cycle = Around.Progress.RunningCycle()) {
        parts += cycle->Of ? QStringLiteral("자동 %1/%2회").arg(cycle->Now).arg(*cycle->Of)
                           : QStringLiteral("자동 %1회째").arg(cycle->Now);
    }
    const QString end = EstimatedEnd();
    if (!end.isEmpty()) parts += end;
    return parts.join(QStringLiteral(" · "));
}

QString RunDisplay::EstimatedEnd() {
    const auto end = Around.Progress.EstimatedEnd();
    if (end == EndShown) return EndText;
    EndShown = end;
    EndText.clear();
    if (!end) return EndText;
    const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(*end - Time.Now());
    const QDateTime now = QDateTime::currentDateTime();
    const QDateTime at = now.addMSecs(left.count());
    const bool today = at.date() == now.date();
    EndText =
        QStringLiteral("종료 예상 약 %1")
            .arg(at.toString(today ? QStringLiteral("HH:mm:ss") : QStringLiteral("M월 d일 HH:mm")));
    return EndText;
}

}  // namespace zps
