#include "source/ratings.h"

#include <gtest/gtest.h>

namespace zps {
namespace {

TEST(Ratings, AreKnownOnlyForTheAddressAndTheDeviceThatTheyWereReadFrom) {
    Ratings ratings;
    const auto known = [&] {
        std::string at;
        for (const std::int16_t address : std::initializer_list<std::int16_t>{0, 1, 7})
            if (ratings.KnownAt(address)) at += std::to_string(address) + " ";
        return at;
    };
    EXPECT_EQ(known(), "");
    ratings.ReadFrom(1, "A");
    EXPECT_EQ(known(), "");  // as long as they are not there
    ratings.SetMaxVolt(150);
    EXPECT_EQ(known(), "1 ");  // a slip in the address list costs nothing
    ratings.PortOpenedOn("A");
    EXPECT_EQ(known(), "1 ");
    ratings.PortOpenedOn("B");
    ratings.PortOpenedOn("A");  // who knows what it leads to by now
    EXPECT_EQ(known(), "");
    ratings.ReadFrom(7, "B");
    ratings.PortOpenedOn("B");
    EXPECT_EQ(known(), "7 ");
    ratings.Forget();
    EXPECT_EQ(known() + std::to_string(ratings.CheckedAddr()), "99");
    ratings.ReadFrom(7, "B");
    EXPECT_EQ(known(), "7 ");
}

}  // namespace
}  // namespace zps
