#include "tests/set_manual/probing.h"

#include <gtest/gtest.h>

namespace zps::tests {
namespace {

// What the frames of the chain get, one after another; silence after that.
using Answers = std::vector<std::vector<Piece>>;

// Answers to the frames after the first `acks`, which are acknowledged.
Answers After(std::size_t acks, const Answers& answers) {
    Answers all(acks, {{Ack}});
    all.insert(all.end(), answers.begin(), answers.end());
    return all;
}
Answers Always(const Bytes& answer, std::size_t acks = 0) {
    return After(acks, Answers(4, {{answer}}));
}
// A reply byte by byte, the last one just in time.
std::vector<Piece> Pieces(const Bytes& reply) {
    std::vector<Piece> pieces;
    for (const auto byte : reply) pieces.push_back({{byte}, 5ms});
    pieces.back().After = 99ms;
    return pieces;
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
};
const ReplyCase ReplyCases[]{
    {"Silence", {}, "4", 550ms, Reply::None},
    {"Late", Answers(4, {{Ack, 120ms}}), "4", 550ms, Reply::None},
    {"Refusal", Always(Nak), "4", 150ms, Reply::Nak},
    {"WrongCheckByte", Always({1, 6, 8}), "4", 150ms, Reply::BadAck},
    {"TwiceAtOnce", Always({1, 6, 7, 1, 6, 7}), "4", 150ms, Reply::BadAck},
    {"Noise", Always({0xFF}), "4", 550ms, Reply::BadAck},
    {"AckAtLast", {{}, {{Nak}}, {{{9}}}, {{Ack}}}, "4", 350ms, Reply::Ack},
    {"InitialisationRefused", Always(Nak, 2), "114", 150ms, Reply::Nak},
    {"SilenceForData", After(3, {}), "1114", 550ms, Reply::None},
    {"WrongDataHeader", Always(WrongHeader, 3), "1114", 150ms, Reply::BadData},
    {"NoVolts", Always(RatingsReply(0, 100), 3), "1114", 150ms, Reply::BadData},
    {"NoAmperes", Always(RatingsReply(1500, 0), 3), "1114", 150ms, Reply::BadData},
    {"TooManyVolts", Always(RatingsReply(60124, 100), 3), "1114", 150ms, Reply::BadData},
    {"TooManyAmperes", Always(RatingsReply(1500, 65535), 3), "1114", 150ms, Reply::BadData},
    {"ReadBackUnderLoad", Always(ReadBackUnderLoad, 3), "1114", 150ms, Reply::BadData},
    {"HighestRatings", After(3, {{{HighestRatings}}}), "1111", 0ms, Reply::Data},
    {"DataAtLast", After(3, {{}, {{Ack}}, {{{1}}}, {{Ratings}}}), "1114", 450ms, Reply::Data},
    {"LostNowAndThen",
     {{}, {{Ack}}, {{Nak}}, {{Ack}}, {{Ack}}, {{Ratings}}},
     "2211",
     200ms,
     Reply::Data},
    {"InPieces",
     {Pieces(Ack), Pieces(Ack), Pieces(Ack), Pieces(Ratings)},
     "1111",
     396ms,
     Reply::Data},
};

class ReplyOf : public testing::TestWithParam<std::size_t> {};

TEST_P(ReplyOf, TheChainIsAskedForAgainThenShownAndOpensThePanelOnlyIfGood) {
    const ReplyCase& one = ReplyCases[GetParam()];
    std::vector<Bytes> asked;
    for (std::size_t i = 0; i < one.Asked.size(); ++i)
        asked.insert(asked.end(), static_cast<std::size_t>(one.Asked[i] - '0'), ChainOf(1)[i]);
    ScriptedPanel panel;
    for (const auto& pieces : one.Given) panel.Line().AnswerInPieces(pieces);
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
    EXPECT_TRUE(StaysQuiet(panel.Line()));
    EXPECT_EQ(panel.Line().WrittenData(), asked);
    EXPECT_EQ(panel.Line().Waited(), one.Waited);
    EXPECT_TRUE(shown());
    EXPECT_EQ(panel.Source().RxResult, one.Result);
    EXPECT_EQ(panel.Source().RatingsKnown(), one.Result == Reply::Data);
    panel.Run.Settings()->close();
    const bool good = one.Result == Reply::Ack || one.Result == Reply::Data;
    for (const char* frame : {"frmPOWERDISPLAY", "fraDATA"})
        EXPECT_EQ(panel.Get<QFrame>(frame).isVisible(), good) << frame;
    // The top step goes out by itself, but never to a supply of unknown ratings.
    if (good) {
        EXPECT_EQ(StaysQuiet(panel.Line()), one.Result != Reply::Data);
    }
    EXPECT_TRUE(panel.Boxes.Shown.empty());
}

INSTANTIATE_TEST_SUITE_P(Case, ReplyOf, testing::Range<std::size_t>(0, std::size(ReplyCases)),
                         [](const auto& one) { return ReplyCases[one.param].Name; });

}  // namespace
}  // namespace zps::tests
