#include "tests/set_manual/probing.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace zps::tests {
namespace {

const Bytes EnqOfSeven{7, 5, 12};

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
    }
    // Passing by other addresses with the keys asks none of them, however long one stays there.
    auto& list = panel.GetSetting<QComboBox>("cmbADDR");
    for (const auto key : {Qt::Key_7, Qt::Key_Down, Qt::Key_Up}) {
        QTest::keyClick(list.view()->isVisible() ? static_cast<QWidget*>(list.view()) : &list, key);
        EXPECT_FALSE(WaitFor([&] { return !panel.Line().TakeReceived().empty(); }, 120ms));
        EXPECT_EQ(list.currentText(), "1");
    }
    QTest::keyClick(list.view(), Qt::Key_Return);
    ASSERT_TRUE(WaitFor([&] { return panel.Text("lblSPEC_VA") == "20V/5A"; }));
    EXPECT_EQ(panel.Line().TakeReceived().front(), EnqOfSeven);
}

TEST(Choice, OfAnotherPortForgetsWhichSupplyWasThere) {
    ScriptedPanel panel;
    panel.Line().Otherwise(GoodSupply);
    panel.Run.StartUp();
    ASSERT_TRUE(panel.WaitForDataResult(GoodData));
    for (const int port : {1, 3}) {
        panel.Line().ForgetWritten();
        panel.GetSetting<QLabel>("lblZPS_DLE").clear();
        panel.GetSetting<QRadioButton>("optPORT_1").setFocus();
        for (int arrow = 1; arrow < port; ++arrow) {  // which passes by a port without choosing it
            QTest::keyClick(panel.Run.Settings()->focusWidget(), Qt::Key_Down);
            EXPECT_EQ(panel.Source().CommPort, 1);
        }
        QTest::keyClick(panel.Run.Settings()->focusWidget(), Qt::Key_Space);
        EXPECT_EQ(panel.Source().CheckedAddr(), port == 1 ? 1 : SOURCE::NoAddress);
        ASSERT_TRUE(panel.WaitForDataResult(GoodData));
        EXPECT_EQ(panel.Line().Written().back().CommPort, port);
    }
    panel.Run.Settings()->close();
    ASSERT_TRUE(WaitFor([&] { return panel.Line().Written().back().Maker == 1; }));
    EXPECT_EQ(panel.Line().Written().back().CommPort, 3);  // the main window follows
}

TEST(Choice, OfAPortThatCantBeOpenedIsReportedOnceAndNothingIsSentToIt) {
    ScriptedPanel panel;
    panel.Line().Refuse(2, std::errc::no_such_device);
    panel.Run.StartUp();
    std::size_t boxes = 0;
    const auto oneBoxAndSilence = [&] {
        return StaysQuiet(panel.Line()) && panel.Boxes.Shown.size() == ++boxes;
    };
    Press(panel, "optPORT_2");
    EXPECT_TRUE(oneBoxAndSilence());
    EXPECT_TRUE(panel.Boxes.LastText().contains("COM2"));
    Pick(panel, "cmbADDR", 0);                          // starts nothing on a closed port,
    QTest::keyClick(panel.Run.Settings(), Qt::Key_F3);  // and a probe by hand says so
    EXPECT_TRUE(oneBoxAndSilence());
    // The main window can't have it either; it is there all the same, with the way back.
    panel.Run.Settings()->close();
    EXPECT_TRUE(oneBoxAndSilence());
    EXPECT_TRUE(panel.Main().isVisible() && panel.Main().isEnabled());
    panel.Choose("mnuSET_MANU");
    EXPECT_TRUE(oneBoxAndSilence());  // at load
    panel.Line().Otherwise(GoodSupply);
    Press(panel, "optPORT_1");
    ASSERT_TRUE(panel.WaitForDataResult(GoodData));
    // Lost to the main window alone, it counts as a probe that failed.
    panel.Line().Refuse(1, std::errc::device_or_resource_busy);
    panel.Run.Settings()->close();
    EXPECT_TRUE(oneBoxAndSilence());
    EXPECT_FALSE(panel.Get<QFrame>("frmPOWERDISPLAY").isVisible());
}

enum class Deed { ChooseSeven, PressEnq, Close, CloseAndOpen };

struct WaitCase {
    const char* Name;
    Bytes Frame;   // the exchange that is interrupted
    Bytes Answer;  // none: in the wait for the reply; a bad one: in the pause before the retry
    Deed Done;
    std::vector<Bytes> After;  // all that is written afterwards
};
const WaitCase WaitCases[]{
    {"AddressInReplyWait", Enq, {}, Deed::ChooseSeven, {4, EnqOfSeven}},
    {"ButtonInPause", Dle, RatingsReply(0, 0), Deed::PressEnq, {4, Enq}},
    {"CloseInPause", Enq, Nak, Deed::Close, {}},
    {"CloseInDataWait", Dle, {}, Deed::Close, {}},
    {"ReopenInReplyWait", Enq, {}, Deed::CloseAndOpen, {4, Enq}},
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
        if (one.Done == Deed::PressEnq) QTest::keyClick(panel.Run.Settings(), Qt::Key_F2);
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
    EXPECT_EQ(std::tuple(source.RetryCount, source.RxBusy, source.ReplyFlag),
              std::tuple(0, false, ExpectAck));
    EXPECT_EQ(panel.Line().OpenMaker(), !closes ? 2 : one.Done == Deed::Close ? 1 : 3);
    // Acknowledged but not rated: the panel is there, and nothing was uploaded.
    EXPECT_EQ(panel.Get<QFrame>("frmPOWERDISPLAY").isVisible(), !closes || one.Frame == Dle);
}

INSTANTIATE_TEST_SUITE_P(Of, InsideAWait, testing::Range<std::size_t>(0, std::size(WaitCases)),
                         [](const auto& one) { return WaitCases[one.param].Name; });

}  // namespace
}  // namespace zps::tests
