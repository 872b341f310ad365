#include "power/run/run_display.h"

#include "power/panel/output_region.h"
#include "power/panel/plate_look.h"
#include "source/numbers.h"

#include <QDateTime>

#include <algorithm>
#include <utility>

namespace zps {

using namespace std::chrono_literals;

namespace {

constexpr auto Beat = 100ms;  // FreshFor is a multiple of it

void ShowText(QLabel& label, const QString& text) {
    if (label.text() != text) label.setText(text);
}

QString ElapsedText(std::optional<std::chrono::milliseconds> elapsed, bool running) {
    if (!elapsed) return {};
    const auto seconds = std::chrono::floor<std::chrono::seconds>(*elapsed).count();
    const auto two = [](auto value) {
        return QString::number(value).rightJustified(2, QLatin1Char('0'));
    };
    return QStringLiteral("%1 %2:%3:%4")
        .arg(running ? QStringLiteral("경과") : QStringLiteral("지난 운전"), two(seconds / 3600),
             two(seconds / 60 % 60), two(seconds % 60));
}

QString WattText(std::optional<double> watts) {
    if (!watts) return QStringLiteral("---");
    const int decimals = *watts < 10 ? 3 : *watts < 100 ? 2 : *watts < 1000 ? 1 : 0;
    return QString::fromStdString(FormatFixed(*watts, decimals));
}

// Of the text of an entry field in seconds.
AutoProgress::Span SpanOf(const std::string& text) {
    return std::chrono::round<AutoProgress::Span>(
        std::chrono::duration<double>(LeadingNumber(text)));
}

}  // namespace

RunDisplay::RunDisplay(PowerControls& controls, Timekeeper& time, Surround around)
    : Controls(controls),
      Time(time),
      Around(std::move(around)),
      Clock(time),
      tmrPLATE(time.MakeTicker("tmrPLATE", Beat)) {
    tmrPLATE->OnTick([this] { Refresh(); });
    Refresh();
}

void RunDisplay::OutputChanged() {
    const bool on = Around.Out.On();
    Clock.OutputIs(on);
    if (on && Around.Functions.AutoOn()) {
        const int cycles = Around.Sequence.Cycles();
        Progress.Begin(Stages(), cycles, Time.Now());
    } else {
        Progress.End();
    }
    Controls.Plate.fraOUTPUT->ShowOn(on);
    tmrPLATE->SetEnabled(on);
    Refresh();
}

void RunDisplay::StepReported(int step) {
    Reported = step;
    Progress.Reported(step, Time.Now());
}

// The beat starts anew with each reading: its marks are due a whole number of beats later.
void RunDisplay::NumbersShown() {
    if (tmrPLATE->Enabled()) tmrPLATE->Restart();
    Refresh();
}

void RunDisplay::Refresh() {
    const bool known = Around.Source.RatingsKnown();
    ShowBadge(Controls, BadgeFor({.RatingsKnown = known,
                                  .OutputOn = Around.Out.On(),
                                  .Volt = Around.Shown.VoltFrom(),
                                  .Curr = Around.Shown.CurrFrom(),
                                  .Age = Around.ReadingAge()}));
    const QString watts = WattText(known ? Around.Shown.Watts() : std::nullopt);
    if (Controls.Plate.txtWATT->text() != watts) Controls.Plate.txtWATT->ShowValue(watts);
    ShowText(*Controls.Plate.lblELAPSED, ElapsedText(Clock.Elapsed(), Around.Out.On()));
    ShowSetValues();
    ShowAutoRun();
}

// An automatic run is at the step that the supply reports, not at the selected one.
int RunDisplay::StepAt() const {
    return Progress.Running() ? std::clamp(Reported, 0, StepCount - 1) : Around.Rows.CurStep();
}

void RunDisplay::ShowSetValues() {
    const SOURCE& source = Around.Source;
    const int step = StepAt();
    const auto shown = [&](const std::string& text) {
        return source.RatingsKnown() ? QString::fromStdString(text) : QStringLiteral("----");
    };
    ShowText(*Controls.Plate.lblSETVOLT,
             QStringLiteral("설정 %1 V · O.V.P %2 V")
                 .arg(shown(source.StepVolt(step)), shown(source.StepOvp(step))));
    ShowText(*Controls.Plate.lblSETCURR,
             QStringLiteral("설정 %1 A").arg(shown(source.StepCurr(step))));
}

std::vector<AutoProgress::Stage> RunDisplay::Stages() const {
    std::vector<AutoProgress::Stage> stages;
    for (const int step : Around.Sequence.Steps()) {
        const SOURCE& source = Around.Source;
        stages.push_back(
            {step, std::max(SpanOf(source.StepTime(step)), SpanOf(source.StepSlope(step)))});
    }
    return stages;
}

void RunDisplay::ShowAutoRun() {
    QStringList parts;
    if (Progress.Running()) {
        parts += QStringLiteral("자동 %1").arg(QString::fromStdString(FormatStep(Reported)));
        const int cycles = Progress.Cycles();
        if (const auto cycle = Progress.Cycle()) {
            parts += cycles > 0 ? QStringLiteral("%1/%2회").arg(*cycle).arg(cycles)
                                : QStringLiteral("%1회째").arg(*cycle);
        } else if (cycles > 0) {
            parts += QStringLiteral("전체 %1회").arg(cycles);
        }
        const QString end = EstimatedEnd();
        if (!end.isEmpty()) parts += end;
    }
    ShowText(*Controls.Plate.lblAUTORUN, parts.join(QStringLiteral(" · ")));
}

QString RunDisplay::EstimatedEnd() {
    const auto end = Progress.EstimatedEnd();
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
