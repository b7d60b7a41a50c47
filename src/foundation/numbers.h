// Numbers to text and back, as the "C" locale writes them, whatever locale the process is in.
#pragma once

#include <cstdint>
#include <string>

namespace TESK {

// The integer that begins the text, behind white space and a sign: 0 when there is none. A number out of
// range is cut to its low 64 bits, so that a caller that stores fewer bits always stores the low ones. A
// radix of 16 admits "0x"; with radix 0 the text tells: "0x" 16, "0" 8, otherwise 10. A radix below 2 or
// above 36 gives 0, and so does a null text.
std::int64_t parse_integer(const char* text, int radix = 10);

// The low 32 bits of the number that begins the text.
std::uint32_t cstr_to_uint32(const char* text, int radix);

// The number that begins the text, behind white space and a sign, in decimal, hexadecimal ("0x1p3"), or as
// "inf" or "nan": 0 when there is none. What is too large is infinite, what is too small is 0.
double parse_float64(const char* text);

// Appends the value in fixed-point notation with so many decimals, rounded to the nearest: "0.1000000015",
// "inf", "-nan". A negative number of decimals is taken as 6, one above 255 as 255.
void append_fixed(std::string& text, double value, int decimals);

// The same as append_fixed() with ten decimals, and much quicker.
void append_ten_decimals(std::string& text, float value);

// Appends the value in decimal or another radix (2 to 36, digits in lower case; any other is taken as 10).
void append_integer(std::string& text, std::int64_t value, int radix = 10);

std::string float32_to_cstr(float value, int precision);
std::string float64_to_cstr(double value, int precision);

// The value right-justified in `width` characters, with `precision` decimals, or six when `free_precision`.
// Among the first `width` characters every "." becomes `decimal_mark`. The text replaces what `buffer` held,
// and is returned. A number wider than `width` is written whole.
std::string& float32_to_cstr_formatted(float value, std::string& buffer, std::uint8_t width,
                                       std::uint8_t precision, char decimal_mark, bool free_precision);
std::string& float64_to_cstr_formatted(double value, std::string& buffer, std::uint8_t width,
                                       std::uint8_t precision, char decimal_mark, bool free_precision);

// The digits of the value behind as many `fill` characters as `width` asks for; a wider number is written
// whole. In radix 10 a negative value has its sign among the digits ("0-7"); in other radices its 32 bits are
// taken as unsigned. The text replaces what `buffer` held, and is returned.
std::string& int32_to_cstr_padded(std::int32_t value, std::string& buffer, int radix, char fill, int width);
std::string& uint32_to_cstr_padded(std::uint32_t value, std::string& buffer, int radix, char fill, int width);

// Whether the text has a white space behind a digit ("1.5 ha", and "abc1 def" too) or no letter at all ("",
// "1,5"): false for "abc", "12kg" and "1e-3". A null text counts as empty.
bool is_number_text(const char* text);

} // namespace TESK
