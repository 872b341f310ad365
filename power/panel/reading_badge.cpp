#include "power/panel/reading_badge.h"

namespace zps {

namespace {

using Kind = ReadingBadge::Kind;

ReadingBadge Plain(Kind kind, const QString& text) {
    return {kind, text, text};
}

ReadingBadge OfReading(const ShownNumbers& shown) {
    const bool live = shown.OutputOn && shown.Age && shown.Answered;
    return live ? Plain(Kind::Measured, QStringLiteral("측정값"))
                : Plain(Kind::LastMeasured, QStringLiteral("마지막 측정값"));
}

}  // namespace

ReadingBadge BadgeFor(const ShownNumbers& shown) {
    if (!shown.RatingsKnown) return Plain(Kind::UnknownRatings, QStringLiteral("정격 모름"));
    if (shown.OutputOn && shown.Age >= FreshFor) {
        const auto seconds = std::chrono::floor<std::chrono::seconds>(*shown.Age).count();
        return {Kind::NoAnswer, QStringLiteral("응답 없음 %1초").arg(seconds),
                QStringLiteral("응답 없음")};
    }
    const bool voltSet = shown.Volt == NumberFrom::StepTable;
    const bool currSet = shown.Curr == NumberFrom::StepTable;
    if (voltSet && currSet) return Plain(Kind::Set, QStringLiteral("설정값"));
    ReadingBadge badge = OfReading(shown);
    if (voltSet == currSet) return badge;
    const QString both =
        voltSet ? QStringLiteral("전압 설정값 · 전류 %1") : QStringLiteral("전압 %1 · 전류 설정값");
    return Plain(badge.Is, both.arg(badge.Text));
}

}  // namespace zps
