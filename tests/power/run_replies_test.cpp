// What the window makes of each reply.
#include "controls/number_panels.h"
#include "power/log/log_grid.h"
#include "power/log/measurement_log.h"
#include "power/log/statistics_view.h"
#include "tests/power/run_panel.h"

#include <QClipboard>
#include <QHelpEvent>
#include <QScrollArea>
#include <QScrollBar>

namespace zps::tests {
namespace {

class RunReplies : public ScriptedRun {
  protected:
    std::string Counters() { return Texts(*this, {"lblZPS_ERR", "lblZPS_ERR1", "lblZPS_ENQ"}); }
    std::string Panels() {
        QStringList shown;
        for (int panel = 1; panel <= 14; ++panel)
            shown += Get<NumberPanels>("StatusBar_RXDATA").Text(panel);
        return shown.join(' ').trimmed().toStdString();
    }
};

TEST_F(RunReplies, ABadDataReplyCountsByItsKindAndLeavesTheReadings) {
    EXPECT_EQ(Counters(), "ZPS ZPS ZPS");
    ASSERT_TRUE(SwitchOn());
    EXPECT_EQ(Panels(), "1 2 9 4 0 0 47 68 0 39 16 3 0 0");
    const auto expectReadings = [&] {
        EXPECT_EQ(Texts(*this, {"txtVOLT", "txtCURR", "txtSTEP"}), "12.100 0.1000 03");
    };
    using Case = std::tuple<Bytes, const char*, const char*>;
    for (const auto& [reply, counters, panels] :
         {Case{{1, 2, 9, 1, 5, 0, 1, 1, 0, 1, 1, 7, 0}, "0 1 0", "1 2 9 1 5 0 1 1 0 1 1 7 0"},
          Case{Bytes(15, 9), "0 2 0", "9 9 9 9 9 9 9 9 9 9 9 9 9 9"},
          Case{{1, 2, 8, 1, 5, 0, 1, 1, 0, 1, 1, 7, 0, 8},
               "0 2 1",
               "1 2 8 1 5 0 1 1 0 1 1 7 0 8"}}) {
        Line().Answer(reply);
        ASSERT_TRUE(WaitFor([&] { return Source().RxFrame() == reply; }));
        EXPECT_EQ(Counters() + ": " + Panels(), std::string(counters) + ": " + panels);
        expectReadings();
    }
    // A reply that is two polls late is swept away by a third, which has no answer here.
    Line().AnswerInPieces({{Reading(4), 150ms}});
    for (int poll = 0; poll < 2; ++poll) Line().Answer({});
    ASSERT_TRUE(WaitFor([&] { return Counters() == "1 2 1"; }));
    expectReadings();
    ASSERT_TRUE(Handled(Reading(4)));
    EXPECT_TRUE(Boxes.Shown.empty());
    for (int click = 0; click < 2; ++click) Click("cmdOUTPUT");
    EXPECT_EQ(Counters(), "0 0 0");
}

TEST_F(RunReplies, EachStatusBitHasItsCaptionAndLampSetAndClear) {
    using Case =
        std::tuple<int, const char*, const char*, const char*, const char*, Colour, Colour>;
    ASSERT_TRUE(SwitchOn());
    for (const auto& [bits, text, clear, set, lamp, dark, lit] :
         {Case{2, "cmdPVsense", "Vsense ON", "Vsense OFF", "VsenseLED", PaleGreen, BrightGreen},
          Case{8, "cmdAUTO", "AUTO", "AUTO ", "AutoLED", PaleOrange, DarkRed},
          Case{16, "lblMODE", "CV", "CC", "OutputLED", DarkRed, DarkRed},
          Case{32, "cmdOCP", " O.C.P ", " O.C.P ", "OCPLED", PaleGreen, BrightGreen},
          Case{64, "lblPREMOTE", "LOC", "REMOTE", "RemoteLED", DarkRed, PaleOrange},
          Case{128, "lblPREMOTE", "LOC", "RS232", "RemoteLED", DarkRed, PaleOrange},
          Case{192, "cmdPREMOTE", "LOCAL", "REMOTE", "RemoteLED", DarkRed, PaleOrange}}) {
        for (const bool on : {true, false}) {
            ASSERT_TRUE(Handled(Reading(on ? 4 + bits : 4)));
            EXPECT_EQ(Texts(*this, {text}), on ? set : clear);
            EXPECT_EQ(Lit(lamp), on ? lit : dark) << text;
        }
    }
}

TEST_F(RunReplies, WhateverHasHappenedASmallWindowShowsAllAndANarrowOneTheWholeWidth) {
    const auto& view = *Main().findChild<QScrollArea*>();
    const auto shows = [&view](QSize window) {
        view.window()->resize(window);
        return WaitFor([&] {
            const bool high = window.width() < 900 || view.verticalScrollBar()->maximum() == 0;
            return high && view.horizontalScrollBar()->maximum() == 0;
        });
    };
    const auto least = [&view] { return view.widget()->minimumSizeHint(); };
    EXPECT_TRUE(shows({900, 470}));
    const QSize before = least();
    Main().resize(3000, 1800);
    ASSERT_TRUE(SwitchOn() && Handled(Reading(5, 5)));
    EXPECT_TRUE(shows({500, 700}));
    EXPECT_TRUE(shows({900, 470}));
    EXPECT_EQ(least(), before);
}

TEST_F(RunReplies, AFaultOrTheEndOfTheOutputIsToldOnceAndUnlocksThePanel) {
    using Case = std::tuple<int, std::uint8_t, QString>;
    for (const auto& [status, code, message] :
         {Case{1, 1, "POWER ERROR OUT OFF ERROR VOLTAGE!!!"}, Case{1, 2, ""},
          Case{1, 3, "POWER ERROR MAX. OVER VOLTAGE!!!"},
          Case{1, 4, "POWER ERROR MAX. OVER CURRENT!!!"},
          Case{5, 5, "POWER ERROR SET OVER VOLTAGE!!!"},
          Case{1, 6, "POWER ERROR SET OVER CURRENT!!!"},
          Case{1, 7, "POWER ERROR OUT OFF ERROR CURRENT!!!"},
          Case{0, 16, "POWER END Auto Test Ending!!!"},
          Case{0, 32, "POWER OFF output off상태!!"}}) {
        SCOPED_TRACE(message.toStdString());
        ASSERT_TRUE(SwitchOn());
        EXPECT_EQ(Text("lblNOTICE"), "");  // of the run before
        Boxes.Shown.clear();
        ASSERT_TRUE(Handled(Reading(status, code)));
        EXPECT_EQ(Boxes.Shown.size(), message.isEmpty() ? 0U : 1U);
        EXPECT_EQ((Boxes.LastTitle() + ' ' + Boxes.LastText()).trimmed(), message);
        EXPECT_TRUE(
            Text("lblNOTICE").contains(status != 0 ? QString("코드 %1").arg(code) : "출력"));
        EXPECT_EQ(Texts(*this, {"Output_ONOFF"}), "OFF");
        EXPECT_EQ(Lit("OutputLED"), PaleOrange);
        EXPECT_TRUE(Get<QWidget>("cmdAUTO").isEnabled() && Get<QWidget>("txPTIME_0").isEnabled());
        EXPECT_EQ(LastFrame() == (Bytes{1, 2, 2, 27, 'R', 3, 117}), code == 7);
        std::string sent = Sent();
        std::erase(sent, '?');  // as many polls as the machine has time for
        EXPECT_EQ(sent, code == 7 ? "A1R3" : "A1");
    }
    Click("cmdOUTPUT");
    EXPECT_EQ(Text("lblREADING"), "마지막 측정값");  // of the period before
    Bytes beyond = Reading(4);
    beyond[11] = 100;  // no step of the table
    ASSERT_TRUE(Handled(beyond));
    EXPECT_EQ(Texts(*this, {"lblSETVOLT", "lblSETCURR"}), "설정 ---- V · O.V.P ---- V 설정 ---- A");
}

TEST_F(RunReplies, OldReadingsAreMarkedAlsoWhileABoxKeepsTheRepliesBack) {
    const auto shows = [this](const char* badge, const char* pill) {
        return WaitFor([=, this] {
            return Text("lblREADING").startsWith(badge) && Text("lblPOLL").startsWith(pill);
        });
    };
    ASSERT_TRUE(SwitchOn() && shows("측정값", "응답 0.2초 전"));
    Boxes.WhileUp = [&](const Message&) { EXPECT_TRUE(shows("응답 없음", "조회 멈춤")); };
    Choose("mnuPROGRAM_END");
    EXPECT_EQ(Boxes.Shown[0].Default, Answer::No);
    ASSERT_TRUE(shows("측정값", "응답 0.2초 전"));
    Data.clear();
    EXPECT_TRUE(shows("응답 없음", "응답 없음"));
    EXPECT_EQ(Texts(*this, {"Output_ONOFF", "txtVOLT"}), "ON 12.100");
    auto& counter = Get<QLabel>("lblZPS_ERR");
    QHelpEvent hover(QEvent::ToolTip, {}, {});
    QApplication::sendEvent(&counter, &hover);
    EXPECT_TRUE(counter.toolTip().contains("올바른 응답"));
}

TEST_F(RunReplies, OldValuesBehindABoxAreNoReadingButWhatTheySayOfTheOutputHolds) {
    auto& log = *Main().findChild<MeasurementLog*>();
    for (const bool on : {true, false}) {
        ASSERT_TRUE(SwitchOn());
        Bytes late = Reading(on ? 4 : 0);
        late[6] = late[11] = 9;
        Data.clear();
        Line().ForgetWritten();
        ASSERT_TRUE(AreSent(1));
        Boxes.WhileUp = [&](const Message&) {
            Line().Arrive(late);
            QTest::qWait(1100);
        };
        Choose("mnuPROGRAM_END");
        Boxes.WhileUp = nullptr;
        const int rows = log.RowCount();
        ASSERT_TRUE(WaitFor([&] { return Source().RxFrame() == late; }));
        EXPECT_EQ(log.RowCount(), rows);
        EXPECT_EQ(Texts(*this, {"txtVOLT", "txtSTEP", "Output_ONOFF"}),
                  on ? "12.100 03 ON" : "12.100 09 OFF");
        EXPECT_TRUE(Text("lblREADING").startsWith(on ? "응답 없음" : "마지막 측정값"));
        Data = Reading(4);
        ASSERT_TRUE(!on || (Handled(Data) && Press("cmdOUTPUT")));
    }
}

TEST_F(RunReplies, EachPollIsASampleOfTheLogWhichIsClearedOnlyAfterAQuestion) {
    auto& log = *Main().findChild<MeasurementLog*>();
    const auto row = [&](int number) {
        QStringList cells;
        for (int column = 0; column < LogColumns; ++column) cells += log.CellText(number, column);
        return cells.join(' ').toStdString();
    };
    ASSERT_TRUE(SwitchOn() && Handled(Reading(4)));
    const int rows = log.RowCount();
    EXPECT_EQ(Sent(), "A1" + std::string(static_cast<std::size_t>(rows - 2), '?'));
    EXPECT_EQ(row(1), "0 0 00 0 0");
    EXPECT_TRUE(row(2).starts_with("1 ") && row(2).ends_with(" 03 12.100 0.1000")) << row(2);
    EXPECT_EQ(log.ChartRow(1).Values[0]->Value, 12.1F);
    for (int click = 0; click < 2; ++click) Click("cmdOUTPUT");  // a new run behind the old one
    Q_EMIT log.findChild<LogGrid*>()->Scrolled();  // which a running log's chart does not follow
    EXPECT_TRUE(log.ChartRow(1).IsGap());
    ASSERT_TRUE(Handled(Reading(4)));
    EXPECT_TRUE(row(rows).starts_with("1 "));
    ASSERT_TRUE(Press("cmdOUTPUT"));
    QTest::keyClick(&Main(), Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
    const QString statistics = QApplication::clipboard()->text();
    EXPECT_TRUE(statistics.contains(
        "모델\tZPS-300\n정격\t150V/2A\n포트\tCOM1 scripted/COM1\n주소\t1\n시작\t2"))
        << statistics.toStdString();
    EXPECT_TRUE(statistics.contains("Voltage(V)\t12.100\t12.100\t12.100\t12.100\n"));
    const auto& energy = Get<StatisticsView>("lblENERGY");
    EXPECT_TRUE(WaitFor([&] { return energy.Words().contains("평균 1.210 W"); }));
    for (const Answer answer : {Answer::No, Answer::Yes}) {
        EXPECT_GT(log.RowCount(), rows);
        Boxes.Answers = {answer};
        Choose("mnuData_Clear");
    }
    EXPECT_EQ(Boxes.LastTitle() + ": " + Boxes.LastText(),
              "측정 데이타 삭제: 현재 데이타를 모두 삭제합니다.");
    EXPECT_EQ(log.RowCount(), 2);
    EXPECT_EQ(row(1), "0 0 03 0.00 2.000");  // what is set
}

}  // namespace
}  // namespace zps::tests
