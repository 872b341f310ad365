#include "tests/set_manual/probing.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace zps::tests {
namespace {

TEST(Choice, OfAnAddressIdentifiesTheSupplyThere) {
    SimulatedPanel panel({{.Address = 1}, {.Address = 7, .Volts = 20, .Amps = 5}});
    ASSERT_TRUE(panel.Identify());
    for (const int address : {7, 7, 1}) {  // the same one again counts as a choice
        panel.Line().TakeReceived();
        panel.GetSetting<QLabel>("lblZPS_DLE").clear();
        Pick(panel, "cmbADDR", address - 1);
        ASSERT_TRUE(panel.WaitForDataResult(GoodData));
        auto frames = panel.Line().TakeReceived();
        frames.erase(std::unique(frames.begin(), frames.end()), frames.end());
        EXPECT_EQ(frames, ChainOf(address));
        EXPECT_EQ(panel.Text("lblSPEC_VA"), address == 7 ? "20V/5A" : "150V/10A");
        EXPECT_EQ(panel.Source().PowerAddr, address);
    }
    // Passing by other addresses with the keys asks none of them.
    for (int key = 0; key < 6; ++key)
        QTest::keyClick(&panel.GetSetting<QComboBox>("cmbADDR"), Qt::Key_Down);
    ASSERT_TRUE(WaitFor([&] { return panel.Text("lblSPEC_VA") == "20V/5A"; }));
    EXPECT_EQ(panel.Line().TakeReceived().front(), Enq(7));
}

TEST(Choice, OfAnotherPortForgetsWhichSupplyWasThereAndStartsSoon) {
    ScriptedPanel panel;
    panel.Line().Otherwise(GoodSupply);
    panel.Run.StartUp();
    ASSERT_TRUE(panel.WaitForDataResult(GoodData));
    for (const int port : {1, 3}) {
        panel.Line().ForgetWritten();
        panel.GetSetting<QLabel>("lblZPS_DLE").clear();
        Press(panel, port == 1 ? "optPORT_1" : "optPORT_3");
        EXPECT_EQ(panel.Source().CheckedAddr, port == 1 ? 1 : LinkState::NoAddress);
        // A timer is late on a busy machine, but never after one that is due later.
        std::vector<std::size_t> written;
        for (const auto after : {30ms, 90ms}) {
            QTimer::singleShot(after, Qt::PreciseTimer, &panel.Main(),
                               [&] { written.push_back(panel.Line().Written().size()); });
        }
        ASSERT_TRUE(panel.WaitForDataResult(GoodData));
        EXPECT_EQ(written, (std::vector<std::size_t>{0, 1}));
        EXPECT_EQ(panel.Line().Written().back().CommPort, port);
    }
    panel.Run.Settings()->close();
    ASSERT_TRUE(WaitFor([&] { return panel.Line().Written().back().Maker == 1; }));
    EXPECT_EQ(panel.Line().Written().back().CommPort, 3);  // the main window follows
}

enum class Deed { ChooseSeven, PressEnq, Close, CloseAndOpen };

struct WaitCase {
    const char* Name;
    Bytes Frame;   // the exchange that is interrupted
    Bytes Answer;  // silence: in the wait for the reply; a bad one: in the pause before the retry
    Deed Done;
    std::vector<Bytes> After;  // all that is written afterwards
};
const WaitCase WaitCases[]{
    {"AddressInReplyWait", Enq(1), {}, Deed::ChooseSeven, {4, Enq(7)}},
    {"AddressInPause", Enq(1), Nak, Deed::ChooseSeven, {4, Enq(7)}},
    {"ButtonInReplyWait", Enq(1), {}, Deed::PressEnq, {4, Enq(1)}},
    {"ButtonInPauseForData", Dle(1), RatingsReply(0, 0), Deed::PressEnq, {4, Enq(1)}},
    {"CloseInReplyWait", Enq(1), {}, Deed::Close, {}},
    {"CloseInPause", Enq(1), Nak, Deed::Close, {}},
    {"CloseInDataWait", Dle(1), {}, Deed::Close, {}},
    {"ReopenInReplyWait", Enq(1), {}, Deed::CloseAndOpen, {4, Enq(1)}},
};

class InsideAWait : public testing::TestWithParam<std::size_t> {};

TEST_P(InsideAWait, WhatIsDoneEndsTheExchangeAtOnce) {
    const WaitCase& one = WaitCases[GetParam()];
    const bool closes = one.Done >= Deed::Close;
    ScriptedPanel panel;
    std::vector<Bytes> expected;
    const auto act = [&] {
        EXPECT_TRUE(panel.Run.Settings()->Busy());
        if (one.Done == Deed::ChooseSeven) Pick(panel, "cmbADDR", 6);
        if (one.Done == Deed::PressEnq) Press(panel, "cmdZPS_ENQ");
        if (closes) panel.Run.Settings()->close();
        if (one.Done == Deed::CloseAndOpen) panel.Choose("mnuSET_MANU");
    };
    panel.Line().Otherwise([&](const Bytes& block) {
        if (!expected.empty()) return Bytes{};
        if (block != one.Frame) return Ack;
        expected = panel.Line().WrittenData();
        expected.push_back(block);
        expected.insert(expected.end(), one.After.begin(), one.After.end());
        QMetaObject::invokeMethod(&panel.Main(), act, Qt::QueuedConnection);
        return one.Answer;
    });
    panel.Run.StartUp();
    ASSERT_TRUE(WaitFor(
        [&] { return !expected.empty() && panel.Line().Written().size() >= expected.size(); }));
    EXPECT_TRUE(StaysQuiet(panel.Line()));
    EXPECT_EQ(panel.Line().WrittenData(), expected);
    const SOURCE& source = panel.Source();
    EXPECT_EQ(source.RetryCount, 0);
    EXPECT_FALSE(source.RxBusy);
    EXPECT_EQ(source.ReplyFlag, ExpectAck);
    EXPECT_EQ(source.MenuDialogFlag, one.Done != Deed::Close);
    EXPECT_EQ(panel.Main().isEnabled(), one.Done == Deed::Close);
    EXPECT_EQ(panel.Line().OpenMaker(), !closes ? 2 : one.Done == Deed::Close ? 1 : 3);
    // Acknowledged but not rated: the panel is there, and nothing was uploaded.
    EXPECT_EQ(panel.Get<QFrame>("frmPOWERDISPLAY").isVisible(), !closes || one.Frame == Dle(1));
}

INSTANTIATE_TEST_SUITE_P(Of, InsideAWait, testing::Range<std::size_t>(0, std::size(WaitCases)),
                         [](const auto& one) { return WaitCases[one.param].Name; });

}  // namespace
}  // namespace zps::tests
