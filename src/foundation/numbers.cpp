#include "foundation/numbers.h"

#include "foundation/code_page_1252.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <cmath>
#include <limits>
#include <string_view>

namespace TESK {

namespace {

constexpr int least_radix = 2;
constexpr int largest_radix = 36;

const char* skip_white_space(const char* text) {
    while (is_white_space(*text))
        ++text;
    return text;
}

// Takes a sign off the front of the text; true for a minus.
bool take_sign(const char*& text) {
    const bool negative = *text == '-';
    if (negative || *text == '+')
        ++text;
    return negative;
}

int digit_value(char c) {
    return is_digit(c) ? c - '0' : is_letter(c) ? to_ascii_lower(c) - 'a' + 10 : 36;
}

bool take_hexadecimal_prefix(const char*& text) {
    if (text[0] != '0' || to_ascii_lower(text[1]) != 'x')
        return false;
    const char* digits = text[2] == '.' ? text + 3 : text + 2;
    if (digit_value(*digits) >= 16)
        return false;
    text += 2;
    return true;
}

// Whether a number that no double holds is too small rather than too large: its first digit that counts
// stands so far from the point that the sign of the distance, with the exponent added, decides.
bool is_below_range(std::string_view number, std::chars_format format) {
    const bool hexadecimal = format == std::chars_format::hex;
    const std::size_t end = std::min(number.find_first_of(hexadecimal ? "pP" : "eE"), number.size());
    const std::size_t point = std::min(number.find('.'), end);
    const std::size_t first = number.find_first_not_of("0.");
    std::int64_t places = static_cast<std::int64_t>(point) - static_cast<std::int64_t>(first);
    if (hexadecimal)
        places *= 4;
    if (end == number.size())
        return places < 0;
    const std::string_view exponent = number.substr(end + 1);
    const std::size_t digits = exponent.size() - std::min(exponent.find_first_not_of("+-0"), exponent.size());
    constexpr std::size_t most_digits = 18; // no text is long enough to make up for more
    if (digits > most_digits)
        return exponent.front() == '-';
    return places + parse_integer(std::string(exponent).c_str()) < 0;
}

std::string& format_float(double value, std::string& buffer, std::uint8_t width, std::uint8_t precision,
                          char decimal_mark, bool free_precision) {
    constexpr int free_decimals = 6;
    buffer.clear();
    append_fixed(buffer, value, free_precision ? free_decimals : precision);
    if (buffer.size() < width)
        buffer.insert(0, width - buffer.size(), ' ');
    std::replace(buffer.begin(), buffer.begin() + width, '.', decimal_mark);
    return buffer;
}

std::string& pad_integer(std::int64_t value, std::string& buffer, int radix, char fill, int width) {
    std::string digits;
    append_integer(digits, value, radix);
    const auto wanted = static_cast<std::size_t>(std::max(width, 0));
    buffer.assign(wanted > digits.size() ? wanted - digits.size() : 0, fill);
    return buffer += digits;
}

} // namespace

std::int64_t parse_integer(const char* text, int radix) {
    if (text == nullptr)
        return 0;
    text = skip_white_space(text);
    const bool negative = take_sign(text);
    if (radix == 0)
        radix = take_hexadecimal_prefix(text) ? 16 : *text == '0' ? 8 : 10;
    else if (radix == 16)
        take_hexadecimal_prefix(text);
    else if (radix < least_radix || radix > largest_radix)
        return 0;
    std::uint64_t value = 0;
    for (int digit = digit_value(*text); digit < radix; digit = digit_value(*++text))
        value = value * static_cast<unsigned>(radix) + static_cast<unsigned>(digit);
    return static_cast<std::int64_t>(negative ? 0 - value : value);
}

std::uint32_t cstr_to_uint32(const char* text, int radix) {
    return static_cast<std::uint32_t>(parse_integer(text, radix));
}

double parse_float64(const char* text) {
    if (text == nullptr)
        return 0;
    text = skip_white_space(text);
    const bool negative = take_sign(text);
    if (*text == '-' || *text == '+')
        return 0;
    const auto format = take_hexadecimal_prefix(text) ? std::chars_format::hex : std::chars_format::general;
    const char* end = text + std::string_view(text).size();

    double value = 0;
    const auto read = std::from_chars(text, end, value, format);
    if (read.ec == std::errc::invalid_argument)
        return 0;
    if (read.ec == std::errc::result_out_of_range) {
        const std::string_view number(text, static_cast<std::size_t>(read.ptr - text));
        value = is_below_range(number, format) ? 0.0 : std::numeric_limits<double>::infinity();
    }
    return negative ? -value : value;
}

void append_fixed(std::string& text, double value, int decimals) {
    // The sign, the digits before the point of the largest double, the point, and up to 255 decimals fit in
    // this.
    constexpr int most_decimals = 255;
    constexpr int default_decimals = 6;
    if (decimals < 0)
        decimals = default_decimals;
    char digits[1 + std::numeric_limits<double>::max_exponent10 + 2 + most_decimals];
    const auto written = std::to_chars(digits, digits + sizeof digits, value, std::chars_format::fixed,
                                       std::min(decimals, most_decimals));
    text.append(digits, static_cast<std::size_t>(written.ptr - digits));
}

void append_ten_decimals(std::string& text, float value) {
    static_assert(std::numeric_limits<float>::is_iec559);
    constexpr std::uint64_t scale = 10'000'000'000;
    constexpr int decimals = 10;
    constexpr int mantissa_bits = std::numeric_limits<float>::digits - 1; // the leading 1 is not kept
    constexpr std::uint32_t mantissa_mask = (1U << mantissa_bits) - 1;
    constexpr int exponent_bias = 127 + mantissa_bits;
    const auto bits = std::bit_cast<std::uint32_t>(value);
    const int biased_exponent = bits >> mantissa_bits & 0xFF;
    const int shift = exponent_bias - biased_exponent; // the value is mantissa / 2^shift
    char digits[32];
    char* end = std::end(digits);
    std::uint64_t whole = 0;
    std::uint64_t fraction = 0;
    if (shift > 0 && shift < 64) {
        const std::uint64_t mantissa = (bits & mantissa_mask) | (1U << mantissa_bits);
        // The mantissa has 24 bits and the scale 34, so that nothing is lost before the one rounding.
        const std::uint64_t unit = std::uint64_t{1} << shift;
        const std::uint64_t scaled = (mantissa & (unit - 1)) * scale;
        fraction = scaled >> shift;
        const std::uint64_t rest = scaled & (unit - 1);
        if (rest > unit / 2 || (rest == unit / 2 && fraction % 2 != 0))
            ++fraction;
        whole = mantissa >> shift;
        if (fraction == scale) {
            fraction = 0;
            ++whole;
        }
    } else if (value != 0) {
        append_fixed(text, value, decimals);
        return;
    }
    std::fill_n(end - decimals, decimals, '0'); // all that most numbers need
    for (char* digit = end; fraction != 0; fraction /= 10)
        *--digit = static_cast<char>('0' + fraction % 10);
    end -= decimals;
    *--end = '.';
    do
        *--end = static_cast<char>('0' + whole % 10);
    while ((whole /= 10) != 0);
    if (std::signbit(value))
        *--end = '-';
    text.append(end, static_cast<std::size_t>(std::end(digits) - end));
}

void append_integer(std::string& text, std::int64_t value, int radix) {
    if (value == 0 || value == 1 || (value > 1 && value < 10 && radix == 10)) {
        text += static_cast<char>('0' + value);
        return;
    }
    char digits[65];
    if (radix < least_radix || radix > largest_radix)
        radix = 10;
    const char* const end = std::to_chars(digits, digits + sizeof digits, value, radix).ptr;
    text.append(digits, static_cast<std::size_t>(end - digits));
}

std::string float32_to_cstr(float value, int precision) {
    return float64_to_cstr(value, precision);
}

std::string float64_to_cstr(double value, int precision) {
    std::string text;
    append_fixed(text, value, precision);
    return text;
}

std::string& float32_to_cstr_formatted(float value, std::string& buffer, std::uint8_t width,
                                       std::uint8_t precision, char decimal_mark, bool free_precision) {
    return format_float(value, buffer, width, precision, decimal_mark, free_precision);
}

std::string& float64_to_cstr_formatted(double value, std::string& buffer, std::uint8_t width,
                                       std::uint8_t precision, char decimal_mark, bool free_precision) {
    return format_float(value, buffer, width, precision, decimal_mark, free_precision);
}

std::string& int32_to_cstr_padded(std::int32_t value, std::string& buffer, int radix, char fill, int width) {
    const bool is_signed = radix == 10;
    const auto number = static_cast<std::uint32_t>(value);
    return pad_integer(is_signed ? std::int64_t{value} : std::int64_t{number}, buffer, radix, fill, width);
}

std::string& uint32_to_cstr_padded(std::uint32_t value, std::string& buffer, int radix, char fill,
                                   int width) {
    return pad_integer(value, buffer, radix, fill, width);
}

bool is_number_text(const char* text) {
    bool result = true;
    bool digit_seen = false;
    for (; text != nullptr && *text != 0; ++text) {
        if (is_digit(*text))
            digit_seen = true;
        else if (is_white_space(*text) && digit_seen)
            return true;
        else if (is_letter(*text))
            result = false;
    }
    return result;
}

} // namespace TESK
