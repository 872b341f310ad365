#include "controls/colours.h"
#include "tests/set_manual/probing.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

namespace zps::tests {
namespace {

const std::map<Reply, std::pair<const char*, Colour>> Shown{
    {Reply::None, {"통신에라 = 응답무!!!", Colour::Red}},
    {Reply::Nak, {"통신에라 = NAK수신!!!", Colour::Blue}},
    {Reply::Ack, {"통신ok = ACK수신!!!", Colour::BrightGreen}},
    {Reply::BadAck, {"통신에라 = ACK/NAK수신에라!!!", Colour::Yellow}},
    {Reply::Data, {"통신ok = DATA수신!!!", Colour::White}},
    {Reply::BadData, {"통신에라 = DATA수신에라!!!", Colour::Yellow}},
};

std::vector<Bytes> Always(const Bytes& answer) {
    return {4, answer};
}

// How many frames are acknowledged, what the next one gets each time, and what comes of it.
struct ReplyCase {
    const char* Name;
    std::size_t Acks;
    std::vector<Bytes> Answers;
    Reply Result;
};
const ReplyCase ReplyCases[]{
    {"Silence", 0, Always({}), Reply::None},
    {"Refusal", 0, Always(Nak), Reply::Nak},
    {"WrongCheckByte", 0, Always({1, 6, 8}), Reply::BadAck},
    {"Noise", 0, Always({0xFF}), Reply::BadAck},
    {"AckAtLast", 0, {{}, Nak, {9}, Ack}, Reply::Ack},
    {"InitialisationRefused", 2, Always(Nak), Reply::Nak},
    {"SilenceForData", 3, Always({}), Reply::None},
    {"WrongDataHeader", 3, Always({1, 2, 8, 64, 0, 5, 220, 0, 0, 0, 100, 0, 0, 0}), Reply::BadData},
    {"NoVolts", 3, Always(RatingsReply(0, 100)), Reply::BadData},
    {"NoAmperes", 3, Always(RatingsReply(1500, 0)), Reply::BadData},
    {"DataAtLast", 3, {{}, Ack, {1, 2}, RatingsReply(1500, 100)}, Reply::Data},
};

class PoorReply : public testing::TestWithParam<std::size_t> {};

TEST_P(PoorReply, IsAskedForFourTimesThenShownAndOpensThePanelOnlyIfGood) {
    const ReplyCase& one = ReplyCases[GetParam()];
    const bool data = one.Acks == 3;
    ScriptedPanel panel;
    std::vector<std::chrono::milliseconds> sent;
    panel.Line().Otherwise([&](const Bytes& /*block*/) {
        sent.push_back(panel.Line().Waited());
        const std::size_t attempt = sent.size() - 1;
        const bool poor = attempt >= one.Acks && attempt < one.Acks + 4;
        return poor ? one.Answers[attempt - one.Acks] : Ack;
    });
    panel.Run.StartUp();
    auto& own = panel.GetSetting<QLabel>(data ? "lblZPS_DLE" : "lblZPS_ENQ");
    auto& other = panel.GetSetting<QLabel>(data ? "lblZPS_ENQ" : "lblZPS_DLE");
    const auto& [caption, paint] = Shown.at(one.Result);
    ASSERT_TRUE(WaitFor([&] { return own.text() == caption && sent.size() > one.Acks; }));
    EXPECT_TRUE(StaysQuiet(panel.Line()));
    const auto asked = panel.Line().WrittenData();
    ASSERT_EQ(asked.size(), one.Acks + 4);
    EXPECT_EQ(std::count(asked.begin(), asked.end(), ChainOf(1)[one.Acks]), 4);
    for (std::size_t i = 0; i < 3; ++i) {
        // A whole reply needs no wait for more.
        const bool whole = one.Answers[i].size() == (data ? 14 : 3);
        EXPECT_EQ(sent[one.Acks + i + 1] - sent[one.Acks + i], whole ? 50ms : 150ms);
    }
    const auto seen = [](QLabel& label) { return label.grab().toImage().pixelColor(4, 4); };
    EXPECT_EQ(seen(own), ToQColor(paint));
    const bool both = one.Result == Reply::None;
    EXPECT_EQ(other.text(), both ? caption : data ? GoodAck : "통신 결과 DISPLAY");
    EXPECT_EQ(seen(other), ToQColor(both ? paint : data ? Colour::BrightGreen : Colour::Grey));
    const SOURCE& source = panel.Source();
    EXPECT_EQ(source.RxResult, one.Result);
    EXPECT_EQ(source.CheckedAddr(), one.Result == Reply::Data ? 1 : SOURCE::NoAddress);
    // The top step goes out by itself, but never to a supply of unknown ratings.
    panel.Run.Settings()->close();
    EXPECT_TRUE(panel.Main().isEnabled());
    const bool good = one.Result == Reply::Ack || one.Result == Reply::Data;
    for (const char* frame : {"frmPOWERDISPLAY", "fraDATA"})
        EXPECT_EQ(panel.Get<QFrame>(frame).isVisible(), good) << frame;
    EXPECT_EQ(StaysQuiet(panel.Line()), one.Result != Reply::Data);
    panel.Choose("mnuSET_MANU");
    EXPECT_NE(panel.Run.Settings(), nullptr);
}

INSTANTIATE_TEST_SUITE_P(Of, PoorReply, testing::Range<std::size_t>(0, std::size(ReplyCases)),
                         [](const auto& one) { return ReplyCases[one.param].Name; });

TEST(LostReplies, AreAskedForAgainAndTheChainGoesOn) {
    ScriptedPanel panel;
    for (const Bytes& answer : {Bytes{}, Nak, Ack, Nak}) panel.Line().Answer(answer);
    panel.Line().Otherwise(GoodSupply);
    panel.Run.StartUp();
    ASSERT_TRUE(panel.WaitForDataResult(GoodData));
    const auto chain = ChainOf(1);
    EXPECT_EQ(panel.Line().WrittenData(),
              (std::vector{Enq, Enq, Enq, chain[1], chain[1], chain[2], Dle}));
    // Bytes that answer nothing are neither judged nor answered.
    for (const Bytes& noise : {Bytes{0}, Ack, RatingsReply(200, 50)}) panel.Line().Arrive(noise);
    EXPECT_TRUE(StaysQuiet(panel.Line()));
    EXPECT_EQ(panel.Source().RxResult, Reply::Data);
    EXPECT_EQ(panel.GetSetting<QLabel>("lblZPS_ENQ").text(), GoodAck);
}

TEST(RepliesInPieces, LateOrDoubledEndTheChainAllTheSame) {
    for (const simulator::Faults& faults :
         {simulator::Faults{.Split = 1, .Duplicate = 1}, {.Delay = 120ms}}) {
        SimulatedPanel panel;
        panel.Line().SetFaults(faults);
        panel.Run.StartUp();
        WaitFor([&] { return panel.Source().RxResult == Reply::Data; });
        panel.Line().TakeReceived();
        EXPECT_FALSE(WaitFor([&] { return !panel.Line().TakeReceived().empty(); }, 900ms));
    }
}

}  // namespace
}  // namespace zps::tests
