#include "simulator/command.h"

#include "tests/simulator/bench.h"

#include <gtest/gtest.h>

namespace zps::simulator::tests {
namespace {

// The letters and data of `payload`, each command as one string of bytes; empty if refused.
std::vector<Bytes> Parsed(const Bytes& payload) {
    std::vector<Bytes> found;
    const auto commands = ParseCommands(payload);
    if (!commands) return found;
    for (const Command& command : *commands)
        found.push_back(Joined({{static_cast<std::uint8_t>(command.Letter)}, command.Data}));
    return found;
}

struct Single {
    Bytes Content;  // letter and data
    std::size_t Padding;
};

class SingleCommand : public testing::TestWithParam<Single> {};

TEST_P(SingleCommand, IsReadWithAndWithoutPadding) {
    const auto& [content, padding] = GetParam();
    EXPECT_EQ(Parsed(Joined({{Esc}, content})), std::vector<Bytes>{content});
    EXPECT_EQ(Parsed(Joined({{Esc}, content, Bytes(padding)})), std::vector<Bytes>{content});
    EXPECT_TRUE(Parsed(Joined({{Esc}, content, Bytes(padding), {1}})).empty());
    if (content.size() == 1) return;
    EXPECT_TRUE(Parsed(Joined({{Esc}, Bytes(content.begin(), content.end() - 1)})).empty());
}

INSTANTIATE_TEST_SUITE_P(EveryLetter, SingleCommand,
                         testing::Values(Single{{'A', 1}, 5}, Single{{'G', 1}, 5},
                                         Single{{'S', 27}, 5}, Single{{'W', 0}, 5},
                                         Single{{'X', 1}, 5}, Single{{'C', 27, 3}, 2},
                                         Single{{'O', 0x55, 0x28}, 2}, Single{{'V', 4, 0xD2}, 2},
                                         Single{{'D', 0xC3, 0x50, 99}, 0},
                                         Single{{'T', 0xC3, 0x50, 3, 0xE7, 99}, 0},
                                         Single{{'F', 0xC3, 0x50}, 0}, Single{{'R'}, 1}));

TEST(Commands, OfAWholeStepAndOfTheStartAreReadByTheirCounts) {
    const std::vector<Bytes> step{{'S', 3},        {'V', 27, 27},
                                  {'C', 27, 'A'},  {'T', 0, 27, 0, 3, 27},
                                  {'D', 27, 3, 3}, {'O', 3, 27}};
    Bytes payload;
    for (const Bytes& command : step) payload = Joined({payload, {Esc}, command});
    EXPECT_EQ(payload.size(), 27U);
    EXPECT_EQ(Parsed(payload), step);

    const Bytes start{27, 'A', 0, 27, 'W', 0, 27, 'G', 0, 27, 'X', 0, 27, 'B', 255, 27, 'F', 0, 0};
    const std::vector<Bytes> expected{{'A', 0}, {'W', 0}, {'G', 0}, {'X', 0}, {'B'}, {'F', 0, 0}};
    EXPECT_EQ(Parsed(start), expected);
}

TEST(Commands, OfASequenceRunToTheEndMark) {
    EXPECT_EQ(Parsed({Esc, 'B', 27, 66, 3, 255}), (std::vector<Bytes>{{'B', 27, 66, 3}}));
    const Bytes longest(252, 7);
    EXPECT_EQ(Parsed(Joined({{Esc, 'B'}, longest, {255}})),
              std::vector<Bytes>{Joined({{'B'}, longest})});
    EXPECT_TRUE(Parsed({Esc, 'B', 1, 2}).empty());
}

TEST(Commands, WithUnknownLettersOrValuesOutOfRangeAreRefusedAsAWhole) {
    const std::vector<Bytes> refused{{},
                                     {Esc},
                                     {Esc, 'Z', 0},
                                     {1, 'A', 1},
                                     {Esc, 'A', 2},
                                     {Esc, 'S', 100},
                                     {Esc, 'B', 100, 255},
                                     {Esc, 'F', 0xC3, 0x51},
                                     {Esc, 'D', 0xC3, 0x51, 0},
                                     {Esc, 'T', 0, 0, 3, 0xE8, 0},
                                     {Esc, 'T', 0, 0, 0, 0, 100},
                                     {Esc, 'A', 1, Esc, 'Z', 0},
                                     {Esc, 'A', 1, 0, Esc, 'W', 1}};
    for (const Bytes& payload : refused)
        EXPECT_TRUE(Parsed(payload).empty()) << testing::PrintToString(payload);
}

}  // namespace
}  // namespace zps::simulator::tests
