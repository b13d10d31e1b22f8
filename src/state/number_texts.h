// Number texts: how numbers become text and text becomes numbers, always with the point as the
// decimal sign whatever the locale, and Round2, which rounds money and material figures by way of
// their decimal text.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace brennik {

// The value of the longest number at the start of a text (after blanks and tabs): an optional
// sign, digits with an optional point, an optional exponent. 0 if the text does not begin with a
// number. A value beyond the range of f64 gives the largest f64 with its sign, a value too small
// for it gives 0; never infinity or NaN.
double NumberValue(std::string_view text);

// The value of a text that is wholly one number by the grammar of NumberValue, with blanks and
// tabs allowed around it; nothing for any other text, the empty one included. For reading fields
// of a file, where "12abc" is no number at all.
std::optional<double> WholeNumberValue(std::string_view text);

// The text of an f32 for an entry box: at most 7 significant digits, no trailing zeros, no
// exponent, "0" before the point of a value below 1, no blank in front.
std::string FloatText(float x);
// The same form for an f64, with 15 significant digits.
std::string FloatText(double x);

// The general text of a number: a blank in front (a minus sign if negative), then its digits
// rounded to the significant digits of its type, no trailing zeros, no exponent and no zero
// before the point. The text overload takes the number that the text gives (NumberValue).
std::string NumberText(float x);
std::string NumberText(double x);
std::string NumberText(int32_t x);
std::string NumberText(int64_t x);
std::string NumberText(std::string_view numberText);

// The text of a number by a picture of '#', '0' and '.': the decimal text of the value (with the
// significant digits of its type) is rounded half away from zero to the picture's decimals. A '0'
// place before the point always shows a digit, a '#' place only if the number has one there;
// a number with more digits than places shows them all.
std::string PictureText(float x, std::string_view picture);
std::string PictureText(double x, std::string_view picture);
std::string PictureText(int32_t x, std::string_view picture);

// The text right-justified in exactly `width` columns: spaces in front of a shorter text, only the
// last `width` characters of a longer one.
std::string RightField(std::string_view text, int width);

// x rounded to 2 decimals on its exact stored value, an exact half going to the even digit.
double RoundEven2(double x);

// x rounded to 2 decimals through its decimal text: the text with the significant digits of its
// type (15 for f64, 7 for f32) is rounded half away from zero and read back into the type of x.
// So the f64 nearest 2.675, which lies below it, gives 2.68.
double Round2(double x);
float Round2(float x);

}  // namespace brennik
