#include "power/run/output.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace zps {
namespace {

TEST(OutputState, HasOneWayOnAndTellsEachWayOffButTheOneOfAStepStart) {
    Output output;
    std::string told;
    output.OnChange([&] { told += output.On() ? "on " : "off "; });
    const auto state = [&] {
        return std::exchange(told, "") + (output.On() ? "on, " : "off, ") +
               (output.ShownOn() ? "shown on" : "shown off");
    };
    const std::pair<std::function<void()>, const char*> events[]{
        {[&] { output.WentOn(); }, "on on, shown on"},
        {[&] { output.WentOff(); }, "off off, shown off"},
        {[&] { output.WentOn(); }, "on on, shown on"},
        {[&] { output.ForgetForStepStart(); }, "off, shown on"},
        {[&] { output.WentOff(); }, "off off, shown off"},
        {[&] { output.WentOn(); }, "on on, shown on"},
        {[&] { output.Refused(); }, "on, shown on"},
        {[&] { output.CountNoReply(); }, "on, shown on"},
        {[&] { output.Tripped(5); }, "off off, shown off"},
        {[&] { output.Tripped(2); }, "off off, shown off"},
    };
    for (const auto& [happens, expected] : events) {
        happens();
        EXPECT_EQ(state(), expected);
    }
    const auto& [faults, refusals, last] = output.Objected();
    EXPECT_EQ(std::tuple(faults, refusals, last), std::tuple(2, 1, 2));
    EXPECT_EQ(output.NoReplyCount(), 1);
    output.WentOn();
    EXPECT_EQ(output.NoReplyCount(), 0);  // of this output period
    EXPECT_EQ(output.Objected().Faults, 2);
}

}  // namespace
}  // namespace zps
