#include "tests/set_manual/probing.h"

#include <gtest/gtest.h>

#include <functional>

namespace zps::tests {
namespace {

TEST(Choice, OfAnAddressIdentifiesTheSupplyThereAndMadeInErrorCostsNothing) {
    ScriptedPanel panel;
    ASSERT_TRUE(Identify(panel));
    panel.Run.Settings()->close();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&panel.Main()));
    panel.Click("txPSTEP_3");
    panel.Type("txPVOLT_3", "12.5");
    panel.Leave();
    panel.Choose("mnuSET_MANU");
    const auto steps = [&panel] { return panel.Get<QFrame>("fraSTEPLIST").grab().toImage(); };
    const auto before = steps();
    panel.Line().Otherwise(
        [](const Bytes& block) { return block[0] == 7 ? Bytes{} : GoodSupply(block); });
    Pick(panel, "cmbADDR", 6);
    const auto silence = LookOf(Reply::None);
    EXPECT_TRUE(WaitFor([&] { return Show(panel, silence, silence); }));
    EXPECT_FALSE(panel.Source().RatingsKnown());
    EXPECT_EQ(panel.Text("lblSPEC_VA") + panel.Get<QLineEdit>("txtVOLT").text(), "--------");
    panel.Line().Otherwise(GoodSupply);
    for (const int address : {1, 7, 7}) {  // the same one again counts as a choice
        panel.Line().ForgetWritten();
        Pick(panel, "cmbADDR", address - 1);
        ASSERT_TRUE(panel.WaitForDataResult(GoodData));
        EXPECT_EQ(panel.Line().WrittenData(), ChainOf(address));
        EXPECT_TRUE(panel.Source().RatingsKnown());
        EXPECT_EQ(steps() == before, address == 1);
        EXPECT_EQ(panel.Get<QLineEdit>("txPVOLT_3").text(), address == 1 ? "12.50" : "0.000");
        EXPECT_EQ(panel.Get<QLineEdit>("txtVOLT").text(), address == 1 ? "12.50" : "0.000");
        EXPECT_EQ(panel.Text("lblSPEC_VA"), address == 1 ? "150V/10A" : "20V/5A");
    }
    // Passing by other addresses with the keys asks none of them, however long one stays there.
    panel.Line().ForgetWritten();
    auto& list = panel.GetSetting<QComboBox>("cmbADDR");
    for (const auto key : {Qt::Key_8, Qt::Key_Down, Qt::Key_Up}) {
        QTest::keyClick(list.view()->isVisible() ? static_cast<QWidget*>(list.view()) : &list, key);
        EXPECT_FALSE(WaitFor([&] { return !panel.Line().Written().empty(); }, 120ms));
        EXPECT_EQ(list.currentText(), "7");
    }
    QTest::keyClick(list.view(), Qt::Key_Return);
    EXPECT_TRUE(WaitFor([&] { return !panel.Line().Written().empty(); }));
    EXPECT_EQ(panel.Line().WrittenData().front(), Control(8, 5));
}

TEST(Choice, PutsTheResultsBackAndKeepsTheOutcomeOfTheSameSupplyOnly) {
    ScriptedPanel panel;
    panel.Line().Refuse(4, std::errc::no_such_device);
    ASSERT_TRUE(Identify(panel));
    const auto address = [&](int number) { Pick(panel, "cmbADDR", number - 1); };
    const auto port = [&](int number) {
        const int before = panel.Source().CommPort;
        panel.GetSetting<QRadioButton>("optPORT_1").setFocus();
        for (int arrow = 1; arrow < number;
             ++arrow) {  // which passes by a port without choosing it
            QTest::keyClick(panel.Run.Settings()->focusWidget(), Qt::Key_Down);
            EXPECT_EQ(panel.Source().CommPort, before);
        }
        QTest::keyClick(panel.Run.Settings()->focusWidget(), Qt::Key_Space);
    };
    const struct {
        std::function<void(int)> Choose;
        int Number;
        bool Same;
    } choices[]{{address, 1, true}, {port, 1, true},     {port, 3, false},
                {port, 3, true},    {address, 7, false}, {port, 4, false}};
    for (const auto& [choose, number, same] : choices) {
        const testing::ScopedTrace at(__FILE__, __LINE__, number);
        if (panel.Run.Settings() == nullptr) panel.Choose("mnuSET_MANU");
        Press(panel, "cmdZPS_DLE");
        ASSERT_TRUE(panel.WaitForDataResult(GoodData));
        choose(number);
        EXPECT_TRUE(Show(panel, NoResultLook, NoResultLook));
        EXPECT_EQ(panel.Source().RatingsKnown(), same);
        panel.Run.Settings()->close();
        EXPECT_EQ(panel.Get<QFrame>("frmPOWERDISPLAY").isVisible(), same);
        // The main window follows to the port, and the panel goes on.
        const auto& last = [&]() -> auto& {
            return panel.Line().Written().back();
        };
        EXPECT_TRUE(!same || WaitFor([&] { return last().Maker == 1; }));
        EXPECT_TRUE(!same || last().CommPort == panel.Source().CommPort);
    }
}

TEST(Choice, OfAPortThatCantBeOpenedIsReportedOnceAndNothingIsSentToIt) {
    ScriptedPanel panel;
    panel.Line().Refuse(2, std::errc::no_such_device);
    panel.Run.StartUp();
    std::size_t boxes = 0;
    const auto oneBox = [&] {
        ++boxes;
        return WaitFor([&] { return panel.Boxes.Shown.size() == boxes; });
    };
    ASSERT_TRUE(QTest::qWaitForWindowActive(panel.Run.Settings()));
    Press(panel, "optPORT_2");
    EXPECT_TRUE(oneBox());
    EXPECT_TRUE(panel.Boxes.LastText().contains("COM2"));
    Pick(panel, "cmbADDR", 0);                          // starts nothing on a closed port,
    QTest::keyClick(panel.Run.Settings(), Qt::Key_F3);  // and a probe by hand says so
    EXPECT_TRUE(StaysQuiet(panel.Line()) && oneBox());
    // The main window can't have it either; it is there all the same, with the way back, which may
    // be taken once its box is closed.
    panel.Boxes.WhileUp = [&](const Message&) {
        EXPECT_TRUE(panel.Main().isVisible() && panel.Main().isEnabled());
        panel.Choose("mnuSET_MANU");
        EXPECT_EQ(panel.Run.Settings(), nullptr);
    };
    panel.Run.Settings()->close();
    EXPECT_TRUE(oneBox());
    panel.Boxes.WhileUp = nullptr;
    panel.Choose("mnuSET_MANU");
    ASSERT_NE(panel.Run.Settings(), nullptr);
    EXPECT_TRUE(oneBox());  // at load
    EXPECT_TRUE(StaysQuiet(panel.Line()) && panel.Line().Written().empty());
    EXPECT_EQ(panel.Boxes.Shown.size(), boxes);
    panel.Line().Otherwise(GoodSupply);
    Press(panel, "optPORT_1");
    ASSERT_TRUE(panel.WaitForDataResult(GoodData));
    // Lost to the main window alone, it counts as a probe that failed.
    panel.Line().Refuse(1, std::errc::device_or_resource_busy);
    panel.Run.Settings()->close();
    EXPECT_TRUE(oneBox());
    EXPECT_FALSE(panel.Get<QFrame>("frmPOWERDISPLAY").isVisible());
}

enum class Deed { ChooseSeven, PressEnq, Close, CloseAndOpen };

struct WaitCase {
    const char* Name;
    Bytes Frame;   // the exchange that is interrupted
    Bytes Answer;  // none: in the wait for the reply; a bad one: in the pause before the retry
    Deed Done;
    std::vector<Bytes> After;  // all that is written afterwards, in silence
};
const WaitCase WaitCases[]{
    {"AddressInReplyWait", Enq, {}, Deed::ChooseSeven, {4, Control(7, 5)}},
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
        if (one.Done == Deed::ChooseSeven) {
            Pick(panel, "cmbADDR", 6);
            // What the supply before has to say comes too late to be an answer.
            QTimer::singleShot(10ms, [&] { panel.Line().Arrive(Ack); });
        }
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
