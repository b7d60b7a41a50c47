#include "records/typed_entries.h"

#include "foundation/labeled_enum.h"
#include "names/file_name.h"
#include "records/validation_status.h"
#include "temporal/date.h"
#include "units/units_clad.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstring>

using namespace TESK;

namespace {

std::string value_text(const VV_base_entry& entry) {
    std::string text;
    return entry.get_value(text);
}

std::string line_of(const VV_base_entry& entry) {
    std::string text;
    return entry.label_cstr(text);
}

TEST(Typed_entries, whole_numbers_are_cut_to_their_field) {
    std::int16_t int16 = 0;
    std::int32_t int32 = 0;
    std::uint8_t uint8 = 0;
    std::uint32_t uint32 = 0;
    VV_int16_entry int16_entry("k", int16, nullptr, nullptr);
    VV_int32_entry int32_entry("k", int32, nullptr, nullptr);
    VV_uint8_entry uint8_entry("k", uint8, 10, nullptr, nullptr);
    VV_uint32_entry hexadecimal("k", uint32, 16, nullptr, nullptr);
    struct Case {
        VV_base_entry& entry;
        const char* text;
        const char* value;
    };
    const Case cases[] = {
        {int16_entry, "70000", "4464"},
        {int16_entry, " -12 units", "-12"},
        {int16_entry, "units", "0"},
        {int16_entry, "", "0"},
        {int32_entry, "4294967297", "1"},
        {int32_entry, "-2147483648", "-2147483648"},
        {uint8_entry, "260", "4"},
        {hexadecimal, "FF", "ff"},
        {hexadecimal, "0x7ff text", "7ff"},
        {hexadecimal, "-1", "ffffffff"},
        {hexadecimal, "g", "0"},
    };
    for (const Case& c : cases) {
        EXPECT_TRUE(c.entry.set_value(c.text));
        EXPECT_EQ(value_text(c.entry), c.value) << c.text;
    }
}

TEST(Typed_entries, a_radix_of_two_reads_and_writes_bits) {
    std::uint32_t bits = 0;
    VV_uint32_entry entry("hourly", bits, 2, nullptr, nullptr);
    entry.set_value("101 and more");
    EXPECT_EQ(bits, 5U);
    EXPECT_EQ(line_of(entry), "hourly=101");
}

TEST(Typed_entries, floats_always_have_the_ten_decimals_of_a_32_bit_number) {
    float float32 = 0;
    double float64 = 0;
    VV_float32_entry narrow("k", float32, nullptr, nullptr);
    VV_float64_entry wide("k", float64, nullptr, nullptr);
    const std::pair<float, const char*> narrow_cases[] = {{0.1F, "0.1000000015"},   {0.8F, "0.8000000119"},
                                                          {350, "350.0000000000"},  {-0.0F, "-0.0000000000"},
                                                          {1e-11F, "0.0000000000"}, {INFINITY, "inf"}};
    for (const auto& [value, text] : narrow_cases) {
        float32 = value;
        EXPECT_EQ(value_text(narrow), text);
    }
    const std::pair<double, const char*> wide_cases[] = {
        {180, "180.0000000000"}, {1234567.891, "1234567.8750000000"}, {1e300, "inf"}};
    for (const auto& [value, text] : wide_cases) {
        float64 = value;
        EXPECT_EQ(value_text(wide), text);
    }
    narrow.set_value("12.5000000000  ha");
    EXPECT_EQ(float32, 12.5F);
    wide.set_value("1e-3");
    EXPECT_EQ(float64, 0.001);
}

TEST(Typed_entries, every_32_bit_number_has_the_digits_of_its_exact_value) {
    float value = 0;
    VV_float32_entry entry("k", value, nullptr, nullptr);
    const auto expect_exact = [&](std::uint32_t bits) {
        std::memcpy(&value, &bits, sizeof value);
        char exact[64];
        std::snprintf(exact, sizeof exact, "%.10f", static_cast<double>(value));
        if (!std::isnan(value)) {
            EXPECT_EQ(value_text(entry), exact) << bits;
        }
    };
    std::uint32_t random = 1;
    for (std::uint32_t upper = 0; upper < 512; ++upper) { // each sign and exponent
        for (const std::uint32_t mantissa : {0U, 1U, 0x400000U, 0x7FFFFEU, 0x7FFFFFU})
            expect_exact(upper << 23 | mantissa);
        for (int i = 0; i < 50; ++i)
            expect_exact(upper << 23 | (random = random * 1664525 + 1013904223) >> 9);
    }
}

TEST(Typed_entries, an_attached_status_tells_whether_the_text_looked_like_a_number) {
    float value = 0;
    Validation_status status = Validation_status::unchecked;
    VV_float32_entry entry("k", value, nullptr, nullptr);
    entry.set_value("abc");
    EXPECT_EQ(status, Validation_status::unchecked);
    entry.set_validation_status(&status);
    for (const auto& [text, wanted] :
         {std::pair("1.5 ha", Validation_status::good), std::pair("abc", Validation_status::not_valid),
          std::pair("1e-3", Validation_status::not_valid), std::pair("", Validation_status::good)}) {
        entry.set_value(text);
        EXPECT_EQ(status, wanted) << text;
    }
}

TEST(Typed_entries, words_and_numbers_read_as_booleans) {
    bool value = false;
    VV_bool_entry entry("k", value, 3, nullptr, nullptr);
    for (const char* text : {"true", "TRUE", "T", "on", "ON", "1", "-1", "7", "2 annotation"}) {
        entry.set_value(text);
        EXPECT_TRUE(value) << text;
    }
    for (const char* text : {"false", "off", "of", "o", "0", "", "no", "yes", "maybe", "n", "F1"}) {
        value = true;
        entry.set_value(text);
        EXPECT_FALSE(value) << text;
    }
    const char* words[][2] = {{"0", "1"},        {"f", "t"},        {"F", "T"},
                              {"false", "true"}, {"False", "True"}, {"FALSE", "TRUE"}};
    for (std::uint8_t form = 0; form < 6; ++form) {
        for (const bool b : {false, true}) {
            value = b;
            EXPECT_EQ(value_text(VV_bool_entry("k", value, form, nullptr, nullptr)), words[form][b]);
        }
    }
}

TEST(Typed_entries, a_date_is_its_number_and_words_that_nothing_reads_back) {
    Date date(1996123);
    VV_date_entry entry("date", date, false, nullptr, nullptr);
    EXPECT_EQ(line_of(entry), "date=1996123 (1996/5/2)");
    EXPECT_EQ(entry.get_max_strlen(), 8);
    entry.set_value("2000161 (2 May 1996)");
    EXPECT_EQ(date.date_num, 2000161);
    entry.set_value("0 (Date omitted)");
    EXPECT_EQ(line_of(entry), "date=0 (Date omitted)");
    VV_date_entry in_words("date", date, true, nullptr, nullptr);
    in_words.set_value("2001/2/3");
    EXPECT_EQ(date.date_num, 2001034);
}

TEST(Typed_entries, units_stand_by_their_abbreviation) {
    Units_clad units(0x2A820603);
    VV_units_entry entry("units", units);
    EXPECT_EQ(line_of(entry), "units=kg/ha");
    entry.set_value("%");
    EXPECT_EQ(units.code, 3U);
    EXPECT_EQ(value_text(entry), "%");
    entry.set_value("kg/m\xB2");
    EXPECT_EQ(units.code, 0x28800603U);
}

TEST(Typed_entries, texts_and_names_stand_as_they_are_and_annotations_follow_a_blank) {
    Ustring text = "some text ";
    File_name name;
    std::int16_t number = 3;
    float size = 12;
    VV_string_entry string("s", text, 255, nullptr, "");
    VV_filename_entry file("f", name, 128, nullptr, nullptr);
    file.set_value("Database\\x.sil ");
    EXPECT_EQ(line_of(string), "s=some text ");
    EXPECT_EQ(line_of(file), "f=Database\\x.sil ");
    EXPECT_EQ(line_of(VV_int16_entry("n", number, "one", "two")), "n=3 one two");
    EXPECT_EQ(line_of(VV_int16_entry("n", number, nullptr, "two")), "n=3 two");
    EXPECT_EQ(line_of(VV_float32_entry("size", size, " ha", nullptr)), "size=12.0000000000  ha");
}

TEST(Typed_entries, a_column_shows_numbers_in_its_width_and_with_its_decimal_mark) {
    const Field_format format{8, "####.##", ','};
    std::int16_t whole = 42;
    float real = 1.5F;
    VV_int16_entry whole_entry("k", whole, nullptr, nullptr);
    VV_float32_entry real_entry("k", real, nullptr, nullptr);
    double exact = 123456.79;
    VV_float64_entry exact_entry("k", exact, nullptr, nullptr);
    whole_entry.column_format = real_entry.column_format = exact_entry.column_format = &format;
    EXPECT_EQ(value_text(whole_entry), "      42");
    EXPECT_EQ(value_text(real_entry), "    1,50");
    EXPECT_EQ(value_text(exact_entry), "123456,79");
}

} // namespace
