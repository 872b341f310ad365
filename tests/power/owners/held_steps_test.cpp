#include "power/link/held_steps.h"

#include "source/errors.h"
#include "tests/simulator/bench.h"
#include "tests/support/scripted_link.h"

#include <gtest/gtest.h>

#include <random>

namespace zps::tests {
namespace {

constexpr std::array Values{StepValue::Volt, StepValue::Curr, StepValue::Time, StepValue::Slope,
                            StepValue::Ovp};

struct HoldingSteps : testing::Test, ScriptedLink {
    HoldingSteps() {
        OnReply = [this](Reply result) { Held.Answered(result); };
        Held.OnChange([this] { Marks += Source.StepFlag(1) ? '1' : '0'; });
        Line->Otherwise([this](const Bytes& /*block*/) { return Acknowledged; });
        Source.SetStartScales();
        for (int step = 0; step < StepCount; ++step) {
            for (const StepValue value : Values) Store(step, value, 1);
        }
    }
    void Store(int step, StepValue value, int number) {
        Source.StoreStep(value, step, std::to_string(number) + ".00000");
    }
    void Send(int step, StepValues values) {
        if (values.all()) Held.Select(step, values, UploadFrame(1, step, Source.WireOf(step)));
        for (const StepValue value : Values) {
            if (values == Only(value))
                Held.Send(step, values, ValueFrame(1, value, Source.Wire(value, step)));
        }
    }
    void SendAgain(int step, StepValue value) {
        Held.Select(step, Only(value),
                    SelectingValueFrame(1, step, value, Source.Wire(value, step)));
    }
    // Sends them and lets their acknowledgement come.
    void Give(int step, StepValues values) {
        Send(step, values);
        Time.Pass(1ms);
    }

    HeldSteps Held{Source, *Port, Sender, Time};
    std::string Marks;  // those of step 1, one for each time that a change was told
};

struct AnswerCase {
    const char* Name;
    std::vector<Piece> Answer;
    bool Good;
};
const AnswerCase Answers[]{
    {"ACK", {{{1, 6, 7}, 20ms}}, true},
    {"ACK in pieces", {{{1}, 20ms}, {{6, 7}, 60ms}}, true},
    {"ACK within the second", {{{1, 6, 7}, 990ms}}, true},
    {"ACK too late", {{{1, 6, 7}, 1010ms}}, false},
    {"none", {}, false},
    {"NAK", {{{1, 21, 22}, 20ms}}, false},
    {"rubbish", {{{9, 9, 9, 9}, 20ms}}, false},
    {"wrong check byte", {{{1, 6, 8}, 20ms}}, false},
    {"another address", {{{2, 6, 8}, 20ms}}, false},
    {"half", {{{1, 6}, 20ms}}, false},
};
struct WayCase {
    StepValues Before;  // what the supply has acknowledged
    StepValues Sent;
};
const WayCase Ways[]{{{}, AllValues()},
                     {AllValues(), Only(StepValue::Volt)},
                     {Only(StepValue::Curr) | Only(StepValue::Ovp), Only(StepValue::Time)}};

// Also behind an event that finds nothing, and with the answer still in the inbox, behind a box,
// when the second is over.
TEST_F(HoldingSteps, AStepIsHeldOnlyIfAllItsValuesAreAcknowledgedWithinASecond) {
    for (const auto& [name, answer, good] : Answers) {
        for (std::size_t run = 0; run < 4 * std::size(Ways); ++run) {
            SCOPED_TRACE(name + std::to_string(run));
            const auto& [before, sent] = Ways[run / 4];
            Give(1, AllValues());
            for (const StepValue value : Values) {
                if ((before & Only(value)).none()) Held.Changed(1, value);
            }
            ShowBox(run % 2 == 1);
            if (run % 4 > 1) Line->Arrive({9});  // swept away by the frame
            Line->AnswerInPieces(answer);
            Send(1, sent);
            EXPECT_EQ(Source.StepFlag(1), (before | sent).all());  // for now
            EXPECT_TRUE(Held.Refused(1).none());
            Time.Pass(1500ms);
            ShowBox(false);
            StepValues missing = ~before;
            if (good)
                missing &= ~sent;
            else
                missing |= sent;
            EXPECT_EQ(Held.Refused(1), good ? StepValues() : sent);
            for (const StepValue value : Values) {
                if ((missing & Only(value)).none()) continue;
                EXPECT_FALSE(Source.StepFlag(1));
                Give(1, Only(value));
            }
            EXPECT_TRUE(Source.StepFlag(1) && Held.Refused(1).none());
        }
    }
}

TEST_F(HoldingSteps, TheAnswerIsHeardBeforeTheNextFrameWhichSaysNothingAboutTheStep) {
    const std::function<void()> frames[]{
        [&] { Sender.SendCommand(letter::OverCurrent, 1); },
        [&] { Sender.Send(ControlFrame(1, code::Dle), ExpectData); },
        [&] { Sender.AwaitOutstanding(); },  // another window takes the port
        [&] { Send(2, AllValues()); }};
    for (const auto& frame : frames) {
        for (const Bytes& answer : {Acknowledged, Refused, {}}) {
            Line->AnswerInPieces({{answer, 60ms}});
            Send(1, AllValues());
            const auto begun = Line->Waited();
            frame();
            EXPECT_EQ(Line->Waited() - begun, 100ms);
            EXPECT_EQ(Source.StepFlag(1), answer == Acknowledged);
            Time.Pass(2s);
            EXPECT_EQ(Source.StepFlag(1), answer == Acknowledged);
            EXPECT_EQ(Held.Refused(1).any(), answer != Acknowledged);
        }
    }
}

TEST_F(HoldingSteps, EachChangeIsToldAndAClosedPortOrAnotherTableLeavesNoMark) {
    Give(1, AllValues());
    Held.Changed(1, StepValue::Ovp);
    Give(1, Only(StepValue::Ovp));
    Port->SetPortOpen(false);
    EXPECT_THROW(Send(1, Only(StepValue::Curr)), serial::PortError);
    EXPECT_EQ(Held.Refused(1), Only(StepValue::Curr));
    EXPECT_EQ(std::exchange(Marks, ""), "110110");  // sent, acknowledged, changed ..., refused
    Port->SetPortOpen(true);
    Give(1, Only(StepValue::Curr));
    Line->Answer(Refused);
    Give(1, Only(StepValue::Time));
    Line->Answer({});
    Send(1, Only(StepValue::Volt));
    Held.Forget();
    EXPECT_FALSE(Held.IsAt(1));
    Time.Pass(2s);
    EXPECT_EQ(Marks, "111000");
    EXPECT_TRUE(Held.Refused(1).none());
    Give(1, Only(StepValue::Volt));
    EXPECT_FALSE(Source.StepFlag(1));
}

TEST_F(HoldingSteps, AValueCountsForNoStepWhileTheSupplyMayBeAtAnotherOne) {
    for (const int step : {2, 1, 3}) Give(step, AllValues());
    for (const Bytes& answer : {Refused, Acknowledged}) {
        Line->Answer(answer);
        Held.Select(1, {}, SelectStepFrame(1, 1));
        Time.Pass(1ms);
        EXPECT_EQ(Source.StepFlag(1), answer == Refused);  // which takes no mark by itself
        Store(1, StepValue::Volt, 2);
        Give(1, Only(StepValue::Volt));
        const bool there = answer == Acknowledged;
        EXPECT_EQ(Held.Refused(1).none(), there);
        EXPECT_EQ((std::array{Source.StepFlag(1), Source.StepFlag(2), Source.StepFlag(3)}),
                  (std::array{there, true, false}));
    }
    Line->Answer(Refused);
    Held.Select(2, {}, SelectStepFrame(1, 2));
    Time.Pass(1ms);
    SendAgain(2, StepValue::Curr);
    Time.Pass(1ms);
    EXPECT_TRUE(Source.StepFlag(2) && Held.IsAt(2));
}

// What a supply remembers of a step, as the panel's table has it.
StepBytes Memory(const simulator::StepValues& step) {
    const auto word = [](int value) {
        return Bytes{static_cast<std::uint8_t>(value >> 8), static_cast<std::uint8_t>(value)};
    };
    return {word(step.VoltRaw), word(step.CurrRaw), Bytes(step.TimeRaw.begin(), step.TimeRaw.end()),
            Bytes(step.SlopeRaw.begin(), step.SlopeRaw.end()), word(step.OvpRaw)};
}

// Steps 0 to 3 are selected, edited and sent again over a line that loses and spoils frames.
TEST_F(HoldingSteps, AStepThatIsMarkedAsHeldStandsInTheSupplyWhateverTheLineDoes) {
    for (unsigned seed = 0; seed < 30; ++seed) {
        SCOPED_TRACE(seed);
        std::mt19937 random(seed);
        const auto upTo = [&](int last) { return std::uniform_int_distribution(0, last)(random); };
        simulator::tests::Bench bench;
        bool faults = true;
        const auto answer = [&](Bytes block) {
            const int fate = faults ? upTo(12) : 12;
            if (fate == 0) return Bytes();
            if (fate == 1) ++block.back();
            Bytes reply = bench.Send(block);
            if (fate == 2) reply.clear();
            if (fate == 3 && !reply.empty()) ++reply.back();
            return reply;
        };
        const auto check = [&](int awaited) {
            for (int step = 0; step < 4; ++step) {
                if (step == awaited || !Source.StepFlag(step)) continue;
                ASSERT_EQ(Memory(bench.Tested.State().Steps.at(static_cast<std::size_t>(step))),
                          Source.WireOf(step))
                    << step;
            }
        };
        Held.Forget();
        int selected = 0;
        for (int action = 0; action < 400; ++action) {
            Line->Otherwise(answer, std::chrono::milliseconds(upTo(90)));
            const StepValue value = Values.at(static_cast<std::size_t>(upTo(4)));
            const int other = upTo(3);
            switch (upTo(6)) {
                case 0:
                    selected = other;
                    Send(selected, AllValues());
                    break;
                case 1:
                case 2:
                    Store(selected, value, upTo(6));
                    Send(selected, Only(value));
                    break;
                case 3:
                    if (other == selected) break;
                    Store(other, value, upTo(6));
                    Held.Changed(other, value);
                    break;
                case 4:
                    Sender.SendCommand(letter::OverCurrent, 1);
                    break;
                case 5:
                    if (!Source.StepFlag(other)) break;
                    selected = other;  // with the output on
                    Held.Select(other, {}, SelectStepFrame(1, other));
                    break;
                default:
                    for (const StepValue again : Values) {
                        if ((Held.Refused(selected) & Only(again)).any())
                            SendAgain(selected, again);
                    }
            }
            check(selected);
            if (HasFatalFailure()) return;
            if (upTo(1) == 0) continue;
            Time.Pass(1100ms);
            check(-1);
        }
        faults = false;
        for (int step = 0; step < 4; ++step) {
            for (const StepValue value : Values) SendAgain(step, value);
            Time.Pass(1s);
            EXPECT_TRUE(Source.StepFlag(step) && Held.Refused(step).none());
        }
        check(-1);
    }
}

}  // namespace
}  // namespace zps::tests
