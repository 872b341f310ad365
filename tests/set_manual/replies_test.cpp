#include "tests/set_manual/probing.h"

#include <gtest/gtest.h>

namespace zps::tests {
namespace {

// What the frames of the chain get, one after another; silence after that.
using Answers = std::vector<Bytes>;

// The first `acks` frames are acknowledged.
Answers After(std::size_t acks, const Answers& answers) {
    Answers all(acks, Ack);
    all.insert(all.end(), answers.begin(), answers.end());
    return all;
}

const Bytes Ratings = RatingsReply(1500, 100);
const Bytes WrongHeader{1, 2, 8, 64, 0, 5, 220, 0, 0, 0, 100, 0, 0, 0};
const Bytes ReadBackUnderLoad{1, 2, 9, 68, 0, 0, 0x2F, 0x44, 0, 0x27, 0x10, 0, 0, 0};
const Bytes HighestRatings = RatingsReply(60123, 65534);

struct ReplyCase {
    const char* Name;
    Answers Given;
    std::string Asked;                 // how often, a digit for each frame of the chain
    std::chrono::milliseconds Waited;  // 50 ms for each retry, and 100 ms for each reply not whole
    Reply Result;                      // of the last frame
    std::chrono::milliseconds Delay{0};  // of each answer
};
const ReplyCase ReplyCases[]{
    {"Silence", {}, "4", 550ms, Reply::None},
    {"Late", {4, Ack}, "4", 550ms, Reply::None, 120ms},
    {"JustInTime", After(3, {Ratings}), "1111", 396ms, Reply::Data, 99ms},
    {"Refusal", {4, Nak}, "4", 150ms, Reply::Nak},
    {"WrongCheckByte", {4, {1, 6, 8}}, "4", 150ms, Reply::BadAck},
    {"TwiceAtOnce", {4, {1, 6, 7, 1, 6, 7}}, "4", 150ms, Reply::BadAck},
    {"Noise", {4, {0xFF}}, "4", 550ms, Reply::BadAck},
    {"AckAtLast", {{}, Nak, {9}, Ack}, "4", 350ms, Reply::Ack},
    {"InitialisationRefused", After(2, {4, Nak}), "114", 150ms, Reply::Nak},
    {"SilenceForData", After(3, {}), "1114", 550ms, Reply::None},
    {"WrongDataHeader", After(3, {4, WrongHeader}), "1114", 150ms, Reply::BadData},
    {"NoVolts", After(3, {4, RatingsReply(0, 100)}), "1114", 150ms, Reply::BadData},
    {"NoAmperes", After(3, {4, RatingsReply(1500, 0)}), "1114", 150ms, Reply::BadData},
    {"TooManyVolts", After(3, {4, RatingsReply(60124, 100)}), "1114", 150ms, Reply::BadData},
    {"TooManyAmperes", After(3, {4, RatingsReply(1500, 65535)}), "1114", 150ms, Reply::BadData},
    {"ReadBackUnderLoad", After(3, {4, ReadBackUnderLoad}), "1114", 150ms, Reply::BadData},
    {"HighestRatings", After(3, {HighestRatings}), "1111", 0ms, Reply::Data},
    {"DataAtLast", After(3, {{}, Ack, {1}, Ratings}), "1114", 450ms, Reply::Data},
    {"LostNowAndThen", {{}, Ack, Nak, Ack, Ack, Ratings}, "2211", 200ms, Reply::Data},
};

class ReplyOf : public testing::TestWithParam<std::size_t> {};

TEST_P(ReplyOf, TheChainIsAskedForAgainThenShownAndOpensThePanelOnlyIfGood) {
    const ReplyCase& one = ReplyCases[GetParam()];
    std::vector<Bytes> asked;
    for (std::size_t i = 0; i < one.Asked.size(); ++i)
        asked.insert(asked.end(), static_cast<std::size_t>(one.Asked[i] - '0'), ChainOf(1)[i]);
    ScriptedPanel panel;
    for (const auto& answer : one.Given) panel.Line().AnswerInPieces({{answer, one.Delay}});
    panel.Run.StartUp();
    const bool data = one.Asked.size() == 4;
    const ResultLook look = LookOf(one.Result);
    const ResultLook other = one.Result == Reply::None ? look
                             : data                    ? LookOf(Reply::Ack)
                                                       : NoResultLook;
    const auto shown = [&] { return Show(panel, data ? other : look, data ? look : other); };
    EXPECT_TRUE(WaitFor([&] { return panel.Line().WrittenData() == asked && shown(); }));
    // Bytes that answer nothing are neither judged nor answered.
    for (const Bytes& noise : {Bytes{0}, Ack, Ratings}) panel.Line().Arrive(noise);
    EXPECT_TRUE(StaysQuiet(panel.Line()) && shown());
    EXPECT_EQ(panel.Line().WrittenData(), asked);
    EXPECT_EQ(panel.Line().Waited(), one.Waited);
    EXPECT_EQ(panel.Source().RxResult(), one.Result);
    EXPECT_EQ(panel.Source().RatingsKnown(), one.Result == Reply::Data);
    const bool good = one.Result == Reply::Ack || one.Result == Reply::Data;
    const auto stages = static_cast<qsizetype>(one.Asked.size());
    EXPECT_EQ(Rail(panel), (QString(stages - 1, '+') + (good ? '+' : '-')).leftJustified(4, '.'));
    EXPECT_TRUE(Next(panel).contains(!good                       ? "다시 고르십시오"
                                     : one.Result == Reply::Data ? "주 창을 쓸 수"
                                                                 : "F3"));
    panel.Run.Settings()->close();
    for (const char* frame : {"frmPOWERDISPLAY", "fraDATA"})
        EXPECT_EQ(panel.Get<QFrame>(frame).isVisible(), good) << frame;
    EXPECT_NE(panel.Get<QWidget>("fraNOLINK").isVisible(), good);
    EXPECT_EQ(panel.Text("lblCAUSE").contains("응답이 없습니다"),
              good || one.Result == Reply::None);
    EXPECT_TRUE(panel.Boxes.Shown.empty());
}

INSTANTIATE_TEST_SUITE_P(Case, ReplyOf, testing::Range<std::size_t>(0, std::size(ReplyCases)),
                         [](const auto& one) { return ReplyCases[one.param].Name; });

}  // namespace
}  // namespace zps::tests
