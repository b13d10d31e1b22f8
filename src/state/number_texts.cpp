#include "state/number_texts.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>
#include <system_error>

namespace brennik {

namespace {

// Significant digits of the decimal text of each floating type.
constexpr int kFloatDigits = 7;
constexpr int kDoubleDigits = 15;

// An exponent read from a text is capped here: far beyond any range, and safe from int overflow.
constexpr int kExponentCap = 100000;

// The decimal digits of a value: |value| = 0.d[0] d[1] ... d[count-1] x 10^pointAt. Trailing zeros
// are dropped, so zero has no digits (and pointAt 0). Room for the 19 digits of an int64.
struct Decimal {
    bool negative = false;
    int count = 0;
    int pointAt = 0;
    std::array<char, 24> digits{};
};

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

void DropTrailingZeros(Decimal& d) {
    while (d.count > 0 && d.digits[d.count - 1] == '0') {
        --d.count;
    }
    if (d.count == 0) {
        d.pointAt = 0;
    }
}

// Reads what std::to_chars wrote for a finite value: an optional '-', digits with an optional
// point, an optional exponent.
Decimal ReadCharsOutput(const char* p, const char* end) {
    Decimal d;
    if (p != end && *p == '-') {
        d.negative = true;
        ++p;
    }
    bool afterPoint = false;
    for (; p != end && *p != 'e'; ++p) {
        if (*p == '.') {
            afterPoint = true;
        } else {
            d.digits[d.count++] = *p;
            d.pointAt += afterPoint ? 0 : 1;
        }
    }
    if (p != end) {
        ++p;  // 'e'; from_chars takes a '-' but not a '+'
        if (*p == '+') {
            ++p;
        }
        int exponent = 0;
        std::from_chars(p, end, exponent);
        d.pointAt += exponent;
    }
    DropTrailingZeros(d);
    return d;
}

// The decimal text of a finite x with `significant` digits, correctly rounded from its exact
// stored value. An f32 passes through f64 unchanged, so the same code serves both.
Decimal SignificantDigits(double x, int significant) {
    std::array<char, 40> text;
    const char* end = std::to_chars(text.data(), text.data() + text.size(), x,
                                    std::chars_format::scientific, significant - 1)
                          .ptr;
    return ReadCharsOutput(text.data(), end);
}

Decimal AllDigits(int64_t x) {
    std::array<char, 24> text;
    const char* end = std::to_chars(text.data(), text.data() + text.size(), x).ptr;
    return ReadCharsOutput(text.data(), end);
}

// Rounds the digits to `decimals` places after the point, a half going away from zero.
void RoundHalfAway(Decimal& d, int decimals) {
    const int keep = d.pointAt + decimals;
    if (keep >= d.count) {
        return;
    }
    if (keep < 0) {
        // The leading digit stands two places or more below the last kept decimal: less than
        // half a unit of it.
        d.count = 0;
        DropTrailingZeros(d);
        return;
    }
    const bool up = d.digits[keep] >= '5';
    d.count = keep;
    if (up) {
        int i = keep - 1;
        while (i >= 0 && d.digits[i] == '9') {
            --i;
        }
        if (i < 0) {
            // All kept digits were nines (or none was kept): the carry makes a new leading 1.
            d.digits[0] = '1';
            d.count = 1;
            ++d.pointAt;
        } else {
            ++d.digits[i];
            d.count = i + 1;
        }
    }
    DropTrailingZeros(d);
}

bool ShowsMinus(const Decimal& d) {
    return d.negative && d.count > 0;
}

// Writes the digits in positional form: at least `minIntDigits` before the point (leading zeros
// fill up), then the point if asked, then `fractionDigits` digits after it.
void AppendPlain(std::string& out, const Decimal& d, int minIntDigits, int fractionDigits,
                 bool showPoint) {
    const auto digitAt = [&d](int i) { return i >= 0 && i < d.count ? d.digits[i] : '0'; };
    const int intDigits = std::max(d.pointAt, 0);
    out.append(std::max(minIntDigits - intDigits, 0), '0');
    for (int i = 0; i < intDigits; ++i) {
        out += digitAt(i);
    }
    if (showPoint) {
        out += '.';
    }
    for (int j = 0; j < fractionDigits; ++j) {
        out += digitAt(d.pointAt + j);
    }
}

// The digits as they are, without trailing zeros; a whole number gets no point, and zero is "0".
void AppendAllDigits(std::string& out, const Decimal& d, bool zeroBeforePoint) {
    const int fraction = std::max(d.count - d.pointAt, 0);
    const int minIntDigits = zeroBeforePoint || d.count == 0 ? 1 : 0;
    AppendPlain(out, d, minIntDigits, fraction, fraction > 0);
}

std::string NonFiniteText(double x) {
    if (std::isnan(x)) {
        return "nan";
    }
    return x < 0 ? "-inf" : "inf";
}

std::string NumberTextOf(const Decimal& d) {
    std::string out(1, ShowsMinus(d) ? '-' : ' ');
    AppendAllDigits(out, d, false);
    return out;
}

std::string PictureTextOf(Decimal d, std::string_view picture) {
    const size_t point = picture.find('.');
    const bool hasPoint = point != std::string_view::npos;
    const std::string_view intPlaces = picture.substr(0, point);
    const int decimals = hasPoint ? static_cast<int>(picture.size() - point - 1) : 0;
    // Every place from the first '0' to the point shows a digit.
    const size_t firstZero = intPlaces.find('0');
    const int minIntDigits =
        firstZero == std::string_view::npos ? 0 : static_cast<int>(intPlaces.size() - firstZero);

    RoundHalfAway(d, decimals);
    std::string out;
    if (ShowsMinus(d)) {
        out += '-';
    }
    AppendPlain(out, d, minIntDigits, decimals, hasPoint);
    return out;
}

// Reads a decimal text already checked to be a number (without its sign). A value out of the
// range of T becomes the largest T if its magnitude is at least one, else 0.
template <typename T>
T ReadDecimal(const char* first, const char* last, bool negative, bool atLeastOne) {
    T value{};
    if (std::from_chars(first, last, value).ec == std::errc::result_out_of_range) {
        value = atLeastOne ? std::numeric_limits<T>::max() : T{0};
    }
    return negative ? -value : value;
}

// Kept free of heap allocation: the search calls it many times for every cutting step.
template <typename T>
T RoundThroughText(T x, int significant) {
    if (!std::isfinite(x)) {
        return x;
    }
    Decimal d = SignificantDigits(static_cast<double>(x), significant);
    RoundHalfAway(d, 2);
    if (d.count == 0) {
        return T{0};
    }
    // Read back as the digits and a power of ten ("12345e-2"), so huge values need no long text.
    std::array<char, 40> text;
    char* end = std::copy_n(d.digits.data(), d.count, text.data());
    *end++ = 'e';
    end = std::to_chars(end, text.data() + text.size(), d.pointAt - d.count).ptr;
    return ReadDecimal<T>(text.data(), end, d.negative, d.pointAt > 0);
}

// The longest number at the start of a text, after blanks and tabs: its value and where it ends.
// `found` is false, and the value 0, when the text does not begin with a number.
struct NumberPrefix {
    bool found = false;
    double value = 0.0;
    size_t end = 0;
};

// The first place at or after `i` that holds neither a blank nor a tab.
size_t SkipBlanks(std::string_view text, size_t i) {
    while (i < text.size() && (text[i] == ' ' || text[i] == '\t')) {
        ++i;
    }
    return i;
}

NumberPrefix ScanNumber(std::string_view text) {
    const size_t n = text.size();
    const auto digitAt = [&text, n](size_t k) { return k < n && IsDigit(text[k]); };
    size_t i = SkipBlanks(text, 0);
    bool negative = false;
    if (i < n && (text[i] == '+' || text[i] == '-')) {
        negative = text[i] == '-';
        ++i;
    }
    const size_t start = i;

    // Where the first non-zero digit stands tells an overflow from an underflow below.
    int digits = 0;
    int significantIntDigits = 0;
    int leadingFractionZeros = 0;
    bool nonZero = false;
    for (; digitAt(i); ++i) {
        ++digits;
        if (nonZero || text[i] != '0') {
            nonZero = true;
            ++significantIntDigits;
        }
    }
    if (i < n && text[i] == '.') {
        for (++i; digitAt(i); ++i) {
            ++digits;
            if (text[i] != '0') {
                nonZero = true;
            } else if (!nonZero) {
                ++leadingFractionZeros;
            }
        }
    }
    if (digits == 0) {
        return {};
    }

    // An exponent counts only with at least one digit: "1e" and "1e+" read as 1.
    int exponent = 0;
    if (i < n && (text[i] == 'e' || text[i] == 'E')) {
        size_t k = i + 1;
        const bool negativeExponent = k < n && text[k] == '-';
        if (k < n && (text[k] == '+' || text[k] == '-')) {
            ++k;
        }
        if (digitAt(k)) {
            for (; digitAt(k); ++k) {
                exponent = std::min(exponent * 10 + (text[k] - '0'), kExponentCap);
            }
            exponent = negativeExponent ? -exponent : exponent;
            i = k;
        }
    }

    const int leadingExponent =
        (significantIntDigits > 0 ? significantIntDigits - 1 : -leadingFractionZeros - 1) +
        exponent;
    return {true,
            ReadDecimal<double>(text.data() + start, text.data() + i, negative,
                                nonZero && leadingExponent >= 0),
            i};
}

// The form of FloatText, for a finite value's digits: no trailing zeros, no exponent, a zero
// before the point of a value below 1, no blank in front.
std::string EntryTextOf(const Decimal& d) {
    std::string out = ShowsMinus(d) ? "-" : "";
    AppendAllDigits(out, d, true);
    return out;
}

}  // namespace

double NumberValue(std::string_view text) {
    return ScanNumber(text).value;
}

std::optional<double> WholeNumberValue(std::string_view text) {
    const NumberPrefix number = ScanNumber(text);
    if (!number.found) {
        return std::nullopt;
    }
    if (SkipBlanks(text, number.end) < text.size()) {
        return std::nullopt;
    }
    return number.value;
}

std::string FloatText(float x) {
    return std::isfinite(x) ? EntryTextOf(SignificantDigits(x, kFloatDigits)) : NonFiniteText(x);
}

std::string FloatText(double x) {
    return std::isfinite(x) ? EntryTextOf(SignificantDigits(x, kDoubleDigits)) : NonFiniteText(x);
}

std::string NumberText(float x) {
    return std::isfinite(x) ? NumberTextOf(SignificantDigits(x, kFloatDigits)) : NonFiniteText(x);
}

std::string NumberText(double x) {
    return std::isfinite(x) ? NumberTextOf(SignificantDigits(x, kDoubleDigits)) : NonFiniteText(x);
}

std::string NumberText(int32_t x) {
    return NumberTextOf(AllDigits(x));
}

std::string NumberText(int64_t x) {
    return NumberTextOf(AllDigits(x));
}

std::string NumberText(std::string_view numberText) {
    return NumberText(NumberValue(numberText));
}

std::string PictureText(float x, std::string_view picture) {
    if (!std::isfinite(x)) {
        return NonFiniteText(x);
    }
    return PictureTextOf(SignificantDigits(x, kFloatDigits), picture);
}

std::string PictureText(double x, std::string_view picture) {
    if (!std::isfinite(x)) {
        return NonFiniteText(x);
    }
    return PictureTextOf(SignificantDigits(x, kDoubleDigits), picture);
}

std::string PictureText(int32_t x, std::string_view picture) {
    return PictureTextOf(AllDigits(x), picture);
}

std::string RightField(std::string_view text, int width) {
    if (width <= 0) {
        return {};
    }
    const size_t w = static_cast<size_t>(width);
    if (text.size() >= w) {
        return std::string(text.substr(text.size() - w));
    }
    std::string out(w - text.size(), ' ');
    out += text;
    return out;
}

double RoundEven2(double x) {
    if (!std::isfinite(x)) {
        return x;
    }
    // std::to_chars rounds exactly from the stored value, ties to even. A finite f64 has at most
    // 309 digits before the point.
    std::array<char, 320> text;
    const char* end =
        std::to_chars(text.data(), text.data() + text.size(), x, std::chars_format::fixed, 2).ptr;
    double value = 0.0;
    std::from_chars(text.data(), end, value);
    return value;
}

// Most figures lie well away from half a hundredth. For them the text of `significant` digits
// falls on the same side of the half as the value itself, and the result is simply the nearest
// hundredth, which plain arithmetic finds exactly (k / 100 is the double that "k e-2" reads
// as). Only a figure near a half, or too large for that margin, goes through the text.
template <typename T>
T Round2(T x, int significant) {
    const double hundredths = static_cast<double>(x) * 100.0;
    const double limit = std::pow(10.0, significant - 3);
    if (std::fabs(hundredths) < limit) {
        const double whole = std::floor(hundredths);
        const double fraction = hundredths - whole;
        const double margin = std::fabs(hundredths) * std::pow(10.0, 2 - significant);
        if (std::fabs(fraction - 0.5) > margin) {
            const double nearest = fraction > 0.5 ? whole + 1 : whole;
            return static_cast<T>(nearest / 100.0 + 0.0);
        }
    }
    return RoundThroughText(x, significant);
}

double Round2(double x) {
    return Round2(x, kDoubleDigits);
}

float Round2(float x) {
    return Round2(x, kFloatDigits);
}

}  // namespace brennik
