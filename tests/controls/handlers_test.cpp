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
    Timer inside("inside", 5ms, Events, TickMode::AtOnce);
    kept.OnTick([&] {
        Log += "k";
        kept.SetEnabled(false);
    });
    dropped.OnTick([&] { Log += "d"; });
    inside.OnTick([&] {
        Log += "i";
        inside.SetEnabled(false);
    });
    for (Timer* timer : {&kept, &dropped, &inside}) timer->SetEnabled(true);
    Boxes.WhileUp = [](const Message&) { WaitForTicks(4); };
    Events.Run([&] {
        Boxes.Show(nullptr, {});
        EXPECT_EQ(Log, "i");
        dropped.SetEnabled(false);
    });
    WaitForTicks(3);
    EXPECT_EQ(Log, "ik");
}

TEST_F(HandlersOfAWindow, RunWhatWaitsOnceEachAndInOrder) {
    const char* first = "a";
    const char* second = "b";
    Events.Run([&] {
        for (const char* what : {first, second, first}) Later(what);
        EXPECT_EQ(Log, "");
    });
    Later("c");  // nothing is up any more, but others came before
    ASSERT_TRUE(WaitFor([&] { return Log.size() >= 3; }));
    EXPECT_EQ(Log, "abc");
    Later("d");
    EXPECT_EQ(Log, "abcd");
}

TEST_F(HandlersOfAWindow, MayLetOthersRunWhileOneWaitsForThem) {
    Events.Run([&] {
        Later("a");
        Events.Yield([&] { ASSERT_TRUE(WaitFor([&] { return Log == "a"; })); });
        EXPECT_TRUE(Events.Busy());
        Later("b");
        EXPECT_EQ(Log, "a");
    });
    EXPECT_FALSE(Events.Busy());
    EXPECT_TRUE(WaitFor([&] { return Log == "ab"; }));
}

TEST_F(HandlersOfAWindow, ReportEachErrorInABoxAndGoOn) {
    Events.Run([] { throw serial::PortError(2, "No such device"); });
    ASSERT_EQ(Boxes.Shown.size(), 1U);
    EXPECT_EQ(Boxes.Shown[0].Icon, MessageIcon::Critical);
    EXPECT_TRUE(Boxes.LastText().contains("COM2") && Boxes.LastText().contains("No such device"));
    Events.Run([] { ControlFrame(240, code::Dle); });  // its sum is no byte
    Events.Run([] { ControlFrame(240, code::Dle); });
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
