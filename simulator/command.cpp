#include "simulator/command.h"

#include <algorithm>
#include <array>

namespace zps::simulator {

namespace {

constexpr std::uint8_t SequenceEnd = 0xFF;
constexpr int ToSequenceEnd = -1;

unsigned Word(ByteView data, std::size_t at) {
    return static_cast<unsigned>(data[at]) * 256 + data[at + 1];
}

bool Always(ByteView) {
    return true;
}
bool IsSwitch(ByteView data) {
    return data[0] <= 1;
}
bool AreSteps(ByteView data) {
    return std::ranges::all_of(data, [](std::uint8_t step) { return step < StepCount; });
}
bool IsCount(ByteView data) {
    return Word(data, 0) <= 50000;
}
bool IsSlope(ByteView data) {
    return Word(data, 0) <= 50000 && data[2] <= 99;
}
bool IsTime(ByteView data) {
    return Word(data, 0) <= 50000 && Word(data, 2) <= 999 && data[4] <= 99;
}

struct LetterRule {
    char Letter;
    int DataCount;
    bool (*Fits)(ByteView data);
};

constexpr std::array Letters{
    LetterRule{'A', 1, IsSwitch}, LetterRule{'B', ToSequenceEnd, AreSteps},
    LetterRule{'C', 2, Always},   LetterRule{'D', 3, IsSlope},
    LetterRule{'F', 2, IsCount},  LetterRule{'G', 1, IsSwitch},
    LetterRule{'O', 2, Always},   LetterRule{'R', 0, Always},
    LetterRule{'S', 1, AreSteps}, LetterRule{'T', 5, IsTime},
    LetterRule{'V', 2, Always},   LetterRule{'W', 1, IsSwitch},
    LetterRule{'X', 1, IsSwitch},
};

bool IsPadding(ByteView rest) {
    return std::ranges::all_of(rest, [](std::uint8_t byte) { return byte == 0; });
}

// Takes one command off the front of `rest`.
std::optional<Command> TakeCommand(ByteView& rest) {
    if (rest.size() < 2 || rest[0] != Esc) return std::nullopt;
    const auto* rule = std::ranges::find(Letters, static_cast<char>(rest[1]), &LetterRule::Letter);
    if (rule == Letters.end()) return std::nullopt;
    rest = rest.subspan(2);

    const bool toEnd = rule->DataCount == ToSequenceEnd;
    const auto count =
        toEnd ? static_cast<std::size_t>(std::ranges::find(rest, SequenceEnd) - rest.begin())
              : static_cast<std::size_t>(rule->DataCount);
    const std::size_t taken = count + (toEnd ? 1 : 0);
    if (rest.size() < taken) return std::nullopt;

    const ByteView data = rest.first(count);
    rest = rest.subspan(taken);
    if (!rule->Fits(data)) return std::nullopt;
    return Command{rule->Letter, Bytes(data.begin(), data.end())};
}

}  // namespace

std::optional<std::vector<Command>> ParseCommands(ByteView payload) {
    std::vector<Command> commands;
    do {
        auto command = TakeCommand(payload);
        if (!command) return std::nullopt;
        commands.push_back(std::move(*command));
    } while (!IsPadding(payload));
    return commands;
}

}  // namespace zps::simulator
