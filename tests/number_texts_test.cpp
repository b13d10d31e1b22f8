#include "state/number_texts.h"

#include <gtest/gtest.h>

#include <cstdio>

#include <cfloat>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>
#include <random>
#include <string>
#include <type_traits>

namespace brennik {
namespace {

TEST(NumberValue, ReadsTheLongestNumericPrefix) {
    const struct {
        const char* text;
        double value;
    } cases[] = {
        {"  12.5x", 12.5}, {"-3", -3.0},     {".5", 0.5},  {"12abc", 12.0}, {"1,5", 1.0},
        {"\t+7", 7.0},     {"-.25", -0.25},  {"3.", 3.0},  {"1e3", 1000.0}, {"2.5E-1x", 0.25},
        {"1e+2", 100.0},   {"1e", 1.0},      {"1e+", 1.0}, {"4E-", 4.0},    {"007", 7.0},
        {"1.5.5", 1.5},    {"1e2.5", 100.0}, {"1 2", 1.0},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(NumberValue(c.text), c.value) << c.text;
    }
}

TEST(NumberValue, GivesZeroForATextThatDoesNotBeginWithANumber) {
    for (const char* text : {"", "   ", ".", "-", "+", ".e5", "abc", "nan", "inf", "- 3", "e5"}) {
        EXPECT_EQ(NumberValue(text), 0.0) << text;
    }
}

TEST(NumberValue, KeepsOutOfRangeValuesFinite) {
    EXPECT_EQ(NumberValue("1e999"), DBL_MAX);
    EXPECT_EQ(NumberValue("-1e999"), -DBL_MAX);
    EXPECT_EQ(NumberValue("1e99999999999999999999"), DBL_MAX);
    EXPECT_EQ(NumberValue("0.00001e312"), 1e307);
    EXPECT_EQ(NumberValue("1e-999"), 0.0);
    EXPECT_EQ(NumberValue("-1e-999"), 0.0);
    EXPECT_EQ(NumberValue("100000e-1000"), 0.0);
    EXPECT_EQ(NumberValue("0e999"), 0.0);
}

TEST(WholeNumberValue, TakesOnlyATextThatIsWhollyOneNumber) {
    const struct {
        const char* text;
        double value;
    } numbers[] = {{"12", 12.0}, {"  12.5\t ", 12.5}, {"-.25", -0.25},   {"+7", 7.0},
                   {"3.", 3.0},  {"2.5E-1", 0.25},    {"1e999", DBL_MAX}};
    for (const auto& c : numbers) {
        EXPECT_EQ(WholeNumberValue(c.text), c.value) << c.text;
    }
    for (const char* text : {"", "  ", "12abc", "abc", "1,5", "1 2", "1e", "1.5.5", ".", "-"}) {
        EXPECT_EQ(WholeNumberValue(text), std::nullopt) << text;
    }
}

TEST(FloatText, ShowsSevenDigitsWithAZeroBeforeThePoint) {
    EXPECT_EQ(FloatText(5.5f), "5.5");
    EXPECT_EQ(FloatText(0.8f), "0.8");
    EXPECT_EQ(FloatText(610.0f), "610");
    EXPECT_EQ(FloatText(99999.9f), "99999.9");
    EXPECT_EQ(FloatText(6.13f), "6.13");
    EXPECT_EQ(FloatText(0.0f), "0");
    EXPECT_EQ(FloatText(-0.0f), "0");
    EXPECT_EQ(FloatText(-2.5f), "-2.5");
    EXPECT_EQ(FloatText(0.0001f), "0.0001");
    EXPECT_EQ(FloatText(1e10f), "10000000000");
}

TEST(FloatText, OfADoubleShowsFifteenDigits) {
    EXPECT_EQ(FloatText(121.0), "121");
    EXPECT_EQ(FloatText(0.5), "0.5");
    EXPECT_EQ(FloatText(-2.0), "-2");
    EXPECT_EQ(FloatText(static_cast<double>(99999.9f)), "99999.8984375");
    EXPECT_EQ(FloatText(1.0 / 3.0), "0.333333333333333");
    EXPECT_EQ(FloatText(1e20), "100000000000000000000");
    EXPECT_EQ(FloatText(DBL_MAX), "179769313486232" + std::string(294, '0'));
}

TEST(NumberText, PutsABlankOrMinusAndNoZeroBeforeThePoint) {
    EXPECT_EQ(NumberText(6), " 6");
    EXPECT_EQ(NumberText(0.8f), " .8");
    EXPECT_EQ(NumberText(0.8), " .8");
    EXPECT_EQ(NumberText(1.30), " 1.3");
    EXPECT_EQ(NumberText(0.0), " 0");
    EXPECT_EQ(NumberText(-0.0), " 0");
    EXPECT_EQ(NumberText(-2.5), "-2.5");
    EXPECT_EQ(NumberText(-0.05f), "-.05");
    EXPECT_EQ(NumberText(int16_t{-12}), "-12");
    EXPECT_EQ(NumberText(int32_t{186}), " 186");
    EXPECT_EQ(NumberText(INT64_MIN), "-9223372036854775808");
}

TEST(NumberText, RoundsToTheDigitsOfTheType) {
    // 6.1f is stored as 6.0999999..., 99999.9f as 99999.8984375.
    EXPECT_EQ(NumberText(6.1f), " 6.1");
    EXPECT_EQ(NumberText(99999.9f), " 99999.9");
    EXPECT_EQ(NumberText(static_cast<double>(99999.9f)), " 99999.8984375");
    EXPECT_EQ(NumberText(1.0 / 3.0), " .333333333333333");
    EXPECT_EQ(NumberText(1e300), " 1" + std::string(300, '0'));
    EXPECT_EQ(NumberText(-1.5e-10), "-.00000000015");
}

TEST(NumberText, OfATextTakesTheNumberItGives) {
    EXPECT_EQ(NumberText("1.30"), " 1.3");
    EXPECT_EQ(NumberText("0.05"), " .05");
    EXPECT_EQ(NumberText(std::string("  -7abc")), "-7");
    EXPECT_EQ(NumberText("abc"), " 0");
}

TEST(PictureText, FollowsThePicturesInUse) {
    EXPECT_EQ(PictureText(0.8f, "#####.00"), ".80");
    EXPECT_EQ(PictureText(0.8f, "#####0.00"), "0.80");
    EXPECT_EQ(PictureText(160, "#####"), "160");
    EXPECT_EQ(PictureText(0, "#####"), "");
    EXPECT_EQ(PictureText(0.0, "#####.00"), ".00");
    EXPECT_EQ(PictureText(0.05f, "######0.00"), "0.05");
    EXPECT_EQ(PictureText(12345678.9, "#0.00"), "12345678.90");
    EXPECT_EQ(PictureText(int16_t{7}, "##########0.00"), "7.00");
    EXPECT_EQ(PictureText(1234567, "#####"), "1234567");
    EXPECT_EQ(PictureText(2.4f, "#####"), "2");
    EXPECT_EQ(PictureText(1e300, "#0.00"), "1" + std::string(300, '0') + ".00");
}

TEST(PictureText, RoundsTheDecimalTextHalfAwayFromZero) {
    EXPECT_EQ(PictureText(0.125, "#####0.00"), "0.13");
    EXPECT_EQ(PictureText(2.675, "#0.00"), "2.68");   // stored below 2.675
    EXPECT_EQ(PictureText(1.005, "#0.00"), "1.01");   // stored below 1.005
    EXPECT_EQ(PictureText(2.675f, "#0.00"), "2.68");  // stored below 2.675
    EXPECT_EQ(PictureText(-2.675, "#0.00"), "-2.68");
    EXPECT_EQ(PictureText(9.995, "#####.00"), "10.00");
    EXPECT_EQ(PictureText(0.004999, "#####.00"), ".00");
    EXPECT_EQ(PictureText(2.5, "#####"), "3");
    EXPECT_EQ(PictureText(0.49, "#####"), "");
}

TEST(PictureText, ShowsAMinusOnlyBeforeDigitsThatAreNotAllZero) {
    EXPECT_EQ(PictureText(-0.001, "#0.00"), "0.00");
    EXPECT_EQ(PictureText(-0.005, "#0.00"), "-0.01");
    EXPECT_EQ(PictureText(-0.8f, "#####.00"), "-.80");
    EXPECT_EQ(PictureText(-160, "#####"), "-160");
}

TEST(RightField, PadsInFrontOrKeepsTheLastColumns) {
    EXPECT_EQ(RightField("abcdefgh", 7), "bcdefgh");
    EXPECT_EQ(RightField("6", 7), "      6");
    EXPECT_EQ(RightField("abc", 3), "abc");
    EXPECT_EQ(RightField("", 2), "  ");
    EXPECT_EQ(RightField("abc", 0), "");
    EXPECT_EQ(RightField("abc", -1), "");
}

TEST(RoundEven2, RoundsTheStoredValueWithHalvesToEven) {
    EXPECT_EQ(RoundEven2(2.125), 2.12);
    EXPECT_EQ(RoundEven2(2.375), 2.38);
    EXPECT_EQ(RoundEven2(0.125), 0.12);
    EXPECT_EQ(RoundEven2(-0.125), -0.12);
    EXPECT_EQ(RoundEven2(2.675), 2.67);  // stored below 2.675
    EXPECT_EQ(RoundEven2(99999.996), 100000.0);
    EXPECT_EQ(RoundEven2(99999.995), 99999.99);  // stored below 99999.995
    EXPECT_EQ(RoundEven2(1e300), 1e300);
}

// x * 100 is exact in the 64-bit long double mantissa for any f64, so its fraction shows an exact
// half; the rounded hundredths are then read back correctly rounded.
double ExactRoundEven2(double x) {
    const long double scaled = static_cast<long double>(x) * 100.0L;
    long double whole = std::floor(scaled);
    const long double fraction = scaled - whole;
    if (fraction > 0.5L || (fraction == 0.5L && std::fmod(whole, 2.0L) != 0.0L)) {
        whole += 1.0L;
    }
    const std::string text = std::to_string(static_cast<long long>(whole)) + "e-2";
    double value = 0.0;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

TEST(RoundEven2, AgreesWithExactArithmeticOnRandomValues) {
    std::mt19937_64 random(20240611);
    std::uniform_int_distribution<long long> mantissa(-100000000, 100000000);
    std::uniform_int_distribution<int> decimals(2, 4);
    int exactHalves = 0;
    for (int i = 0; i < 6000; ++i) {
        double x = 0.0;
        if (i % 3 == 0) {
            x = static_cast<double>(mantissa(random)) / 8.0;  // odd eighths are exact halves
        } else {
            const std::string text =
                std::to_string(mantissa(random)) + "e-" + std::to_string(decimals(random));
            std::from_chars(text.data(), text.data() + text.size(), x);
        }
        const long double scaled = static_cast<long double>(x) * 100.0L;
        exactHalves += scaled - std::floor(scaled) == 0.5L ? 1 : 0;
        ASSERT_EQ(RoundEven2(x), ExactRoundEven2(x)) << std::hexfloat << x;
    }
    EXPECT_GT(exactHalves, 500);
}

TEST(Round2, RoundsTheDecimalTextHalfAwayFromZero) {
    EXPECT_EQ(Round2(2.675), 2.68);  // its 15-digit text is 2.67500000000000
    EXPECT_EQ(Round2(1.005), 1.01);
    EXPECT_EQ(Round2(-2.675), -2.68);
    EXPECT_EQ(Round2(0.125), 0.13);
    EXPECT_EQ(Round2(0.005), 0.01);
    EXPECT_EQ(Round2(0.004999), 0.0);
    EXPECT_EQ(Round2(99.995), 100.0);
    EXPECT_EQ(Round2(123456789.125), 123456789.13);
    EXPECT_EQ(Round2(1e300), 1e300);
    EXPECT_EQ(Round2(DBL_MAX), DBL_MAX);  // its 15-digit text lies beyond the largest f64
    EXPECT_EQ(Round2(-DBL_MAX), -DBL_MAX);
}

// Round2 told step by step with the C library: the text with the type's significant digits,
// its digits rounded half away from zero at the second decimal, the result read back.
template <typename T>
T TextbookRound2(T x, int significant) {
    char text[64];
    std::snprintf(text, sizeof text, "%.*e", significant - 1, static_cast<double>(x));
    const std::string s(text);
    const bool negative = s[0] == '-';
    const std::size_t e = s.find('e');
    std::string digits;
    for (char c : s.substr(negative ? 1 : 0, e - (negative ? 1 : 0))) {
        if (c != '.') {
            digits += c;
        }
    }
    const int exponent = std::stoi(s.substr(e + 1));
    // digits d0.d1d2... x 10^exponent; keep those down to the hundredths.
    const int keep = exponent + 3;
    long long hundredths = 0;
    if (keep > 0) {
        hundredths = std::stoll(digits.substr(0, std::min<std::size_t>(keep, digits.size())));
        for (int k = static_cast<int>(digits.size()); k < keep; ++k) {
            hundredths *= 10;
        }
        if (keep < static_cast<int>(digits.size()) && digits[keep] >= '5') {
            ++hundredths;
        }
    } else if (keep == 0 && digits[0] >= '5') {
        hundredths = 1;
    }
    const std::string back = (negative ? "-" : "") + std::to_string(hundredths) + "e-2";
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
        ASSERT_EQ(Round2(x), TextbookRound2(x, 15)) << std::hexfloat << x;
        const auto f = static_cast<float>(x / 1000.0);
        ASSERT_EQ(Round2(f), TextbookRound2(f, 7)) << std::hexfloat << f;
    }
}

TEST(Round2, OfAFloatKeepsTheFloat) {
    static_assert(std::is_same_v<decltype(Round2(1.0f)), float>);
    EXPECT_EQ(Round2(0.05f), 0.05f);
    EXPECT_EQ(Round2(0.125f), 0.13f);
    EXPECT_EQ(Round2(2.675f), 2.68f);
    EXPECT_EQ(Round2(9.999999f), 10.0f);
    EXPECT_EQ(Round2(-1.005f), -1.01f);
    EXPECT_EQ(Round2(99999.9f), 99999.9f);
}

TEST(NumberTexts, NonFiniteValuesGiveATextAndPassThroughRounding) {
    const double inf = std::numeric_limits<double>::infinity();
    const float nanf = std::numeric_limits<float>::quiet_NaN();
    EXPECT_EQ(NumberText(inf), "inf");
    EXPECT_EQ(NumberText(nanf), "nan");
    EXPECT_EQ(FloatText(-std::numeric_limits<float>::infinity()), "-inf");
    EXPECT_EQ(PictureText(-inf, "#0.00"), "-inf");
    EXPECT_EQ(PictureText(nanf, "#0.00"), "nan");
    EXPECT_EQ(Round2(inf), inf);
    EXPECT_TRUE(std::isnan(Round2(nanf)));
    EXPECT_EQ(RoundEven2(-inf), -inf);
    EXPECT_TRUE(std::isnan(RoundEven2(std::nan(""))));
}

}  // namespace
}  // namespace brennik
