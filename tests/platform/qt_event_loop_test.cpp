// What a port asks of the event loop of the windows.
#include "platform/qt_event_loop.h"

#include "tests/support/processor_time.h"

#include <gtest/gtest.h>

#include <chrono>

namespace zps::platform {
namespace {

using namespace std::chrono_literals;
using serial::Clock;

TEST(QtEventLoopTest, KeepsTheDeadlineWithoutBurningTheProcessor) {
    const auto begin = Clock::now();
    const double cpu = tests::ProcessorTime();
    QtEventLoop().RunUntil([] { return false; }, begin + 200ms);
    EXPECT_GE(Clock::now(), begin + 200ms);
    EXPECT_LT(tests::ProcessorTime() - cpu, 0.02);
}

TEST(QtEventLoopTest, NestsAndRunsNoEventWhenDoneFromTheStart) {
    const auto begin = Clock::now();
    QtEventLoop loop;
    bool ran = false;
    loop.Post([&] {
        ran = true;
        loop.RunUntil([] { return false; }, begin + 60ms);
    });
    loop.RunUntil([] { return true; }, begin + 10s);
    EXPECT_FALSE(ran);
    // The inner wait must not use up what wakes the outer one.
    loop.RunUntil([] { return false; }, begin + 30ms);
    EXPECT_TRUE(ran);
    EXPECT_LT(Clock::now(), begin + 5s);
}

}  // namespace
}  // namespace zps::platform
