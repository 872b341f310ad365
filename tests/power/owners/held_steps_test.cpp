#include "power/link/held_steps.h"

#include "source/errors.h"
#include "tests/support/scripted_link.h"

#include <gtest/gtest.h>

namespace zps::tests {
namespace {

constexpr std::array Values{StepValue::Volt, StepValue::Curr, StepValue::Time, StepValue::Slope,
                            StepValue::Ovp};

struct HoldingSteps : testing::Test, ScriptedLink {
    HoldingSteps() {
        OnReply = [this](Reply result) { Answer.Heard(result); };
        Held.OnChange([this] { Marks += Source.StepFlag(1) ? '1' : '0'; });
        Line->Otherwise([this](const Bytes& /*block*/) { return Acknowledged; });
        Source.SetStartScales();
        for (int step = 0; step < StepCount; ++step) {
            for (const StepValue value : Values) Source.StoreStep(value, step, {1, "1.00000"});
        }
    }
    void Send(int step, StepValues values) {
        if (values.all()) Held.Select(step, values, UploadFrame(1, step, Source.WireOf(step)));
        for (const StepValue value : Values) {
            if (values == Only(value))
                Held.Send(step, values, ValueFrame(1, value, Source.Wire(value, step)));
        }
    }
    // Sends them and lets their acknowledgement come.
    void Give(int step, StepValues values) {
        Send(step, values);
        Time.Pass(1ms);
    }

    AwaitedAnswer Answer{Source, *Port, Sender, Time};
    HeldSteps Held{Source, Sender, Answer};
    std::string Marks;  // those of step 1, one for each time that a change was told
};

const std::pair<std::vector<Piece>, bool> Answers[]{
    {{{{1, 6, 7}, 990ms}}, true},   {{{{1}, 20ms}, {{6, 7}, 60ms}}, true},
    {{{{1, 6, 7}, 1010ms}}, false}, {{}, false},
    {{{{1, 21, 22}, 20ms}}, false}, {{{{9, 9, 9, 9}, 20ms}}, false},
    {{{{1, 6, 8}, 20ms}}, false},   {{{{2, 6, 8}, 20ms}}, false},
    {{{{1, 6}, 20ms}}, false},
};
// What the supply has acknowledged before, and what is sent.
const std::pair<StepValues, StepValues> Ways[]{
    {{}, AllValues()},
    {AllValues(), Only(StepValue::Volt)},
    {Only(StepValue::Curr) | Only(StepValue::Ovp), Only(StepValue::Time)}};

// Also behind an event that finds nothing, and with the answer still in the inbox, behind a box,
// when the second is over.
TEST_F(HoldingSteps, AStepIsHeldOnlyIfAllItsValuesAreAcknowledgedWithinASecond) {
    for (int number = 0; const auto& [answer, good] : Answers) {
        SCOPED_TRACE(number++);
        for (std::size_t run = 0; run < 4 * std::size(Ways); ++run) {
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
    Give(2, AllValues());
    Marks.clear();
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
    EXPECT_FALSE(Held.IsAt(1) || Source.StepFlag(2));
    Time.Pass(2s);
    EXPECT_EQ(Marks, "111000");
    EXPECT_TRUE(Held.Refused(1).none());
    Held.Select(2, {}, SelectStepFrame(1, 2));
    Give(2, Only(StepValue::Volt));
    EXPECT_TRUE(Held.IsAt(2) && !Source.StepFlag(2));
}

TEST_F(HoldingSteps, AValueCountsForNoStepWhileTheSupplyMayBeAtAnotherOne) {
    for (const int step : {2, 1, 3}) Give(step, AllValues());
    for (const Bytes& answer : {Refused, Acknowledged}) {
        Line->Answer(answer);
        Held.Select(1, {}, SelectStepFrame(1, 1));
        Time.Pass(1ms);
        EXPECT_EQ(Source.StepFlag(1), answer == Refused);  // which takes no mark by itself
        Give(1, Only(StepValue::Volt));
        const bool there = answer == Acknowledged;
        EXPECT_EQ(Held.Refused(1).none(), there);
        EXPECT_EQ((std::array{Source.StepFlag(1), Source.StepFlag(2), Source.StepFlag(3)}),
                  (std::array{there, true, false}));
    }
    Line->Answer(Refused);
    Held.Select(2, {}, SelectStepFrame(1, 2));
    Time.Pass(1ms);
    Held.Select(2, Only(StepValue::Curr), SelectingValueFrame(1, 2, StepValue::Curr, {1, 2}));
    Time.Pass(1ms);
    EXPECT_TRUE(Source.StepFlag(2) && Held.IsAt(2));
    for (const int step : {1, 2}) {
        Line->Answer(Refused);
        Held.Select(step, {}, SelectStepFrame(1, step));
        Time.Pass(1ms);
    }
    Give(2, Only(StepValue::Volt));
    EXPECT_TRUE(Held.Refused(2).any());  // the refusals may have come from a spoilt line
    Give(2, AllValues());
    Line->AnswerInPieces({{Acknowledged, 60ms}});
    Send(3, AllValues());
    Give(3, Only(StepValue::Volt));
    EXPECT_TRUE(Source.StepFlag(2) && Source.StepFlag(3));
}

}  // namespace
}  // namespace zps::tests
