#include "power/run/output.h"

#include <gtest/gtest.h>

#include <string>

namespace zps {
namespace {

TEST(OutputState, TellsEachSwitchingAndCountsObjections) {
    Output output;
    std::string told;
    output.OnChange([&] { told += output.On() ? "on " : "off "; });
    output.CountNoReply();
    output.WentOn();
    EXPECT_EQ(output.NoReplyCount(), 0);  // of this output period
    output.WentOff();
    output.Refused();
    output.Tripped(5);
    output.Tripped(2);
    EXPECT_EQ(told, "on off off off ");
    const auto& [faults, refusals, last] = output.Objected();
    EXPECT_EQ(std::tuple(faults, refusals, last), std::tuple(2, 1, 2));
}

}  // namespace
}  // namespace zps
