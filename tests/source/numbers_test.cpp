#include "source/numbers.h"

#include "source/ratings.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>

namespace zps {
namespace {

constexpr double Infinity = std::numeric_limits<double>::infinity();
using Texts = std::vector<std::string>;

TEST(LeadingNumber, IsTheNumberThatATextBeginsWith) {
    const std::pair<double, Texts> rows[] = {
        {0, {"", "abc", "V12", "-", ".", "--5", "1e-999", "0e999"}},
        {12.5, {"1 2.5 V", "\t1\n2.5", "12.5.3", "+12.5e", "125 E - 1", ".125e2", "12.5e+,"}},
        {-5, {"-5.", "-5,3", "-.5e1", "- 5x"}},
        {Infinity, {"1e999", ".5e999", "1" + std::string(400, '0')}},
        {-Infinity, {"-1e99999999999999999999"}},
    };
    for (const auto& [value, texts] : rows) {
        for (const auto& text : texts) EXPECT_EQ(LeadingNumber(text), value) << text;
    }
}

TEST(Texts, AreRoundedFromTheShortestTextHalvesAwayFromZero) {
    EXPECT_EQ(
        (Texts{FormatFixed(2.675F, 2), FormatFixed(-2.675, 2), FormatFixed(9.995F, 2),
               FormatFixed(-0.0F, 2), FormatFixed(1e9F, 1), FormatSeconds(49999.999995).Text}),
        (Texts{"2.68", "-2.68", "10.00", "0.00", "1000000000.0", "50000.00000"}));
    EXPECT_EQ((Texts{ShortestText(163.5F), ShortestText(150), FormatStep(7), FormatStep(10)}),
              (Texts{"163.5", "150", "07", "10"}));
}

TEST(ValueFormat, HasTheScaleAndDecimalsOfTheRatingsRange) {
    const struct {
        float Low, High;  // ratings at the borders of the range
        int Scale;
        float At, Below;           // the threshold, and a value below it
        const char *Volts, *Amps;  // the texts of both, plain and fine
    } rows[] = {
        {1.5F, 2, 10000, 0.2F, 0.199F, "0.200 0.2000 0.1990 0.19900", "0.200 0.2000 0.199 0.1990"},
        {2.001F, 20, 1000, 2, 1.99F, "2.00 2.000 1.990 1.9900", "2.00 2.000 1.990 1.9900"},
        {20.1F, 200, 100, 20, 19.99F, "20.0 20.00 19.99 19.990", "20.0 20.00 19.99 19.990"},
        {200.1F, 6000, 10, 200, 199.9F, "200 200.0 199.9 199.90", "200 200.0 199.9 199.90"},
    };
    for (const auto& row : rows) {
        for (const float rating : {row.Low, row.High}) {
            SCOPED_TRACE(rating);
            ValueFormat f;
            f.SetMaxVolt(rating);
            f.SetMaxCurr(rating);
            EXPECT_EQ((std::array{f.VoltScale, f.CurrScale}), (std::array{row.Scale, row.Scale}));
            std::string volts, amps;
            for (const float value : {row.At, row.Below}) {
                volts += f.FormatVolt(value).Text + " " + f.FormatVoltFine(value) + " ";
                amps += f.FormatCurr(value).Text + " " + f.FormatCurrFine(value) + " ";
            }
            EXPECT_EQ(volts + amps, std::string(row.Volts) + " " + row.Amps + " ");
        }
    }
}

TEST(Ratings, AreKnownOnlyForTheAddressAndTheDeviceThatTheyWereReadFrom) {
    Ratings ratings;
    const auto known = [&] {
        return std::string(ratings.KnownAt(0) ? "0" : "") + (ratings.KnownAt(1) ? "1" : "") +
               (ratings.KnownAt(7) ? "7" : "");
    };
    EXPECT_EQ(known(), "");
    ratings.ReadFrom(1, "A");
    EXPECT_EQ(known(), "");  // as long as they are not there
    ratings.SetMaxVolt(150);
    EXPECT_EQ(known(), "1");  // a slip in the address list costs nothing
    ratings.PortOpenedOn("A");
    EXPECT_EQ(known(), "1");
    ratings.PortOpenedOn("B");
    ratings.PortOpenedOn("A");  // who knows what it leads to by now
    EXPECT_EQ(known(), "");
    ratings.ReadFrom(7, "B");
    ratings.PortOpenedOn("B");
    EXPECT_EQ(known(), "7");
    ratings.Forget();
    EXPECT_EQ(known() + std::to_string(ratings.CheckedAddr()), "99");
}

}  // namespace
}  // namespace zps
