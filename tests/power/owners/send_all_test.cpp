#include "power/steps/send_all.h"

#include "power/steps/table_messages.h"
#include "tests/support/scripted_link.h"

#include <gtest/gtest.h>

namespace zps::tests {
namespace {

struct SendingAll : testing::Test, ScriptedLink {
    SendingAll() {
        Source.SetMaxVolt(150);
        Source.SetMaxCurr(10);
        Source.ResetSteps();
        OnReply = [this](Reply result) { Answer.Heard(result); };
        Line->Otherwise([this](const Bytes& /*block*/) { return Acknowledged; }, 20ms);
        Sending.OnProgress([this](const SendAll::Report& report) {
            Told += ProgressText(report).toStdString() + '|';
        });
        Sending.OnEnd([this](const SendAll::Report& report) { Ended = report; });
        for (const int step : {4, 2}) Upload(step), Time.Pass(50ms);
        Line->ForgetWritten();
    }
    void Upload(int step) {
        Selected = step;
        Held.Select(step, AllValues(), UploadFrame(1, step, Source.WireOf(step)));
    }
    void Change(std::initializer_list<int> steps) {
        for (const int step : steps) Held.Changed(step, StepValue::Ovp);
    }
    // The steps whose uploads were sent since the last call.
    std::string Sent() {
        std::string steps;
        for (const Bytes& frame : Line->WrittenData()) {
            EXPECT_EQ(frame.size(), 32U);
            steps += std::to_string(frame.at(5)) + ' ';
        }
        Line->ForgetWritten();
        return steps;
    }

    int Selected = 0;
    bool OutputOff = true;
    AwaitedAnswer Answer{Source, *Port, Sender, Time};
    HeldSteps Held{Source, Sender, Answer};
    SendAll Sending{Time,
                    {Source, Held, [this] { return Answer.Awaited() || Sender.ReplyInProgress(); },
                     [this] { return Selected; }, [this](int step) { Upload(step); },
                     [this] { return OutputOff; }}};
    std::string Told;
    std::optional<SendAll::Report> Ended;
};

TEST_F(SendingAll, EachChangedStepAwaitsItsAnswerAndTheSelectedOneComesLast) {
    Change({7, 1, 9});
    Sending.Start();
    Time.Pass(35ms);  // the answer to the first takes 20
    EXPECT_EQ(Line->Written().size(), 2U);
    Time.Pass(1s);
    EXPECT_EQ(Sent(), "1 7 9 2 ");
    EXPECT_EQ(
        Told,
        "앞의 응답을 기다리는 중|단계 01 송신 중 (1/3)|단계 07 송신 중 (2/3)|단계 09 송신 중 (3/3)|"
        "단계 02 다시 선택 중|");
    ASSERT_TRUE(Ended && !Sending.Running());
    EXPECT_EQ(SentText(*Ended), "3/3단계 송신됨");
    EXPECT_FALSE(SendingTrouble(*Ended));
    EXPECT_TRUE(Sending.Unsent().empty() && Held.IsAt(2));
    Change({2, 3});
    Line->AnswerInPieces({{Acknowledged, 300ms}});
    Sender.SendCommand(letter::Sensing, 1);
    Line->ForgetWritten();
    Sending.Start();
    Time.Pass(250ms);
    EXPECT_EQ(Sent(), "");  // that answer comes first
    Time.Pass(1s);
    EXPECT_EQ(Sent(), "3 2 ");
    EXPECT_EQ(SentText(*Ended), "2/2단계 송신됨");
}

TEST_F(SendingAll, ARefusedUnansweredOrGarbledStepEndsItAndIsNamed) {
    for (const auto& [answer, what] : {std::pair{Refused, "전원 장치가 거부했습니다."},
                                       {Bytes{}, "전원 장치가 응답하지 않았습니다."},
                                       {Bytes{9, 9, 9}, "전원 장치의 응답이 잘못되었습니다."}}) {
        Change({1, 7, 9});
        Line->Answer(Acknowledged);
        Line->Answer(answer);
        Sending.Start();
        Time.Pass(3s);
        EXPECT_EQ(Sent(), "1 7 2 ");
        ASSERT_TRUE(Ended && Ended->Reselected);
        const auto trouble = SendingTrouble(*std::exchange(Ended, std::nullopt));
        ASSERT_TRUE(trouble);
        EXPECT_EQ(trouble->Text.toStdString(),
                  std::string("단계 07: ") + what + "\n1/3단계 송신됨");
        EXPECT_EQ(Sending.Unsent(), (std::vector{7, 9}));
    }
    Line->Otherwise([](const Bytes& /*block*/) { return Bytes(); });
    Sending.Start();
    Time.Pass(5s);
    EXPECT_EQ(Sent(), "7 2 ");
    EXPECT_TRUE(SendingTrouble(*Ended)->Text.contains("처음의 단계(02)가 다시 선택되지"));
}

TEST_F(SendingAll, CancelSendsOnlyTheSelectedStepAndALiveOutputOrAClosedPortNothingMore) {
    Change({1, 7, 9});
    Sending.Start();
    Time.Pass(15ms);
    Sending.Cancel();
    Time.Pass(1s);
    EXPECT_EQ(Sent(), "1 2 ");
    EXPECT_EQ(SentText(*Ended), "취소됨, 1/3단계 송신됨");
    EXPECT_FALSE(SendingTrouble(*Ended));
    Sending.Cancel();
    Sending.Start();
    Time.Pass(15ms);
    OutputOff = false;
    Time.Pass(1s);
    EXPECT_EQ(Sent(), "7 ");
    EXPECT_TRUE(SendingTrouble(*Ended)->Text.contains("출력이 꺼져 있지 않아"));
    OutputOff = true;
    Sending.Start();
    Sending.CallOff();
    Time.Pass(1s);
    EXPECT_EQ(Sent(), "");
    Port->SetPortOpen(false);
    Sending.Start();
    EXPECT_THROW(Time.Pass(1s), serial::PortError);
    EXPECT_FALSE(Sending.Running() || Ended->Reselected);
}

}  // namespace
}  // namespace zps::tests
