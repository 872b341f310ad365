// What every event loop must do for a port, proved for the one of the windows and the tests' own.
#include "platform/qt_event_loop.h"
#include "tests/support/plain_event_loop.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

#include <chrono>
#include <ctime>

namespace zps::tests {
namespace {

using namespace std::chrono_literals;
using serial::Clock;

template <typename Loop>
class EventLoopContract : public testing::Test {
  protected:
    static void SetUpTestSuite() {
        static int count = 1;
        static char name[] = "test";
        static char* names[] = {name, nullptr};
        if (!QCoreApplication::instance()) static QCoreApplication application(count, names);
    }
    Loop Tested;
};

using Loops = testing::Types<PlainEventLoop, platform::QtEventLoop>;
TYPED_TEST_SUITE(EventLoopContract, Loops);

TYPED_TEST(EventLoopContract, KeepsTheDeadlineWithoutBurningTheProcessor) {
    const auto begin = Clock::now();
    const auto cpu = std::clock();
    this->Tested.RunUntil([] { return false; }, begin + 200ms);
    EXPECT_GE(Clock::now(), begin + 200ms);
    EXPECT_LT(std::clock() - cpu, CLOCKS_PER_SEC / 50);
}

TYPED_TEST(EventLoopContract, NestsAndRunsNoEventWhenDoneFromTheStart) {
    const auto begin = Clock::now();
    bool ran = false;
    this->Tested.Post([&] {
        ran = true;
        this->Tested.RunUntil([] { return false; }, begin + 60ms);
    });
    this->Tested.RunUntil([] { return true; }, begin + 10s);
    EXPECT_FALSE(ran);
    // The inner wait must not use up what wakes the outer one.
    this->Tested.RunUntil([] { return false; }, begin + 30ms);
    EXPECT_TRUE(ran);
    EXPECT_LT(Clock::now(), begin + 5s);
}

}  // namespace
}  // namespace zps::tests
