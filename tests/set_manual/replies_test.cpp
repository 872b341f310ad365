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

const Bytes Good = RatingsReply(1500, 100);
Bytes Changed(std::size_t at, std::uint8_t value) {
    Bytes reply = Good;
    reply[at] = value;
    return reply;
}
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
    {"AnotherAddress", 0, Always({2, 6, 8}), Reply::BadAck},
    {"Noise", 0, Always({0xFF}), Reply::BadAck},
    {"AckAtLast", 0, {{}, Nak, {9}, Ack}, Reply::Ack},
    {"RemoteRefused", 1, Always(Nak), Reply::Nak},
    {"InitialisationRefused", 2, Always(Nak), Reply::Nak},
    {"SilenceForData", 3, Always({}), Reply::None},
    {"WrongDataHeader", 3, Always(Changed(2, 8)), Reply::BadData},
    {"DataOfAnother", 3, Always(Changed(0, 2)), Reply::BadData},
    {"AckForData", 3, Always(Ack), Reply::BadData},
    {"NoVolts", 3, Always(RatingsReply(0, 100)), Reply::BadData},
    {"NoAmperes", 3, Always(RatingsReply(1500, 0)), Reply::BadData},
    {"DataAtLast", 3, {{}, Changed(1, 3), {1, 2}, Good}, Reply::Data},
};

class PoorReply : public testing::TestWithParam<std::size_t> {};

TEST_P(PoorReply, IsAskedForFourTimesThenShownAndEndsTheChain) {
    const ReplyCase& one = ReplyCases[GetParam()];
    const bool data = one.Acks == 3;
    ScriptedPanel panel;
    std::vector<std::chrono::milliseconds> sent;
    panel.Line().Otherwise([&](const Bytes& /*block*/) {
        sent.push_back(panel.Line().Waited());
        const std::size_t attempt = sent.size() - 1;
        return attempt < one.Acks ? Ack : one.Answers.at(attempt - one.Acks);
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
        const bool whole = one.Answers[i].size() == (data ? 14 : 3);  // no need to wait for more
        EXPECT_EQ(sent[one.Acks + i + 1] - sent[one.Acks + i], whole ? 50ms : 150ms);
    }
    const auto seen = [](QLabel& label) { return label.grab().toImage().pixelColor(4, 4); };
    EXPECT_EQ(seen(own), ToQColor(paint));
    const bool both = one.Result == Reply::None;
    EXPECT_EQ(other.text(), both ? caption : data ? GoodAck : "통신 결과 DISPLAY");
    EXPECT_EQ(seen(other), ToQColor(both ? paint : data ? Colour::BrightGreen : Colour::Grey));
    const SOURCE& source = panel.Source();
    EXPECT_EQ(source.RxResult, one.Result);
    EXPECT_EQ(source.RetryCount, 0);
    EXPECT_EQ(source.CheckedAddr, one.Result == Reply::Data ? 1 : LinkState::NoAddress);
    EXPECT_EQ(source.MaxVolt, one.Result == Reply::Data ? 150 : 0);
}

INSTANTIATE_TEST_SUITE_P(Of, PoorReply, testing::Range<std::size_t>(0, std::size(ReplyCases)),
                         [](const auto& one) { return ReplyCases[one.param].Name; });

TEST(LostReplies, AreAskedForAgainAndTheChainGoesOn) {
    ScriptedPanel panel;
    for (const Bytes& answer : {Bytes{}, Nak, Ack, Nak}) panel.Line().Answer(answer);
    panel.Line().Otherwise(GoodSupply);
    panel.Run.StartUp();
    ASSERT_TRUE(panel.WaitForDataResult(GoodData));
    std::vector<Bytes> expected = ChainOf(1);
    expected.insert(expected.begin() + 1, expected[1]);
    expected.insert(expected.begin(), 2, Enq(1));
    EXPECT_EQ(panel.Line().WrittenData(), expected);
}

}  // namespace
}  // namespace zps::tests
