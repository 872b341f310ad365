#include "source/numbers.h"

#include "source/value_format.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>

namespace zps {
namespace {

constexpr double Infinity = std::numeric_limits<double>::infinity();
using Texts = std::vector<std::string>;

TEST(LeadingNumber, IsTheNumberThatATextBeginsWith) {
    const std::string zeros(400, '0');
    const std::pair<double, Texts> rows[] = {
        {0, {"", "abc", "V12", "-", ".", "--5", "1e-999", "0e999", "100e-400", "0." + zeros + "1"}},
        {12.5, {"1 2.5 V", "\t1\n2.5", "12.5.3", "+12.5e", "125 E - 1", ".125e2", "12.5e+,"}},
        {-5, {"-5.", "-5,3", "-.5e1", "- 5x"}},
        {100, {"1e2x", "100", "1.e2"}},
        {1e99, {"1e99"}},
        {Infinity, {"1e999", ".5e999", "0.001e400", "1" + zeros, "1" + zeros + "e-50"}},
        {-Infinity, {"-1e99999999999999999999"}},
    };
    for (const auto& [value, texts] : rows) {
        for (const auto& text : texts) EXPECT_EQ(LeadingNumber(text), value) << text;
    }
}

TEST(Texts, AreRoundedFromTheShortestTextHalvesAwayFromZero) {
    EXPECT_EQ((Texts{FormatFixed(2.675F, 2), FormatFixed(-2.675, 2), FormatFixed(2.5F, 0),
                     FormatFixed(9.995F, 2), FormatFixed(99.95F, 1), FormatFixed(-0.0F, 2),
                     FormatFixed(1e-9F, 3), FormatFixed(1e9F, 1), FormatSeconds(49999.999995)}),
              (Texts{"2.68", "-2.68", "3", "10.00", "100.0", "0.00", "0.000", "1000000000.0",
                     "50000.00000"}));
    EXPECT_EQ((Texts{ShortestText(163.5F), ShortestText(150), FormatStep(7), FormatStep(10)}),
              (Texts{"163.5", "150", "07", "10"}));
}

TEST(ValueFormat, HasTheScaleAndDecimalsOfTheRatingsRange) {
    const struct {
        float Low, High;  // ratings at the borders of the range
        int Scale, Decimals;
        float At, Below;           // the threshold, and a value below it
        const char *Volts, *Amps;  // the texts of both, plain and fine
    } rows[] = {
        {1.5F, 2, 10000, 3, 0.2F, 0.199F, "0.200 0.2000 0.1990 0.19900",
         "0.200 0.2000 0.199 0.1990"},
        {2.001F, 20, 1000, 2, 2, 1.99F, "2.00 2.000 1.990 1.9900", "2.00 2.000 1.990 1.9900"},
        {20.1F, 200, 100, 1, 20, 19.99F, "20.0 20.00 19.99 19.990", "20.0 20.00 19.99 19.990"},
        {200.1F, 6000, 10, 0, 200, 199.9F, "200 200.0 199.9 199.90", "200 200.0 199.9 199.90"},
    };
    for (const auto& row : rows) {
        for (const float rating : {row.Low, row.High}) {
            SCOPED_TRACE(rating);
            ValueFormat f;
            f.SetMaxVolt(rating);
            f.SetMaxCurr(rating);
            EXPECT_EQ((std::array{f.VoltScale, f.CurrScale}), (std::array{row.Scale, row.Scale}));
            for (const int used : {f.VoltDecimals + 0, f.CurrDecimals + 0, f.VoltDecimalsFine - 1,
                                   f.CurrDecimalsFine - 1})
                EXPECT_EQ(used, row.Decimals);
            const auto volts = [&f](float v) {
                return f.FormatVolt(v) + " " + f.FormatVoltFine(v);
            };
            const auto amps = [&f](float a) { return f.FormatCurr(a) + " " + f.FormatCurrFine(a); };
            EXPECT_EQ(volts(row.At) + " " + volts(row.Below), row.Volts);
            EXPECT_EQ(amps(row.At) + " " + amps(row.Below), row.Amps);
        }
    }
}

TEST(ValueFormat, TellsTheDecimalsUsedLastAndHasNoTextForACountWithoutPattern) {
    ValueFormat format;
    EXPECT_EQ(format.FormatVolt(12.34F) + format.FormatCurrFine(-12.5F), "12-13");
    format.SetMaxVolt(150);
    EXPECT_EQ(format.MaxOvp, 163.5F);
    for (const float value : {150.0F, -25.0F, 20.0F, std::nanf("")}) {
        format.FormatVolt(value);
        EXPECT_EQ(format.VoltDecimals, value >= 20 ? 1 : 2) << value;
    }
    format.VoltDecHigh = 6;
    format.VoltDecLow = -1;
    EXPECT_EQ(format.FormatVolt(150) + format.FormatVolt(1), "");
}

}  // namespace
}  // namespace zps
