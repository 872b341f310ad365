#include "power/run/output.h"

#include <gtest/gtest.h>

#include <string>

namespace zps {
namespace {

TEST(OutputState, TellsEachWayOnAndOffButTheOneOfAStepStartAndCountsObjections) {
    Output output;
    std::string told;
    output.OnChange([&] { told += output.On() && output.ShownOn() ? "on " : "off "; });
    output.WentOn();
    output.ForgetForStepStart();
    EXPECT_TRUE(!output.On() && output.ShownOn());
    output.WentOff();
    output.WentOn();
    output.Refused();
    output.Tripped(5);
    output.Tripped(2);
    EXPECT_EQ(told, "on off on off off ");
    const auto& [faults, refusals, last] = output.Objected();
    EXPECT_EQ(std::tuple(faults, refusals, last), std::tuple(2, 1, 2));
}

}  // namespace
}  // namespace zps
