#include "controls/colours.h"

#include <gtest/gtest.h>

namespace zps::tests {
namespace {

TEST(Contrasts, AreThoseOfKnownPairs) {
    struct Pair {
        const char* One;
        const char* Other;
        double Apart;
    };
    for (const auto& [one, other, apart] :
         {Pair{"black", "white", 21}, {"white", "#777777", 4.48}, {"red", "black", 5.25}}) {
        EXPECT_NEAR(Contrast(QColor(one), QColor(other)), apart, 0.005) << one << other;
        EXPECT_EQ(Contrast(QColor(other), QColor(one)), Contrast(QColor(one), QColor(other)));
    }
    EXPECT_EQ(ReadableOn("#767676"), QColor(Qt::black));
    EXPECT_EQ(ReadableOn("#747474"), QColor(Qt::white));
}

}  // namespace
}  // namespace zps::tests
