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

// What the entry makes of a text.
std::string through(VV_base_entry& entry, const char* text) {
    EXPECT_TRUE(entry.set_value(text));
    return value_text(entry);
}
// What a new entry for such a field does.
template <class Entry, class Field, class... Radix>
std::string through(const char* text, Radix... radix) {
    Field field{};
    Entry entry("k", field, radix..., nullptr, nullptr);
    return through(entry, text);
}

std::string line_of(const VV_base_entry& entry) {
    std::string text;
    return entry.label_cstr(text);
}

TEST(Typed_entries, whole_numbers_are_cut_to_their_field) {
    const auto int16 = through<VV_int16_entry, std::int16_t>;
    const auto int32 = through<VV_int32_entry, std::int32_t>;
    const auto uint8 = through<VV_uint8_entry, std::uint8_t, std::uint8_t>;
    const auto uint32 = through<VV_uint32_entry, std::uint32_t, std::uint8_t>;
    EXPECT_EQ(int16("70000"), "4464");
    EXPECT_EQ(int16(" -12 units"), "-12");
    EXPECT_EQ(int16("units"), "0");
    EXPECT_EQ(int32("4294967297"), "1");
    EXPECT_EQ(int32("-2147483648"), "-2147483648");
    EXPECT_EQ(uint8("260", 10), "4");
    EXPECT_EQ(uint32("0x7FF text", 16), "7ff");
    EXPECT_EQ(uint32("-1", 16), "ffffffff");
    EXPECT_EQ(uint32("g", 16), "0");
    EXPECT_EQ(uint32("101 and more", 2), "101");
}

TEST(Typed_entries, floats_always_have_the_ten_decimals_of_a_32_bit_number) {
    float float32 = 0;
    double float64 = 0;
    VV_float32_entry narrow("k", float32, nullptr, nullptr);
    VV_float64_entry wide("k", float64, nullptr, nullptr);
    EXPECT_EQ(through(narrow, "0.1"), "0.1000000015");
    EXPECT_EQ(through(narrow, "12.5000000000  ha"), "12.5000000000");
    EXPECT_EQ(through(wide, "1234567.891"), "1234567.8750000000");
    EXPECT_EQ(through(wide, "1e300"), "inf");
    through(wide, "1e-3");
    EXPECT_EQ(float64, 0.001);

    const auto expect_exact = [&](std::uint32_t bits) {
        std::memcpy(&float32, &bits, sizeof float32);
        char exact[64];
        std::snprintf(exact, sizeof exact, "%.10f", static_cast<double>(float32));
        if (!std::isnan(float32)) {
            EXPECT_EQ(value_text(narrow), exact) << bits;
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
    entry.set_validation_status(&status);
    for (const auto& [text, is_good] :
         {std::pair("1.5 ha", true), {"abc", false}, {"1e-3", false}, {"", true}}) {
        entry.set_value(text);
        EXPECT_EQ(status, is_good ? Validation_status::good : Validation_status::not_valid) << text;
    }
}

TEST(Typed_entries, words_and_numbers_read_as_booleans) {
    bool value = false;
    VV_bool_entry entry("k", value, 3, nullptr, nullptr);
    for (const char* text : {"true", "TRUE", "T", "on", "ON", "1", "-1", "7", "2 annotation"})
        EXPECT_EQ(through(entry, text), "true") << text;
    for (const char* text : {"false", "off", "of", "o", "0", "", "no", "yes", "maybe", "n", "F1"}) {
        value = true;
        EXPECT_EQ(through(entry, text), "false") << text;
    }
}

TEST(Typed_entries, a_date_is_its_number_and_words_that_nothing_reads_back) {
    Date date(1996123);
    VV_date_entry entry("date", date, false, nullptr, nullptr);
    EXPECT_EQ(line_of(entry), "date=1996123 (1996/5/2)");
    EXPECT_EQ(entry.get_max_strlen(), 8);
    EXPECT_EQ(through(entry, "2000161 (2 May 1996)"), "2000161 (2000/6/9)");
    EXPECT_EQ(through(entry, "0 (Date omitted)"), "0 (Date omitted)");
    VV_date_entry in_words("date", date, true, nullptr, nullptr);
    EXPECT_EQ(through(in_words, "2001/2/3"), "2001034 (2001/2/3)");
}

TEST(Typed_entries, texts_and_names_stand_as_they_are_and_annotations_follow_a_blank) {
    Ustring text = "some text ";
    File_name name;
    float size = 12;
    VV_filename_entry file("f", name, 128, nullptr, nullptr);
    file.set_value("Database\\x.sil ");
    EXPECT_EQ(line_of(VV_string_entry("s", text, 255, nullptr, "")), "s=some text ");
    EXPECT_EQ(line_of(file), "f=Database\\x.sil ");
    EXPECT_EQ(line_of(VV_string_entry("s", text, 255, nullptr, "two")), "s=some text  two");
    EXPECT_EQ(line_of(VV_float32_entry("size", size, " ha", "x")), "size=12.0000000000  ha x");
}

TEST(Typed_entries, a_column_shows_numbers_in_its_width_and_with_its_decimal_mark) {
    const Field_format format{8, "####.##", ','};
    std::int16_t whole = 42;
    float real = 1.5F;
    double exact = 123456.79;
    VV_int16_entry whole_entry("k", whole, nullptr, nullptr);
    VV_float32_entry real_entry("k", real, nullptr, nullptr);
    VV_float64_entry exact_entry("k", exact, nullptr, nullptr);
    whole_entry.column_format = real_entry.column_format = exact_entry.column_format = &format;
    EXPECT_EQ(value_text(whole_entry), "      42");
    EXPECT_EQ(value_text(real_entry), "    1,50");
    EXPECT_EQ(value_text(exact_entry), "123456,79");
}

} // namespace
