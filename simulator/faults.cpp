#include "simulator/faults.h"

#include <algorithm>
#include <array>
#include <stdexcept>
#include <string>

namespace zps::simulator {

namespace {

using std::chrono::milliseconds;

constexpr int LongestWait = 60'000;  // ms
constexpr int MostStray = 1'000;

constexpr std::array Rules{
    FaultRule{.Kind = FaultKind::Silent, .Name = "silent"},
    FaultRule{.Kind = FaultKind::Damage, .Name = "damage"},
    FaultRule{.Kind = FaultKind::Refuse, .Name = "nak"},
    FaultRule{.Kind = FaultKind::Other, .Name = "other"},
    FaultRule{.Kind = FaultKind::Overlay, .Name = "overlay"},
    FaultRule{.Kind = FaultKind::Replay, .Name = "replay", .Least = 1, .Most = 100},
    FaultRule{.Kind = FaultKind::Address, .Name = "address", .Least = 1, .Most = 255},
    FaultRule{.Kind = FaultKind::Lose, .Name = "lose"},
    FaultRule{.Kind = FaultKind::Insert, .Name = "insert", .HasByte = true},
    FaultRule{.Kind = FaultKind::Garble, .Name = "garble"},
    FaultRule{.Kind = FaultKind::Baud, .Name = "baud", .Least = 300, .Most = 115'200},
    FaultRule{.Kind = FaultKind::Before,
              .Name = "before",
              .Least = 1,
              .Most = MostStray,
              .HasByte = true},
    FaultRule{
        .Kind = FaultKind::After, .Name = "after", .Least = 1, .Most = MostStray, .HasByte = true},
    FaultRule{.Kind = FaultKind::Drop, .Name = "drop"},
    FaultRule{.Kind = FaultKind::Split, .Name = "split", .Pause = milliseconds(30)},
    FaultRule{.Kind = FaultKind::Duplicate, .Name = "duplicate", .Pause = milliseconds(0)},
    FaultRule{.Kind = FaultKind::Between,
              .Name = "between",
              .Least = 1,
              .Most = MostStray,
              .Pause = milliseconds(100),
              .HasByte = true},
    FaultRule{.Kind = FaultKind::Delay, .Name = "delay", .Least = 1, .Most = LongestWait},
    FaultRule{.Kind = FaultKind::Jitter, .Name = "jitter", .Least = 1, .Most = LongestWait},
    FaultRule{.Kind = FaultKind::Gap, .Name = "gap", .Least = 1, .Most = LongestWait},
    FaultRule{.Kind = FaultKind::Late, .Name = "late"},
    FaultRule{.Kind = FaultKind::Deaf, .Name = "deaf", .HasFrame = false},
    FaultRule{.Kind = FaultKind::Flood,
              .Name = "flood",
              .Least = 1,
              .Most = 100'000,
              .HasByte = true,
              .HasFrame = false}};

void Check(bool right, const FaultRule& rule, std::string_view what) {
    if (!right) throw std::invalid_argument(std::string(rule.Name) + ": " + std::string(what));
}

std::string Bounds(const FaultRule& rule) {
    return "its figure is " + std::to_string(rule.Least) + " to " + std::to_string(rule.Most);
}

}  // namespace

std::span<const FaultRule> FaultRules() {
    return Rules;
}

const FaultRule& RuleOf(FaultKind kind) {
    return *std::ranges::find(Rules, kind, &FaultRule::Kind);
}

void CheckFault(const Fault& fault) {
    const FaultRule& rule = RuleOf(fault.Kind);
    const auto& [rate, on, nth, from, until] = fault.When;
    const milliseconds pause = fault.Pause.value_or(milliseconds(0));
    Check(fault.Amount >= rule.Least && fault.Amount <= rule.Most, rule, Bounds(rule));
    Check(!fault.Pause || rule.Pause, rule, "it knows no pause");
    Check(pause.count() >= 0 && pause.count() <= LongestWait, rule, "a pause is 0 to 60000 ms");
    Check(!fault.Byte || rule.HasByte, rule, "it knows no byte");
    Check(rate >= 0 && rate <= 1, rule, "a rate is 0 to 1");
    Check(nth >= 0, rule, "frames are counted from 1");
    Check(rule.HasFrame || (rate == 1 && !on && nth == 0), rule, "no frame brings it about");
    Check(from.count() >= 0 && from < until && until <= ForEver, rule, "it ends before it begins");
}

}  // namespace zps::simulator
