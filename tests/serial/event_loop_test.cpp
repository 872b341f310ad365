// What every event loop must do for a port, proved for the one of the windows and the tests' own.
#include "platform/qt_event_loop.h"
#include "tests/support/plain_event_loop.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

#include <chrono>
#include <ctime>
#include <memory>
#include <thread>

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

TYPED_TEST(EventLoopContract, SleepsUntilACallIsPostedOnAnotherThread) {
    bool called = false;
    std::thread other([&] { this->Tested.Post([&] { called = true; }); });
    this->Tested.RunUntil([&] { return called; }, Clock::now() + 10s);
    other.join();
    EXPECT_TRUE(called);
}

TYPED_TEST(EventLoopContract, KeepsTheDeadlineWithoutBurningTheProcessor) {
    const auto begin = Clock::now();
    const auto cpu = std::clock();
    this->Tested.RunUntil([] { return false; }, begin + 200ms);
    EXPECT_GE(Clock::now(), begin + 200ms);
    EXPECT_LT(std::clock() - cpu, CLOCKS_PER_SEC / 50);
}

TYPED_TEST(EventLoopContract, NestsAndRunsNoEventWhenDoneFromTheStart) {
    int nested = 0;
    this->Tested.Post([&] {
        this->Tested.Post([&] { ++nested; });
        this->Tested.RunUntil([&] { return nested > 0; }, Clock::now() + 10s);
        nested *= 10;
    });
    this->Tested.RunUntil([] { return true; }, Clock::now() + 10s);
    EXPECT_EQ(nested, 0);
    this->Tested.RunUntil([&] { return nested == 10; }, Clock::now() + 10s);
    EXPECT_EQ(nested, 10);
    // The inner wait must not have used up what wakes the outer one.
    const auto begin = Clock::now();
    this->Tested.Post([&] { this->Tested.RunUntil([] { return false; }, begin + 60ms); });
    this->Tested.RunUntil([] { return false; }, begin + 30ms);
    EXPECT_LT(Clock::now(), begin + 5s);
}

}  // namespace
}  // namespace zps::tests
