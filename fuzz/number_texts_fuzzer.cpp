// Fuzzes the number texts. The bytes are read as a text (NumberValue, WholeNumberValue), and
// their first bytes also as the bit patterns of an f32, an f64, an i32 and an i64, finite or
// not. Every formatter runs on the values read and on the raw ones, and the texts they give
// must read back to the value within the rounding their digits allow.
#include <algorithm>
#include <array>
#include <bit>
#include <cfloat>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

#include "fuzz_check.h"
#include "state/intake.h"
#include "state/module1.h"
#include "state/number_texts.h"

namespace brennik {
namespace {

using fuzzing::Require;

// The pictures that the report and the results panel use.
constexpr std::array<std::string_view, 6> Pictures = {"#####.00",       "######0.00", "#####0.00",
                                                      "##########0.00", "#0.00",      "#####"};

// The first sizeof(T) bytes as a T, zeros standing in for missing bytes.
template <typename T>
T FromBits(std::string_view bytes) {
    std::array<char, sizeof(T)> raw{};
    std::memcpy(raw.data(), bytes.data(), std::min(bytes.size(), raw.size()));
    return std::bit_cast<T>(raw);
}

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

// Digits, and at most one point with at least one digit somewhere.
bool IsPlainNumber(std::string_view text) {
    std::size_t digits = 0;
    std::size_t points = 0;
    for (const char c : text) {
        digits += IsDigit(c);
        points += c == '.';
        if (!IsDigit(c) && c != '.') {
            return false;
        }
    }
    return digits > 0 && points <= 1;
}

// The decimal text that is rounded to the nearest T, as the program reads a number back into
// its type; a value beyond the range of T is held at the largest T, as the program holds it.
template <typename T>
T NearestOf(std::string_view text) {
    const bool negative = text.starts_with('-');
    T value{};
    if (std::from_chars(text.data(), text.data() + text.size(), value).ec ==
        std::errc::result_out_of_range) {
        value = negative ? -std::numeric_limits<T>::max() : std::numeric_limits<T>::max();
    }
    return value;
}

void CheckReading(std::string_view text) {
    const double value = NumberValue(text);
    Require(std::isfinite(value), "NumberValue is never infinity or NaN");
    const std::optional<double> whole = WholeNumberValue(text);
    Require(!whole || *whole == value, "WholeNumberValue agrees with NumberValue");

    // A sign in front of a number without one gives its value negated, and the same value.
    const std::size_t start = text.find_first_not_of(" \t");
    if (start != std::string_view::npos && (IsDigit(text[start]) || text[start] == '.')) {
        const std::string bare(text.substr(start));
        Require(NumberValue("-" + bare) == -value, "a minus sign negates the value");
        Require(NumberValue("+" + bare) == value, "a plus sign keeps the value");
    }
}

// The entry text of a finite value: an optional minus, then a plain number that has a digit
// before its point and no trailing zero after it.
void CheckEntryForm(std::string_view text) {
    const std::string_view digits = text.starts_with('-') ? text.substr(1) : text;
    Require(IsPlainNumber(digits) && IsDigit(digits.front()), "an entry text is a plain number");
    if (digits.find('.') != std::string_view::npos) {
        Require(digits.back() != '0' && digits.back() != '.', "an entry text ends on a digit");
    }
}

// A picture's text: an optional minus on a number that does not round to zero, at least as
// many digits before the point as the picture has places from its first '0', and exactly its
// decimals after the point.
void CheckPictureForm(std::string_view text, std::string_view picture) {
    const std::size_t point = picture.find('.');
    const std::string_view places = picture.substr(0, point);
    const std::size_t zero = places.find('0');
    const std::size_t minInt = zero == std::string_view::npos ? 0 : places.size() - zero;
    const std::string_view digits = text.starts_with('-') ? text.substr(1) : text;
    if (digits.empty()) {
        Require(minInt == 0 && point == std::string_view::npos, "only '#' places show nothing");
        return;
    }
    Require(IsPlainNumber(digits), "a picture's text is a plain number");
    if (text.starts_with('-')) {
        Require(digits.find_first_not_of("0.") != std::string_view::npos,
                "a number that rounds to zero shows no minus");
    }
    const std::size_t textPoint = digits.find('.');
    if (point == std::string_view::npos) {
        Require(textPoint == std::string_view::npos, "a picture without point gives none");
        Require(digits.size() >= minInt, "every '0' place shows a digit");
        return;
    }
    Require(textPoint != std::string_view::npos, "a picture with a point gives one");
    Require(textPoint >= minInt, "every '0' place shows a digit");
    Require(digits.size() - textPoint == picture.size() - point, "the picture's decimals");
}

// How far a picture may stand from the decimal text it rounds: half its last decimal, plus the
// error of reading both texts back into f64.
double PictureTolerance(std::string_view picture, double value) {
    const std::size_t point = picture.find('.');
    const int decimals = point == std::string_view::npos ? 0 : int(picture.size() - point - 1);
    return 0.5 * std::pow(10.0, -decimals) + std::fabs(value) * 4 * DBL_EPSILON;
}

void CheckNonFinite(const std::string& text) {
    Require(text == "nan" || text == "inf" || text == "-inf", "a value that is not finite");
}

// The formatters on an f32 or an f64: `digits` significant digits in every text.
template <typename T>
void CheckFloating(T x, int digits) {
    const std::string entry = FloatText(x);
    if (!std::isfinite(x)) {
        CheckNonFinite(entry);
        CheckNonFinite(NumberText(x));
        for (const std::string_view picture : Pictures) {
            CheckNonFinite(PictureText(x, picture));
        }
        const T rounded = Round2(x);
        Require(std::isnan(x) ? std::isnan(rounded) : rounded == x, "Round2 keeps a non-finite");
        return;
    }

    CheckEntryForm(entry);
    const double back = NumberValue(entry);
    // Half a unit of the last digit, and the error of reading the text back into f64.
    const double within =
        std::fabs(double(x)) * (0.5 * std::pow(10.0, 1 - digits) + 2 * DBL_EPSILON);
    Require(std::fabs(back - double(x)) <= within, "FloatText keeps its significant digits");

    const std::string general = NumberText(x);
    Require(general.starts_with(' ') || general.starts_with('-'), "NumberText's sign column");
    Require(NumberValue(general) == back, "NumberText has the digits of FloatText");

    for (const std::string_view picture : Pictures) {
        const std::string shown = PictureText(x, picture);
        CheckPictureForm(shown, picture);
        Require(std::fabs(NumberValue(shown) - back) <= PictureTolerance(picture, back),
                "a picture rounds to its decimals");
    }

    // Round2 is the picture of two decimals read back into the type of x; its short cut
    // for figures away from a half must not change that.
    const T rounded = Round2(x);
    Require(rounded == NearestOf<T>(PictureText(x, "#0.00")), "Round2 rounds through the text");
    Require(Round2(rounded) == rounded, "Round2 of a rounded figure changes nothing");
}

void CheckFloat(float x) {
    CheckFloating(x, 7);
    // An entry (the f32 nearest a value of two decimals within the entry limit) comes back
    // from its text unchanged, so that a saved problem loads as it was.
    if (std::isfinite(x) && std::fabs(x) <= EntryLimit &&
        x == static_cast<float>(RoundEven2(double(x)))) {
        Require(static_cast<float>(NumberValue(FloatText(x))) == x, "an entry keeps its value");
    }
}

void CheckDouble(double x) {
    CheckFloating(x, 15);
    if (!std::isfinite(x)) {
        Require(std::isnan(x) ? std::isnan(RoundEven2(x)) : RoundEven2(x) == x,
                "RoundEven2 keeps a non-finite");
        return;
    }
    // Fifteen digits name one f64 of the normal range, so the text survives a reading.
    if (x == 0 || std::fabs(x) >= DBL_MIN) {
        const std::string entry = FloatText(x);
        Require(FloatText(NumberValue(entry)) == entry, "FloatText of its own reading");
    }
    const double even = RoundEven2(x);
    Require(std::fabs(even - x) <= 0.005 + std::fabs(x) * 4 * DBL_EPSILON,
            "RoundEven2 moves a value by half a hundredth at most");
    Require(RoundEven2(even) == even, "RoundEven2 of a rounded value changes nothing");
    Require(RoundEven2(-x) == -even, "RoundEven2 is symmetric");
}

template <typename Whole>
void CheckWhole(Whole x) {
    const std::string expected = (x < 0 ? "" : " ") + std::to_string(x);
    Require(NumberText(x) == expected, "NumberText of a whole number");
}

void CheckInt32(int32_t x) {
    CheckWhole(x);
    for (const std::string_view picture : Pictures) {
        const std::string shown = PictureText(x, picture);
        CheckPictureForm(shown, picture);
        Require(NumberValue(shown) == double(x), "a whole number's picture is exact");
    }
}

void CheckRightField(std::string_view text, int width) {
    const std::string field = RightField(text, width);
    const std::size_t w = width > 0 ? std::size_t(width) : 0;
    Require(field.size() == w, "RightField has exactly its width");
    if (text.size() >= w) {
        Require(field == text.substr(text.size() - w), "RightField keeps the last characters");
    } else {
        const std::size_t blanks = w - text.size();
        Require(field.substr(blanks) == text && field.substr(0, blanks) == std::string(blanks, ' '),
                "RightField puts blanks in front");
    }
}

}  // namespace
}  // namespace brennik

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
    using namespace brennik;
    const std::string_view text(reinterpret_cast<const char*>(data), size);

    CheckReading(text);
    const double value = NumberValue(text);
    CheckDouble(value);
    CheckFloat(HoldAsFloat(value));
    CheckDouble(FromBits<double>(text));
    CheckFloat(FromBits<float>(text));
    CheckWhole(FromBits<int64_t>(text));
    CheckInt32(FromBits<int32_t>(text));
    CheckInt32(HoldAsInt32(std::floor(value)));
    CheckRightField(text, FromBits<int16_t>(text));
    return 0;
}
