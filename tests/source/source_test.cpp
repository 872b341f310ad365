#include "source/source.h"

#include "source/errors.h"

#include <gtest/gtest.h>

namespace zps {
namespace {

using enum RowState;

struct PaintedRows : StepRows {
    int TopStep() const override { return Top; }
    void PaintRow(int row, RowState state) override {
        EXPECT_EQ(row, static_cast<int>(States.size()));
        States.push_back(state);
    }
    int Top = 0;
    std::vector<RowState> States;
};

TEST(PaintStepRows, HighlightsTheStepMarksHeldOnesAndLeavesTheOthersPlain) {
    SOURCE source;
    PaintedRows rows;
    source.PaintStepRows(0);  // no window yet
    source.Rows = &rows;
    for (const std::size_t held : {1U, 3U, 7U, 99U}) source.StepFlag[held] = true;
    const auto painted = [&](int top, int step) {
        rows.Top = top;
        rows.States.clear();
        source.PaintStepRows(step);
        return rows.States;
    };
    using States = std::vector<RowState>;
    EXPECT_EQ(painted(0, 3), (States{Plain, Held, Plain, Selected, Plain, Plain, Plain}));
    EXPECT_EQ(painted(93, 93), (States{Selected, Plain, Plain, Plain, Plain, Plain, Held}));
    EXPECT_THROW(painted(94, 94), OverflowError);
}

TEST(ResetSteps, GivesEveryStepTheStartOfTheRatings) {
    SOURCE source;
    source.SetMaxVolt(150);
    source.SetMaxCurr(10);
    source.StepFlag.fill(true);
    source.ResetSteps();
    for (const std::size_t i : {0U, 99U}) {
        EXPECT_EQ((std::array{source.StepVolt[i], source.StepCurr[i], source.StepTime[i],
                              source.StepSlope[i], source.StepOvp[i]}),
                  (std::array<std::string, 5>{"0.00", "10.00", "0.00000", "0.00000", "163.5"}));
        EXPECT_FALSE(source.StepFlag[i]);
    }
}

}  // namespace
}  // namespace zps
