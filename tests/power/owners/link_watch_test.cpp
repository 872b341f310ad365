#include "power/link/link_watch.h"

#include "power/link/last_event.h"
#include "power/run/event_texts.h"
#include "tests/support/scripted_link.h"

#include <gtest/gtest.h>

namespace zps::tests {
namespace {

struct WatchingALink : testing::Test, ScriptedLink {
    WatchingALink() {
        Watch.OnChange([this] {
            Told += "-wALPG"[static_cast<int>(Watch.Seen().State)] +
                    std::to_string(Watch.Seen().Age.count()) + ' ';
        });
        Watch.OnLost([this] { Told += "lost "; });
        Watch.OnBack([this](auto away) { Told += "back after " + std::to_string(away.count()); });
    }
    void Switch(bool on) {
        On = on;
        if (on) Quality.Restart();
        if (on) Quality.OutputWentOn();
        Watch.Look();
    }
    // What is told in the next `span` with a poll every 165 ms, or none, and its answer, or none.
    std::string In(std::chrono::milliseconds span, bool answers, bool asks = true) {
        for (const auto end = Line->Waited() + span; Line->Waited() < end;) {
            Time.Pass(165ms);
            if (asks) Quality.Asked();
            if (answers) Quality.Answered(Reply::Data, DataLength);
        }
        return std::exchange(Told, {});
    }

    bool On = false;
    std::string Told;
    LinkQuality Quality{Time, [this] { return On; }};
    LinkWatch Watch{Quality, Time};
};

TEST_F(WatchingALink, TellsEachChangeOnceAndNothingOfASupplyThatAnswersEveryPoll) {
    Switch(true);
    EXPECT_EQ(In(10s, true), "w0 A200 ");
    EXPECT_EQ(In(4s, false),
              "A400 A600 L800 L1000 L1200 L1400 L1600 L1800 L2000 L2200 L2400 L2600 "
              "L2800 L3000 G3000 lost G4000 ");
    EXPECT_EQ(In(2s, true), "A200 back after 4");
    Switch(false);
    EXPECT_EQ(In(1min, false), "-0 ");
    Switch(true);
    EXPECT_EQ(In(3400ms, false), "w0 G3000 lost ");
    Switch(false);  // not back, nobody knows
    EXPECT_EQ(In(1s, true), "-0 ");
}

// While a message box is up.
TEST_F(WatchingALink, DoesNotBlameTheSupplyWhereNothingIsAsked) {
    Switch(true);
    In(1s, true);
    EXPECT_EQ(In(5s, false, false),
              "A400 A600 A800 L800 L1000 L1200 L1400 P1600 P1800 P2000 P2200 "
              "P2400 P2600 P2800 P3000 P4000 ");
    EXPECT_EQ(In(300ms, false), "P5000 L5000 ");
    EXPECT_EQ(In(1s, true), "A200 ");
    Quality.Asked();
    EXPECT_EQ(In(5s, false, false).find('G'), std::string::npos);  // the box may hold the answer
}

// The clock goes on meanwhile; an adapter may have been pulled.
TEST_F(WatchingALink, AnHourOfTheMachineAsleepIsNoSilenceOfTheSupply) {
    for (const bool pulled : {false, true}) {
        Switch(true);
        In(1s, true);
        Line->Advance(Line->Waited() + 1h);
        if (pulled) {
            EXPECT_EQ(In(3s, false), "P3600000 L3600000 L3601000 L3602000 L3603000 ");
            EXPECT_EQ(In(1s, false), "G3603000 lost G3604000 ");
        }
        EXPECT_EQ(In(1s, true), pulled ? "A200 back after 3604" : "P3600000 A200 ");
        Switch(false);
        In(1s, true);
    }
}

TEST_F(WatchingALink, ALinkThatIsLostIsSoThroughABoxUntilAnAnswerComes) {
    for (const bool answered : {true, false}) {
        Switch(true);
        In(1s, answered);
        EXPECT_NE(In(4s, false).find("lost"), std::string::npos);
        EXPECT_NE(In(2s, false, false).find('P'), std::string::npos);
        const std::string behind = In(4s, false);
        EXPECT_EQ(behind.find_first_of("wLlb"), std::string::npos) << behind;
        EXPECT_EQ(In(2s, true), answered ? "A200 back after 10" : "A200 back after 11");
        Switch(false);
        In(1s, true);
    }
}

TEST(TheLastEvent, StaysWithItsTimeUntilTheOutputGoesOn) {
    QDateTime now(QDate(2026, 11, 21), QTime(14, 31, 5));
    History past([&] { return now; });
    LastEvent last(past);
    int told = 0;
    last.OnChange([&] { ++told; });
    last.Forget();
    past.Note(EventKind::Trip, FaultEvent(5));
    now = now.addSecs(60);
    EXPECT_EQ(last.Get()->At.toString("HH:mm:ss ") + last.Get()->Text,
              "14:31:05 SET OVER VOLTAGE!!! (코드 5)");
    past.Note(EventKind::Switched, "출력 끄기");  // by the operator: nothing to tell
    past.Note(EventKind::Refused, RequestText({letter::Output, 0}));
    EXPECT_EQ(last.Get()->Text + RequestText({}), "출력 끄기제어 명령");
    EXPECT_TRUE(RefusalText(3, Only(StepValue::Ovp)).contains("단계 03의 O.V.P 설정을"));
    EXPECT_TRUE(RefusalText(3, AllValues()).contains("단계 03의 값을"));
    EXPECT_TRUE(RefusalText(3, {}).contains("단계 03의 선택을"));
    last.Forget();
    EXPECT_TRUE(!last.Get() && told == 3);
    past.Note(EventKind::Refused, past.Get(2).Text);  // the same at once: told again, kept once
    EXPECT_TRUE(last.Get() && past.End() == 3);
}

TEST(TheHistory, KeepsTheLastThousandEventsAndTheSameWithinATenthOfASecondOnce) {
    QDateTime now(QDate(2026, 11, 21), QTime(14, 31, 5));
    History past([&] { return now; });
    const auto noteIn = [&](qint64 ms, const char* text, EventKind kind = EventKind::Trip) {
        now = now.addMSecs(ms);
        past.Note(kind, text);
        return past.End();
    };
    EXPECT_EQ(noteIn(0, "a"), 1U);
    EXPECT_EQ(noteIn(50, "b"), 2U);
    EXPECT_EQ(noteIn(50, "a"), 2U);
    EXPECT_EQ(noteIn(0, "a", EventKind::NotDone), 3U);
    EXPECT_EQ(noteIn(1, "a"), 4U);
    EXPECT_EQ(noteIn(-3'600'000, "a"), 5U);  // the clock has been set
    for (int i = 0; i < 1000; ++i) noteIn(101, "a");
    EXPECT_EQ(past.End() - past.First(), History::MostEvents);
    EXPECT_EQ(past.Get(past.First()).At.msecsTo(now), 999 * 101);
}

}  // namespace
}  // namespace zps::tests
