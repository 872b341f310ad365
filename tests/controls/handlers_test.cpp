#include "controls/timer.h"
#include "source/errors.h"
#include "tests/support/panel.h"

#include <gtest/gtest.h>

namespace zps::tests {
namespace {

class HandlersOfAWindow : public testing::Test {
  protected:
    // A handler that waits, as one with a message box does, until a timer started now would have
    // ticked `count` times.
    static void WaitForTicks(int count) {
        int ticks = 0;
        QTimer reference;
        QObject::connect(&reference, &QTimer::timeout, [&] { ++ticks; });
        reference.start(5ms);
        ASSERT_TRUE(WaitFor([&] { return ticks >= count; }));
    }
    void Later(const char* what) {
        Events.RunWhenFree(what, Origin::Event, [this, what] { Log += what; });
    }

    ScriptedBoxes Boxes;
    Handlers Events{Boxes, nullptr};
    std::string Log;
};

TEST_F(HandlersOfAWindow, KeepTicksBackWhileOneIsUpAndDropThoseOfADisabledTimer) {
    Timer kept("kept", 5ms, Events, TickMode::WhenFree);
    Timer dropped("dropped", 5ms, Events, TickMode::WhenFree);
    kept.OnTick([&] {
        Log += "k";
        kept.SetEnabled(false);
    });
    dropped.OnTick([&] { Log += "d"; });
    for (Timer* timer : {&kept, &dropped}) timer->SetEnabled(true);
    Boxes.WhileUp = [](const Message&) { WaitForTicks(4); };
    Events.Run([&] {
        Boxes.Show(nullptr, {});
        EXPECT_EQ(Log, "");
        dropped.SetEnabled(false);
    });
    WaitForTicks(3);
    EXPECT_EQ(Log, "k");
}

TEST_F(HandlersOfAWindow, RunWhatWaitsOnceEachInOrderAfterOneOrWhileItYields) {
    const char* twice = "a";
    Events.Run([&] {
        for (const char* what : {twice, "b", twice}) Later(what);
        EXPECT_EQ(Log, "");
        Events.Yield([&] { ASSERT_TRUE(WaitFor([&] { return Log.size() >= 2; })); });
        Later("c");
        EXPECT_EQ(Log, "ab");
    });
    Later("d");  // nothing is up any more, but another came before
    EXPECT_TRUE(WaitFor([&] { return Log == "abcd"; }));
}

TEST_F(HandlersOfAWindow, ReportEachErrorInABoxAndGoOn) {
    Events.Run([] { throw serial::PortError(2, "No such device"); });
    EXPECT_TRUE(Boxes.LastText().contains("COM2") && Boxes.LastText().contains("No such device"));
    for (int time = 0; time < 2; ++time)
        Events.Run([] { ControlFrame(240, code::Dle); });  // its sum is no byte
    EXPECT_EQ(Boxes.Shown.size(), 3U);
    EXPECT_FALSE(Events.Busy());
}

TEST_F(HandlersOfAWindow, ReportWhatATimerRepeatsOnceUntilItSucceeds) {
    Timer poll("poll", 5ms, Events, TickMode::WhenFree);
    Timer watch("watch", 5ms, Events, TickMode::WhenFree);
    bool fails = true;
    poll.OnTick([&] {
        if (fails) throw serial::PortError(1, "The port is closed");
    });
    watch.OnTick([] {});  // its success says nothing about the other
    poll.SetEnabled(true);
    watch.SetEnabled(true);
    for (const std::size_t boxes : {1U, 2U}) {
        fails = true;
        WaitForTicks(6);
        EXPECT_EQ(Boxes.Shown.size(), boxes);
        fails = false;
        WaitForTicks(3);
    }
}

}  // namespace
}  // namespace zps::tests
