#include "state/number_texts.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <random>
#include <string>
#include <tuple>

namespace brennik {
namespace {

TEST(NumberValue, ReadsTheLongestNumericPrefixAndStaysFinite) {
    const std::pair<const char*, double> cases[] = {
        {"  12.5x", 12.5}, {"\t+7", 7},    {"-.25", -0.25}, {"2.5E-1x", 0.25},
        {"1e+", 1},        {"1.5.5", 1.5}, {"1,5", 1},      {"1e999", DBL_MAX},
        {"-1e-999", 0},    {".e5", 0},     {"- 3", 0},      {"inf", 0},
        {"", 0},
    };
    for (const auto& [text, value] : cases) {
        EXPECT_EQ(NumberValue(text), value) << text;
    }
    EXPECT_EQ(WholeNumberValue("  12.5\t "), 12.5);
    for (const char* text : {"", "12abc", "1 2", "1e", "."}) {
        EXPECT_EQ(WholeNumberValue(text), std::nullopt) << text;
    }
}

// Box and report forms show the digits of the type; a picture rounds the text half away from
// zero, and 2.675 and 1.005, stored below the half, have texts that are not.
TEST(NumberTexts, BoxReportAndPictureFormsShowTheDigitsOfTheType) {
    EXPECT_EQ(FloatText(0.8f), "0.8");
    EXPECT_EQ(FloatText(1e10f), "10000000000");
    EXPECT_EQ(FloatText(static_cast<double>(99999.9f)), "99999.8984375");
    EXPECT_EQ(NumberText(0.8f), " .8");
    EXPECT_EQ(NumberText(-0.05f), "-.05");
    EXPECT_EQ(NumberText(6.1f), " 6.1");
    EXPECT_EQ(NumberText(-1.5e-10), "-.00000000015");
    EXPECT_EQ(NumberText("  -7abc"), "-7");
    EXPECT_EQ(NumberText(std::numeric_limits<double>::infinity()), "inf");
    const std::tuple<double, const char*, const char*> cases[] = {
        {0.8, "#####.00", ".80"},   {0.8, "#####0.00", "0.80"}, {2.675, "#0.00", "2.68"},
        {1.005, "#0.00", "1.01"},   {-2.675, "#0.00", "-2.68"}, {9.995, "#####.00", "10.00"},
        {2.5, "#####", "3"},        {0.49, "#####", ""},        {-0.001, "#0.00", "0.00"},
        {-0.005, "#0.00", "-0.01"}, {0, "#####", ""},
    };
    for (const auto& [x, picture, text] : cases) {
        EXPECT_EQ(PictureText(x, picture), text) << x << " " << picture;
    }
    EXPECT_EQ(PictureText(2.675f, "#0.00"), "2.68");
    EXPECT_EQ(PictureText(1e300, "#0.00"), "1" + std::string(300, '0') + ".00");
}

// RoundEven2 takes halves of a hundredth that are stored exactly to the even digit, and 2.675,
// stored below the half, down; Round2 rounds the 15- or 7-digit text half away from zero.
TEST(Rounding, RoundEven2RoundsTheStoredValueAndRound2ItsText) {
    const std::pair<double, double> cases[] = {
        {2.125, 2.12},     {2.375, 2.38},         {-0.125, -0.12},           {-0.375, -0.38},
        {2.675, 2.67},     {99999.995, 99999.99}, {1048576.625, 1048576.62}, {0.005, 0.01},
        {3.8750001, 3.88},
    };
    for (const auto& [x, rounded] : cases) {
        EXPECT_EQ(RoundEven2(x), rounded) << x;
    }
    EXPECT_EQ(Round2(2.675), 2.68);         // stored below the half, but its 15-digit text is not
    EXPECT_EQ(Round2(-DBL_MAX), -DBL_MAX);  // its 15-digit text lies beyond the largest f64
    EXPECT_EQ(Round2(2.675f), 2.68f);
    EXPECT_EQ(Round2(9.999999f), 10.0f);
}

// Round2 told another way: the C library's text of x with `digits` significant digits is whole
// units times a power of ten; the units, rounded half away from zero to hundredths, are read back.
template <typename T>
T RoundThroughText(T x, int digits) {
    char text[64];
    std::snprintf(text, sizeof text, "%.*e", digits - 1, static_cast<double>(x));
    std::string units(text, std::strchr(text, 'e'));
    std::erase(units, '.');
    std::erase(units, '-');
    long long hundredths = std::stoll(units);
    // Each unit is 10^drop hundredths; a negative drop means that many digits to cut off.
    const int drop = std::atoi(std::strchr(text, 'e') + 1) - (digits - 1) + 2;
    for (int k = 0; k < drop; ++k) {
        hundredths *= 10;
    }
    if (drop < 0) {
        const long long unit = -drop > 18 ? 0 : static_cast<long long>(std::pow(10LL, -drop));
        hundredths = unit == 0 ? 0 : (hundredths + unit / 2) / unit;
    }
    const std::string back = (text[0] == '-' ? "-" : "") + std::to_string(hundredths) + "e-2";
    return static_cast<T>(std::strtod(back.c_str(), nullptr));
}

TEST(Round2, AgreesWithTheRoundingThroughTextEverywhere) {
    std::mt19937_64 random(2675);
    std::uniform_int_distribution<long long> cents(-10000000, 10000000);
    std::uniform_int_distribution<int> nudge(-3, 3);
    std::uniform_real_distribution<double> anywhere(-1e9, 1e9);
    for (int k = 0; k < 200000; ++k) {
        // Halves of a hundredth, nudged by a few units of the last place, and values anywhere.
        double x = (static_cast<double>(cents(random)) + 0.5) / 100.0;
        for (int step = nudge(random); step != 0; step += step > 0 ? -1 : 1) {
            x = std::nextafter(x, step > 0 ? 1e300 : -1e300);
        }
        if (k % 4 == 0) {
            x = anywhere(random) / std::pow(10.0, k % 9);
        }
        ASSERT_EQ(Round2(x), RoundThroughText(x, 15)) << std::hexfloat << x;
        const auto f = static_cast<float>(x / 1000.0);
        ASSERT_EQ(Round2(f), RoundThroughText(f, 7)) << std::hexfloat << f;
    }
}

}  // namespace
}  // namespace brennik
