// The record of the line and of what has happened: what is in it, and the window that shows it.
#include "record/record.h"

#include "record/frame_names.h"
#include "record/traced_ports.h"
#include "source/step_frame.h"
#include "test/test.h"
#include "tests/power/run_panel.h"
#include "tests/support/plain_event_loop.h"

#include <QAccessible>
#include <QClipboard>
#include <QMenuBar>

#include <numeric>
#include <set>

#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace zps::tests {
namespace {

// What is in use of the heap, in bytes; the same at all times where nobody can tell.
std::size_t HeapInUse() {
#ifdef __GLIBC__
    return mallinfo2().uordblks;
#else
    return 0;
#endif
}

std::string Cells(const QAbstractItemModel& model, int row,
                  std::initializer_list<LineColumn> columns) {
    QStringList cells;
    for (const LineColumn column : columns)
        cells << model.index(row, static_cast<int>(column)).data().toString();
    return cells.join(' ').simplified().toStdString();
}

std::vector<std::string> Told(const LineModel& model) {
    using enum LineColumn;
    std::vector<std::string> rows;
    for (int row = 0; row < model.rowCount(); ++row)
        rows.push_back(Cells(model, row, {Direction, Content, Verdict}));
    return rows;
}

TEST(TheTrace, OfADayOfPollsTakesTheMemoryItHadAtFirst) {
    LineTrace trace;
    const Bytes poll = Control(1, 16);
    const Bytes data{1, 2, 9, 196, 0, 0, 48, 212, 0, 4, 226, 0, 3, 189};
    EventTime now = EventTime::Now();
    const auto before = HeapInUse();
    for (int polls = 0; polls < 24 * 3600 * 6; ++polls) {
        now.At += 83ms;
        trace.Note(LineEvent::Sent, 1, now, {100, 1000}, poll);
        now.At += 83ms;
        trace.Note(LineEvent::Read, 1, now, {100, 1000}, data);
    }
    EXPECT_EQ(HeapInUse(), before);
    EXPECT_EQ(trace.End() - trace.First(), LineTrace::MostMessages);
    for (const auto number : {trace.First(), trace.End() - 2})
        EXPECT_EQ(trace.Find(number)->Data, poll);
    EXPECT_EQ(trace.Find(trace.End() - 1)->When.At, now.At);
    EXPECT_FALSE(trace.Find(trace.First() - 1) || trace.Find(trace.End()));
    LineModel model(trace);
    model.Follow();
    const auto shown = HeapInUse();
    for (int more = 0; more < 100'000; ++more) {
        trace.Note(LineEvent::Sent, 1, now, {}, poll);
        if (more % 1000 == 0) model.Follow();
    }
    EXPECT_LT(HeapInUse(), shown + 100'000);
    EXPECT_EQ(model.rowCount(),
              static_cast<int>(LineTrace::MostMessages) - 1);  // one is not settled
}

TEST(TheTrace, KeepsFewerMessagesThatAreLongAndEachOfThemWhole) {
    LineTrace trace;
    Bytes noise(10'000);
    std::iota(noise.begin(), noise.end(), 0);
    for (int i = 0; i < 60; ++i) trace.Note(LineEvent::Read, 1, EventTime::Now(), {}, noise);
    EXPECT_EQ(trace.End() - trace.First(), LineTrace::Room / noise.size());
    for (auto number = trace.First(); number < trace.End(); ++number)
        EXPECT_EQ(trace.Find(number)->Data, noise);
}

struct TracedLine : testing::Test {
    void SetUp() override {
        Port->SetCommPort(2);
        Port->SetPortOpen(true);
    }
    // Sends a frame as a window does, and reads what has been answered at once.
    void Exchange(const Bytes& frame, const Bytes& answer, bool read = true) {
        Line->Answer(answer);
        Port->DiscardInput();
        Port->Output(frame);
        if (read) GatherReply(*Port, 3, serial::WaitMode::HoldEvents);
    }

    PlainEventLoop Loop;
    const std::shared_ptr<ScriptedLine> Line = std::make_shared<ScriptedLine>();
    ScriptedPortMaker Scripted{Loop, Line};
    LineTrace Trace;
    TracedPorts Ports{Scripted, Trace, [](int address) {
                          return address == 1 ? Scales{100, 1000} : Scales{};
                      }};
    std::unique_ptr<serial::Port> Port = Ports.MakePort();
    const Bytes Enq = Control(1, 5), Dle = Control(1, 16);
    const Bytes Data{1, 2, 9, 196, 0, 0, 48, 212, 0, 4, 226, 0, 3, 189};
};

TEST_F(TracedLine, IsToldInPairsWithWhatCameOfThem) {
    const Bytes on = SingleCommand(1, letter::Output, {1}).Data;
    Exchange(Enq, {1, 6, 7});
    Exchange(on, {1, 21, 22});
    Exchange(Dle, Data);
    Exchange(Control(7, 16), Bytes(Data.begin(), Data.end() - 1));
    Exchange(Dle, {});
    Exchange(Enq, {1, 6, 7}, false);  // thrown away by the next
    Exchange(Dle, Data);
    Line->Arrive({9, 9});
    GatherReply(*Port, 1, serial::WaitMode::HoldEvents);
    Line->Refuse(3, std::errc::permission_denied);
    Exchange(Enq, {1, 6, 7}, false);  // and by closing
    Port->SetCommPort(3);
    Port->SetPortOpen(false);
    EXPECT_THROW(Port->SetPortOpen(true), serial::PortError);
    EXPECT_THROW(Port->Output(Enq), serial::PortError);
    LineModel model(Trace);
    model.Follow();
    const std::vector<std::string> all{"포트 열림",
                                       "▶ 송신 ENQ 응답 확인",
                                       "◀ 수신 ACK 정상",
                                       "▶ 송신 출력 켜기",
                                       "◀ 수신 NAK 거부(NAK)",
                                       "▶ 송신 DLE 조회",
                                       "◀ 수신 DATA 12.500 V 0.1250 A CV 단계 00 정상",
                                       "▶ 송신 DLE 조회",
                                       "◀ 수신 13바이트 잘못된 응답",
                                       "▶ 송신 DLE 조회 응답 없음",
                                       "▶ 송신 ENQ 응답 확인",
                                       "◀ 수신 ACK 읽지 않음",
                                       "▶ 송신 DLE 조회",
                                       "◀ 수신 DATA 12.500 V 0.1250 A CV 단계 00 정상",
                                       "◀ 수신 2바이트 요청 없음",
                                       "▶ 송신 ENQ 응답 확인",
                                       "◀ 수신 ACK 읽지 않음",
                                       "포트 닫힘",
                                       "포트 열기 열지 못함"};
    EXPECT_EQ(Told(model), all);
    EXPECT_EQ(Cells(model, 17, {LineColumn::Port}) + Cells(model, 18, {LineColumn::Port}),
              "COM2COM3");
    const auto pick = [&](std::initializer_list<std::size_t> rows) {
        std::vector<std::string> picked;
        for (const std::size_t row : rows) picked.push_back(all[row]);
        return picked;
    };
    model.SetFilter(LineModel::Filter::Errors);
    EXPECT_EQ(Told(model), pick({3, 4, 7, 8, 9, 10, 11, 14, 15, 16, 18}));
    model.SetFilter(LineModel::Filter::Commands);
    EXPECT_EQ(Told(model), pick({0, 1, 2, 3, 4, 7, 8, 9, 10, 11, 14, 15, 16, 17, 18}));
    // Both directions and nothing else, as the line itself saw them.
    std::vector<Bytes> sent;
    for (auto number = Trace.First(); number < Trace.End(); ++number)
        if (Trace.Find(number)->What == LineEvent::Sent) sent.push_back(Trace.Find(number)->Data);
    EXPECT_EQ(sent, Line->WrittenData());
}

TEST_F(TracedLine, CallsAFrameUnansweredOnceItsAnswerWouldBeTooLate) {
    Exchange(Dle, {});
    Exchanges pairs;
    std::vector<TracedMessage> told;
    const auto follow = [&](std::chrono::milliseconds later) {
        pairs.Follow(Trace, serial::Clock::now() + later,
                     [&](const TracedMessage& message) { told.push_back(message); });
        return told.size();
    };
    EXPECT_EQ(follow(0ms), 1U);  // the opening
    EXPECT_EQ(follow(900ms), 1U);
    EXPECT_EQ(follow(1100ms), 2U);
    EXPECT_TRUE(told[1].Result == Outcome::NoAnswer && told[1].Poll && !told[1].After);
    Exchange(Dle, Data);
    EXPECT_EQ(follow(0ms), 4U);
    EXPECT_TRUE(told[3].Answer && told[3].After && *told[3].After < 1s);
}

TEST(AFrame, IsToldWithItsValuesInUnitsWhereTheScaleIsKnown) {
    const StepBytes step{SetPointBytes(12, 100), SetPointBytes(1.5, 1000), TimeBytes(1.5),
                         SlopeBytes(0.1), SetPointBytes(163.5, 100)};
    const auto name = [](const Frame& frame, const Scales& known = {100, 1000}) {
        return FrameName({.What = LineEvent::Sent, .Known = known, .Data = frame.Data})
            .toStdString();
    };
    const std::pair<std::string, const char*> cases[]{
        {name(UploadFrame(1, 3, step)),
         "단계 03 V=12.00 I=1.500 TIME=1.50000 SLOPE=0.10000 O.V.P=163.50"},
        {name(UploadFrame(1, 27, step), {}),
         "단계 27 V=1200 I=1500 TIME=1.50000 SLOPE=0.10000 O.V.P=16350"},
        {name(SingleCommand(1, 'V', {2, 188})), "V=7.00"},
        {name(SingleCommand(1, 'W', {0})), "원격 센싱 끄기"},
        {name(InitialisationFrame(1)),
         "출력 끄기 원격 센싱 끄기 자동 운전 끄기 과전류 보호 끄기 AUTO STEP 비움 COUNT=0"},
        {name(FrameBuilder(1).Command('B', {1, 27, 255}).Finish()), "AUTO STEP 01>27>"},
        {name(FrameBuilder(1).Command('F', {0xC3, 0x50}).Finish()), "COUNT=50000"},
        {name(FrameBuilder(1).Command('R').Finish()), "오류 해제"},
        {name(ControlFrame(1, 17)), "DC1 본체 제어"},
        {name({.Data = {1, 2}}), "2바이트"},
        {name({.Data = {1, 2, 4, 27, 'V', 3, 0}}), ""}};  // cut off
    for (const auto& [told, expected] : cases) EXPECT_EQ(told, expected);
}

TEST(AReply, IsToldAsWhatItMeansInTheStateThatItReports) {
    const auto name = [](std::uint8_t bits, std::uint8_t code, const Scales& known) {
        return ReplyName({.Known = known,
                          .Data = {1, 2, 9, bits, code, 0x05, 0xDC, 0x06, 0x63, 0, 100, 7, 3, 0}})
            .toStdString();
    };
    EXPECT_EQ(name(0xD4, 0, {100, 1000}), "DATA 384.006 V 648.8164 A CC 단계 07");
    EXPECT_EQ(name(0xC4, 0, {}), "DATA V=384006 I=6488164 CV 단계 07");
    EXPECT_EQ(name(0xC1, 9, {}),
              "DATA 출력 꺼짐 · 정격 150.0 V 10.0 A · O.V.P 163.5 V 단계 07 "
              "전원 장치가 오류를 알렸습니다(코드 9).");
}

class Record : public ScriptedRun {
  protected:
    RECORD& Open(const char* menu = "mnuRECORD") {
        Choose(menu);
        return *Program().Record();
    }
    zps::Program& Program() { return ScriptedPanel::Run; }
    template <class Control>
    static Control& In(RECORD& window, const char* name) {
        return *window.findChild<Control*>(QLatin1String(name));
    }
};

TEST_F(Record, TakesInTheStartChainAndWhateverWasThereBeforeItWasOpened) {
    auto& table = In<RecordTable>(Open(), "grdLINE");
    ASSERT_TRUE(QTest::qWaitForWindowActive(Program().Record()) && table.hasFocus());
    std::vector<std::string> rows;
    for (int row = 0; row < 13; ++row)
        rows.push_back(Cells(*table.model(), row, {LineColumn::Content, LineColumn::Verdict}));
    EXPECT_EQ(rows, (std::vector<std::string>{
                        "포트 열림", "포트 닫힘", "포트 열림", "ENQ 응답 확인", "ACK 정상",
                        "DC3 원격 제어", "ACK 정상",
                        "출력 끄기 원격 센싱 끄기 자동 운전 끄기 과전류 보호 끄기 AUTO STEP 비움 "
                        "COUNT=0",
                        "ACK 정상", "DLE 조회",
                        "DATA 출력 꺼짐 · 정격 150.0 V 2.0 A · O.V.P 163.5 V 단계 00 정상",
                        "포트 닫힘", "포트 열림"}));
    table.Copy();
    const QStringList lines = QApplication::clipboard()->text().split('\n');
    EXPECT_EQ(lines.size(), table.model()->rowCount() + 2);
    EXPECT_EQ(lines.front(), "시각\t포트\t방향\t판정\t응답(ms)\t내용\t바이트");
    EXPECT_TRUE(lines[4].contains(QRegularExpression(
        "^\\d{4}-\\d\\d-\\d\\d \\d\\d:\\d\\d:\\d\\d\\.\\d{3}\tCOM1\t▶ 송신\t\t\tENQ "
        "응답 확인\t01 05 06$")))
        << lines[4].toStdString();
    table.selectRow(3);
    QTest::keyClick(&table, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), lines[0] + '\n' + lines[4] + '\n');
    EXPECT_EQ(Program().Record()->findChild<QLabel*>("lblSTATE")->text(), "1행 복사됨");
}

TEST_F(Record, StandsStillWhilePausedAndFollowsTheEndUnlessScrolledAway) {
    RECORD& window = Open();
    auto& table = In<RecordTable>(window, "grdLINE");
    auto& model = *table.model();
    QScrollBar& bar = *table.verticalScrollBar();
    ASSERT_TRUE(SwitchOn());
    ASSERT_TRUE(WaitFor([&] { return bar.maximum() > 10 && bar.value() == bar.maximum(); }));
    bar.setValue(3);
    const int rows = model.rowCount();
    ASSERT_TRUE(WaitFor([&] { return model.rowCount() > rows + 4; }));
    EXPECT_EQ(bar.value(), 3);
    auto& pause = In<QPushButton>(window, "cmdPAUSE");
    QTest::mouseClick(&pause, Qt::LeftButton);
    const int paused = model.rowCount();
    const auto first = Cells(model, 0, {LineColumn::Time});
    // So much that nothing of before is left of it.
    for (std::size_t i = 0; i < LineTrace::MostMessages; ++i)
        const_cast<LineTrace&>(Program().Trace()).Note(LineEvent::Closed, 4, EventTime::Now());
    QTest::qWait(600);
    EXPECT_EQ(model.rowCount(), paused);
    EXPECT_EQ(Cells(model, 0, {LineColumn::Time}), first);
    table.Copy();
    EXPECT_FALSE(QApplication::clipboard()->text().contains("COM4"));
    window.close();
    Choose("mnuRECORD");  // goes on again
    EXPECT_EQ(pause.text(), "일시 정지(&P)");
    EXPECT_EQ(model.rowCount(), static_cast<int>(LineTrace::MostMessages));
    EXPECT_EQ(Cells(model, 0, {LineColumn::Port}), "COM4");
    EXPECT_EQ(bar.value(), bar.maximum());
    const_cast<LineTrace&>(Program().Trace()).Note(LineEvent::Closed, 3, EventTime::Now());
    table.Copy();  // also of what has come since the last look
    EXPECT_TRUE(QApplication::clipboard()->text().contains("COM3"));
}

TEST_F(Record, StandsBesideTheOtherWindowsOpensByPointerKeyAndBusAndGoesWithTheProgram) {
    auto& pill = Get<QLabel>("lblPOLL");
    EXPECT_EQ(Get<QLabel>("lblNOTICE").focusPolicy(), Qt::NoFocus);  // empty it leads nowhere
    const std::function<void()> ways[]{
        [&] { QTest::mouseClick(&pill, Qt::LeftButton); },
        [&] { pill.setFocus(), QTest::keyClick(&pill, Qt::Key_Space); },
        [&] {
            QAccessible::queryAccessibleInterface(&pill)->actionInterface()->doAction(
                QAccessibleActionInterface::pressAction());
        },
        [&] { Choose("mnuHISTORY"); },
        [&] {
            Main().Happened().Note(EventKind::Trip, "trip");
            QTest::mouseClick(&Get<QLabel>("lblNOTICE"), Qt::LeftButton);
        }};
    for (std::size_t way = 0; way < std::size(ways); ++way) {
        ways[way]();
        ASSERT_TRUE(Program().Record() && Program().Record()->isVisible()) << way;
        EXPECT_EQ(In<QTabWidget>(*Program().Record(), "tabRECORD").currentIndex(), way < 3 ? 0 : 1);
        QTest::keyClick(Program().Record(), Qt::Key_Escape);
        EXPECT_FALSE(Program().Record()->isVisible());
    }
    const int holder = Line().OpenMaker();
    RECORD& window = Open();
    EXPECT_EQ(Line().OpenMaker(), holder);  // it takes no port
    EXPECT_TRUE(Main().isEnabled());
    for (const char* other : {"mnuTEST", "mnuSET_MANU"}) {
        Choose(other);
        EXPECT_TRUE(!Main().isEnabled() && window.isVisible());
        QTest::mouseClick(&In<QAbstractButton>(window, "optERRORS"), Qt::LeftButton);
        QTest::mouseClick(&In<QAbstractButton>(window, "optALL"), Qt::LeftButton);
        const int rows = In<RecordTable>(window, "grdLINE").model()->rowCount();
        EXPECT_GT(rows, 10);
        window.close();
        Choose("mnuRECORD");  // the main window takes nothing now
        EXPECT_FALSE(window.isVisible());
        for (QWidget* top : QApplication::topLevelWidgets())
            if (dynamic_cast<PortWindow*>(top)) top->close();
        Choose("mnuRECORD");
        EXPECT_TRUE(window.isVisible());
    }
    ASSERT_TRUE(Settle());
    Boxes.Answers = {Answer::Yes};
    Main().close();
    EXPECT_FALSE(Program().Record());
}

// Each of them behind what brings it about; nothing brings about those of the start.
TEST_F(Record, KnowsEventsOfEveryKind) {
    using enum EventKind;
    const std::function<void()> nothing = [] {};
    const auto answer = [this](bool on) {
        Line().Otherwise([this, on](const Bytes& sent) {
            return !on ? Bytes() : sent[1] == 16 ? Data : Acknowledged;
        });
    };
    const auto runUntil = [this](const Bytes& report) { SwitchOn() && Handled(report); };
    const auto press = [this](const char* button, const Bytes& reply) {
        Line().Answer(reply);
        Click(button);
    };
    const std::tuple<std::function<void()>, EventKind, const char*> events[]{
        {nothing, Port, "COM1 · 주소 1"},
        {nothing, Checked, "주소 1 통신 확인: 통신ok = ACK수신!!!"},
        {nothing, Checked, "주소 1 초기화: 통신ok = ACK수신!!!"},
        {nothing, Checked, "확인 중에 전원 장치의 출력과 기능을 모두 껐습니다."},
        {nothing, Checked, "주소 1의 정격: 150V/2A"},
        {[&] { Press("cmdPREMOTE"); }, Switched, "원격 제어로 전환"},
        {[&] { Press("cmdOCP"); }, Switched, "과전류 보호 켜기"},
        {[&] { Press("txPSTEP_1"), Press("txPSTEP_0"), SwitchOn(); }, Switched,
         "출력 켜기, 단계 00"},
        {[&] { Press("txPSTEP_1"); }, Switched,
         "출력 중 단계 01 선택: VOLTAGE(V) 0.00, CURRENT(A) 2.000, TIME(sec) 0.00000, "
         "SLOPE(sec) 0.00000, O.V.P(V) 163.5"},
        {[&] { Enter("txPVOLT_1", "5"); }, Switched, "출력 중 단계 01 설정: VOLTAGE(V) 5.00"},
        {[&] { answer(false); }, LinkLost, "전원 장치의 응답이 끊겼습니다."},
        {[&] { answer(true); }, LinkBack, "응답이 3초 만에 다시 왔습니다."},
        {[&] { Handled(Reading(1, 9)); }, Trip, "전원 장치가 오류를 알렸습니다(코드 9)."},
        {[&] { runUntil(Reading(1, 5)); }, Trip, "SET OVER VOLTAGE!!! (코드 5)"},
        {[&] { runUntil(Reading(0, 16)); }, EndOfRun, "자동 운전이 끝나 출력이 꺼졌습니다."},
        {[&] { runUntil(Reading(0, 0)); }, OutputOff, "전원 장치가 출력을 껐습니다."},
        {[&] { SwitchOn(), Press("cmdOUTPUT"); }, Switched, "출력 끄기"},
        {[&] { SwitchOn(), press("cmdOUTPUT", {}); }, NotDone, "출력 끄기 명령에 응답이 없습니다."},
        {[&] {
             press("txPSTEP_2", {1, 21, 22});
         },
         Refused, "전원 장치가 단계 02의 값을 받지 않았"},
        {[&] { Choose("mnuData_Send"); }, Switched, "단계 송신: 1/1단계 송신됨"},
        {[&] {
             press("cmdOCP", {1, 21, 22});
         },
         Refused, "전원 장치가 거부했습니다: 과전류 보호"},
        {[&] { Press("cmdPREMOTE"); }, Switched, "본체 제어로 전환"},
        {[&] {
             Press("cmdPREMOTE"), Choose("mnuSET_MANU");
             GetSetting<QAbstractButton>("optPORT_3").click();
         },
         Port, "COM3 · 주소 1"},
        {[&] {
             Line().Refuse(2, std::errc::permission_denied);
             GetSetting<QAbstractButton>("optPORT_2").click();
         },
         Port, "COM2 포트를 사용할 수 없습니다."}};
    std::set<EventKind> kinds;
    const History& past = Main().Happened();
    auto from = past.First();
    for (const auto& [act, kind, text] : events) {
        kinds.insert(kind);
        act();
        EXPECT_TRUE(WaitFor([&, kind = kind, text = text] {
            for (auto number = from; number < past.End(); ++number) {
                const PanelEvent& event = past.Get(number);
                if (event.Kind == kind && event.Text.startsWith(text))
                    return from = number + 1, true;
            }
            return false;
        })) << text;
    }
    EXPECT_EQ(kinds.size(), static_cast<std::size_t>(Checked) + 1);
}

TEST(TheRowsOfTheHistory, KeepUpHoweverMuchHasHappenedMeanwhile) {
    History past;
    HistoryModel rows(past);
    int noted = 0;
    for (const auto& [more, gone, left] :
         {std::tuple{3, 0, 3}, {997, 0, 1000}, {2, 2, 1000}, {5000, 1000, 1000}, {0, 0, 1000}}) {
        for (int i = 0; i < more; ++i) past.Note(EventKind::Trip, QString::number(noted++));
        EXPECT_EQ(rows.Follow(), gone);
        EXPECT_EQ(rows.rowCount(), left);
        EXPECT_EQ(rows.index(left - 1, 2).data().toInt(), noted - 1);
        EXPECT_EQ(rows.index(0, 2).data().toInt(), noted - left);
    }
}

// With the start chain, the test window, steps, switches and polls. What the supply has answered is
// told by a second one that hears the same.
TEST(TheSimulatedLine, SawEveryFrameOfTheTraceInItsOrderAndGaveEveryAnswerInIt) {
    SimulatedPanel panel;
    ASSERT_TRUE(panel.Identify());
    panel.Run.Settings()->close();
    ASSERT_TRUE(WaitFor([&] { return panel.Source().StepFlag(0) && !panel.Source().RxBusy(); }));
    panel.Enter("txPVOLT_0", "12.5");
    ASSERT_TRUE(panel.Settle());
    panel.Choose("mnuTEST");
    QTest::mouseClick(panel.Run.Test()->findChild<QPushButton*>("cmdDLE"), Qt::LeftButton);
    ASSERT_TRUE(WaitFor(
        [&] { return panel.Run.Test()->findChild<QLabel*>("lblRESULT")->text() == "GOOD  DLE"; }));
    panel.Run.Test()->close();
    panel.Click("cmdOUTPUT");
    QTest::qWait(1500);
    panel.Click("cmdOUTPUT");
    ASSERT_TRUE(panel.Settle());
    const LineTrace& trace = panel.Run.Trace();
    std::vector<Bytes> traced;
    for (auto number = trace.First(); number < trace.End(); ++number) {
        const LineMessage message = *trace.Find(number);
        if (!message.Data.empty()) traced.push_back(message.Data);
    }
    std::vector<Bytes> heard;
    simulator::Supply twin({});
    for (const auto& frame : panel.Line().TakeReceivedTimed()) {
        heard.push_back(frame.Content);
        heard.push_back(twin.Answer(frame, frame.LastAt).value_or(Bytes()));
    }
    EXPECT_GT(heard.size(), 24U);
    EXPECT_EQ(traced, heard);
    EXPECT_EQ(
        (std::vector{heard[0], heard[2], heard[4], heard[6]}),
        (std::vector{Control(1, 5), Control(1, 19), InitialisationFrame(1).Data, Control(1, 16)}));
    Exchanges().Follow(trace, serial::Clock::now(), [&](const TracedMessage& message) {
        // Switching off sweeps the answer to a poll away that is just coming.
        EXPECT_TRUE(!IsError(message.Result) || message.Result == Outcome::Thrown)
            << message.Number;
    });
}

}  // namespace
}  // namespace zps::tests
