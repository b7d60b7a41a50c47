#include "foundation/numbers.h"

#include <cfloat>
#include <clocale>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <gtest/gtest.h>
#include <limits>
#include <locale>
#include <sstream>
#include <vector>

namespace TESK {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double not_a_number = std::numeric_limits<double>::quiet_NaN();
constexpr double spread[] = {0.0,      -0.0,         0.5,          1.5,          2.5,       -0.05,
                             0.125,    0.1f,         1.005,        9.995,        -999.9999, 123456.789,
                             1e15 / 3, 4294967296.0, 1e22,         1.5e-7,       FLT_MIN,   FLT_TRUE_MIN,
                             DBL_MIN,  DBL_TRUE_MIN, FLT_MAX,      -FLT_MAX,     DBL_MAX,   -DBL_MAX,
                             infinity, -infinity,    not_a_number, -not_a_number};

template <class... Arguments>
std::string printed(const char* format, Arguments... arguments) {
    char buffer[2048];
    std::snprintf(buffer, sizeof buffer, format, arguments...);
    return buffer;
}

std::vector<std::string> split(const char* text) {
    std::istringstream in(text);
    std::vector<std::string> pieces;
    for (std::string piece; std::getline(in, piece, '|');)
        pieces.push_back(piece);
    return pieces;
}

TEST(Numbers, text_of_real_numbers_is_what_printf_writes) {
    std::string buffer = "what was there";
    for (const double value : spread) {
        const auto single = static_cast<float>(value);
        for (const int precision : {-1, 0, 1, 2, 6, 17, 60, 255}) {
            EXPECT_EQ(float64_to_cstr(value, precision), printed("%.*f", precision, value));
            EXPECT_EQ(float32_to_cstr(single, precision), printed("%.*f", precision, single));
            for (const std::uint8_t width : {0, 1, 4, 12, 255}) {
                const auto digits = static_cast<std::uint8_t>(precision);
                EXPECT_EQ(float64_to_cstr_formatted(value, buffer, width, digits, '.', false),
                          printed("%*.*f", width, digits, value));
                EXPECT_EQ(float32_to_cstr_formatted(single, buffer, width, digits, '.', true),
                          printed("%*f", width, single));
            }
        }
    }
}

TEST(Numbers, the_decimal_mark_is_set_within_the_width_alone) {
    std::string buffer;
    EXPECT_EQ(float32_to_cstr_formatted(1.5F, buffer, 6, 2, ',', false), "  1,50");
    EXPECT_EQ(float64_to_cstr_formatted(-12.25, buffer, 4, 1, ',', false), "-12,2");
    EXPECT_EQ(float64_to_cstr_formatted(-12.25, buffer, 3, 1, ',', false), "-12.2");
}

TEST(Numbers, real_numbers_are_read_as_strtod_reads_them) {
    auto texts =
        split("|0|-0|12| \t\n\v\f\r7.5 ha|+3|-3.25|+-3|--3|-|+|- 5|-x|.|-.|.5|5.|.e3|1e3|1E+3|1e-3x|1e|1e+|"
              "1,5|1.2.3|inf|-INF|Infinity|infinit|nan|-NaN|nan(1)|0x|0x10|-0X1.8p3|0x.8|0x1p|0xg|0x.|"
              "0x1e-3|1e308|1e309|-1e999|1e-307|1e-310|4.9e-324|2e-324|-1e-400|1e99999999999999999999|"
              "1e-99999999999999999999|0e99999999999|0x1p-1074|0x1p-1075|0x1p1023|0x1p1024|0xep-20000|"
              "0x1p-99999|1.7976931348623157e308|1.7976931348623159e308|2.2250738585072011e-308|0.1|\xE9");
    const std::string ones(6000, '1');
    const std::string zeros(6000, '0');
    for (const auto& text :
         {ones, "0." + zeros + "1", "-" + ones + "e-10", ones + "e-5990", "0." + zeros + "1e+10",
          "0." + zeros + "1e+6000", "0x0." + zeros + "1p+20000", ones + "e-0000000000000000000001"})
        texts.push_back(text);
    for (const std::string& text : texts) {
        const double expected = std::strtod(text.c_str(), nullptr);
        const double read = parse_float64(text.c_str());
        EXPECT_TRUE(read == expected || (std::isnan(read) && std::isnan(expected))) << text << ' ' << read;
        EXPECT_EQ(std::signbit(read), std::signbit(expected)) << text;
    }
    EXPECT_EQ(parse_float64(nullptr), 0.0);
}

TEST(Numbers, integers_are_read_as_strtol_reads_them) {
    for (const std::string& text :
         split("|0|17| \t\n\v\f\r-17 ha|+8|+-8|- 8|-|9x|x9|1.9|1e3|0x1F|-0x1f|0x|0xg|012|zz|Az|"
               "777|123456789012|-2147483649|\xB2")) {
        for (const int radix : {0, 2, 8, 10, 16, 36}) {
            const std::int64_t expected = std::strtoll(text.c_str(), nullptr, radix);
            EXPECT_EQ(parse_integer(text.c_str(), radix), expected) << text << ' ' << radix;
            EXPECT_EQ(cstr_to_uint32(text.c_str(), radix), static_cast<std::uint32_t>(expected)) << text;
        }
    }
    EXPECT_EQ(parse_integer(nullptr), 0);
    EXPECT_EQ(parse_integer("-0x1F", 0), -31);
    for (const int radix : {-1, 1, 37, 255}) {
        std::string decimal;
        EXPECT_EQ(cstr_to_uint32("11", radix), 0U);
        EXPECT_EQ((append_integer(decimal, 11, radix), decimal), "11");
    }
    // Out of range, the low bits are what counts.
    EXPECT_EQ(static_cast<std::int16_t>(parse_integer("40000")), -25536);
    EXPECT_EQ(cstr_to_uint32("4294967298", 10), 2U);
    EXPECT_EQ(parse_integer("-18446744073709551619"), -3);
}

TEST(Numbers, padding_stands_before_the_digits_and_never_cuts_them) {
    const std::tuple<std::int32_t, int, char, int, const char*> cases[] = {
        {7, 10, '0', 3, "007"},
        {1234, 10, '0', 3, "1234"},
        {-7, 10, '0', 4, "00-7"},
        {0, 10, ' ', -3, "0"},
        {INT32_MIN, 10, ' ', 12, " -2147483648"},
        {-1, 16, '0', 9, "0ffffffff"},
        {-2, 2, '0', 0, "11111111111111111111111111111110"}};
    std::string buffer;
    for (const auto& [value, radix, fill, width, text] : cases)
        EXPECT_EQ(int32_to_cstr_padded(value, buffer = "what was there", radix, fill, width), text);
    EXPECT_EQ(uint32_to_cstr_padded(4294967295U, buffer, 10, '.', 12), "..4294967295");
}

TEST(Numbers, a_number_text_is_judged_by_its_first_word_with_a_digit) {
    for (const char* text : {"", "12", "12 kg", "-1.5\tha", "abc1 def", "1,5", "..", "\xE9"})
        EXPECT_TRUE(is_number_text(text)) << text;
    for (const char* text : {"kg", "12kg", "1e5", "a b", "kg 12x", " x"})
        EXPECT_FALSE(is_number_text(text)) << text;
}

TEST(Numbers, no_locale_changes_a_number) {
    class Comma : public std::numpunct<char> {
        char do_decimal_point() const override { return ','; }
        std::string do_grouping() const override { return "\3"; }
    };
    const std::locale before = std::locale::global(std::locale(std::locale::classic(), new Comma));
    bool found = false;
    for (const char* name : {"de_DE.UTF-8", "de_DE", "fr_FR.UTF-8", "it_IT.UTF-8", "nl_NL.UTF-8"})
        found = found || std::setlocale(LC_ALL, name) != nullptr;
    std::string text;
    EXPECT_EQ(float64_to_cstr(1234567.25, 2), "1234567.25");
    EXPECT_EQ(parse_float64("1234.5"), 1234.5);
    EXPECT_EQ(parse_integer("1.234"), 1);
    EXPECT_EQ(int32_to_cstr_padded(1234567, text, 10, '0', 9), "001234567");
    std::setlocale(LC_ALL, "C");
    std::locale::global(before);
    if (!found)
        GTEST_SKIP()
            << "no locale with a decimal comma is installed; that of the C++ library alone was tried";
}

} // namespace
} // namespace TESK
