#include "simulator/fault_text.h"

#include "simulator/typed.h"
#include "simulator/wire.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cmath>
#include <limits>

namespace zps::simulator {

namespace {

using std::chrono::milliseconds;

constexpr int MostWhole = std::numeric_limits<int>::max();

struct CodeName {
    std::string_view Name;
    std::uint8_t Code;
};

constexpr std::array CodeNames{CodeName{"STX", Stx}, CodeName{"ENQ", Enq}, CodeName{"DLE", Dle},
                               CodeName{"DC1", Dc1}, CodeName{"DC3", Dc3}};

std::uint8_t ParseCode(std::string_view text) {
    if (text.size() == 1 && std::isupper(static_cast<unsigned char>(text[0])) != 0)
        return static_cast<std::uint8_t>(text[0]);
    const auto* const found = std::ranges::find(CodeNames, text, &CodeName::Name);
    if (found == CodeNames.end()) RefuseWord("a letter, ENQ, DLE, DC1, DC3 or STX", text);
    return found->Code;
}

std::string CodeText(std::uint8_t code) {
    const auto* const found = std::ranges::find(CodeNames, code, &CodeName::Code);
    return found == CodeNames.end() ? std::string(1, static_cast<char>(code))
                                    : std::string(found->Name);
}

milliseconds ParseSeconds(std::string_view text, std::string_view what) {
    constexpr double most = 1e6;
    return milliseconds(std::llround(ParseNumber(text, 0, most, what) * 1000));
}

std::string SecondsText(milliseconds time) {
    return NumberText(static_cast<double>(time.count()) / 1000);
}

// What may follow the figure. `Write` gives an empty text where nothing has been said.
struct Detail {
    std::string_view Name;
    void (*Read)(Fault& fault, std::string_view text);
    std::string (*Write)(const Fault& fault);
};

constexpr std::array Details{
    Detail{"rate",
           [](Fault& fault, std::string_view text) {
               fault.When.Rate = ParseNumber(text, 0, 1, "a rate");
           },
           [](const Fault& fault) {
               const bool said = fault.When.Rate != 1 && RuleOf(fault.Kind).HasAmount();
               return said ? NumberText(fault.When.Rate) : "";
           }},
    Detail{"on", [](Fault& fault, std::string_view text) { fault.When.On = ParseCode(text); },
           [](const Fault& fault) { return fault.When.On ? CodeText(*fault.When.On) : ""; }},
    Detail{"nth",
           [](Fault& fault, std::string_view text) {
               fault.When.Nth = ParseWhole(text, 1, MostWhole, "the number of a frame");
           },
           [](const Fault& fault) {
               return fault.When.Nth != 0 ? std::to_string(fault.When.Nth) : "";
           }},
    Detail{"from",
           [](Fault& fault, std::string_view text) {
               fault.When.From = ParseSeconds(text, "the seconds from which it strikes");
           },
           [](const Fault& fault) {
               return fault.When.From.count() != 0 ? SecondsText(fault.When.From) : "";
           }},
    Detail{"until",
           [](Fault& fault, std::string_view text) {
               fault.When.Until = ParseSeconds(text, "the seconds until which it strikes");
           },
           [](const Fault& fault) {
               return fault.When.Until != ForEver ? SecondsText(fault.When.Until) : "";
           }},
    Detail{
        "pause",
        [](Fault& fault, std::string_view text) {
            fault.Pause = milliseconds(ParseWhole(text, 0, MostWhole, "a pause in ms"));
        },
        [](const Fault& fault) { return fault.Pause ? std::to_string(fault.Pause->count()) : ""; }},
    Detail{"byte",
           [](Fault& fault, std::string_view text) {
               fault.Byte = static_cast<std::uint8_t>(ParseWhole(text, 0, 255, "a byte"));
           },
           [](const Fault& fault) { return fault.Byte ? std::to_string(*fault.Byte) : ""; }},
};

void ReadDetail(Fault& fault, std::string_view text) {
    std::string_view value = text;
    const auto name = TakeUntil(value, '=');
    const auto* const detail = std::ranges::find(Details, name, &Detail::Name);
    if (detail == Details.end())
        RefuseWord("rate=, on=, nth=, from=, until=, pause= or byte=", text);
    detail->Read(fault, value);
}

}  // namespace

const FaultRule* FindRule(std::string_view name) {
    const auto rules = FaultRules();
    const auto found = std::ranges::find(rules, name, &FaultRule::Name);
    return found == rules.end() ? nullptr : &*found;
}

std::optional<Fault> ParseFault(const FaultRule& rule, std::string_view text) {
    Fault fault{.Kind = rule.Kind};
    const std::string what = "the figure of " + std::string(rule.Name);
    if (rule.HasAmount() || !text.empty()) {
        const auto figure = TakeUntil(text, ',');
        if (figure == "0") return std::nullopt;
        if (rule.HasAmount())
            fault.Amount = ParseWhole(figure, rule.Least, rule.Most, what);
        else
            fault.When.Rate = ParseNumber(figure, 0, 1, what);
    }
    while (!text.empty()) ReadDetail(fault, TakeUntil(text, ','));
    try {
        CheckFault(fault);
    } catch (const std::invalid_argument& error) {
        throw UsageError(error.what());
    }
    return fault;
}

std::string FaultText(const Fault& fault) {
    const FaultRule& rule = RuleOf(fault.Kind);
    std::string text(rule.Name);
    text += ' ' + NumberText(rule.HasAmount() ? fault.Amount : fault.When.Rate);
    for (const Detail& detail : Details)
        if (const std::string value = detail.Write(fault); !value.empty())
            text += ',' + std::string(detail.Name) + '=' + value;
    return text;
}

}  // namespace zps::simulator
