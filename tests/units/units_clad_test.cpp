#include "units/units_clad.h"

#include "units/unit_tables.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <vector>

using namespace TESK;
using namespace TESK::unit_tables;

namespace {

constexpr int dates_and_times = 16;
constexpr int electric_charge = 113;
constexpr int electric_flux = 114;

std::string hexadecimal(std::uint32_t code) {
    char text[9];
    std::snprintf(text, sizeof text, "%X", code);
    return text;
}

std::uint16_t unit_code(int row, int power) {
    return static_cast<std::uint16_t>(row << 8 | (power < 0 ? negative_exponent_bit - power : power));
}

bool is_plain(std::uint16_t code) {
    const auto rows = plain_units();
    return std::any_of(rows.begin(), rows.end(), [&](const Unit& row) { return row.code == code; });
}

struct Rendering {
    std::uint32_t code;
    const char* description;
    const char* abbreviation;
};

void expect_renderings(bool found, std::initializer_list<Rendering> renderings) {
    for (const Rendering& r : renderings) {
        std::string description = "before";
        std::string abbreviation = "before";
        EXPECT_EQ(Units_clad(r.code).compose_labels(description, abbreviation), found) << hexadecimal(r.code);
        EXPECT_EQ(description, r.description);
        EXPECT_EQ(abbreviation, r.abbreviation);
        EXPECT_EQ(Units_clad(r.code).get_label(description), r.description);
    }
}

TEST(Units_clad, plain_units_are_found_by_their_whole_code) {
    expect_renderings(true,
                      {{0, "unitless", "-"}, {0x0003, "percent", "%"}, {0x4003, "\260longitude", "\260"}});
    // Two of them only so, and not as a half of a code.
    std::string text;
    EXPECT_EQ(Units_clad(0x204A).get_label(text), "angstrom");
    EXPECT_EQ(Units_clad(0x7A44).get_label(text), "gauss");
    std::string abbreviation;
    EXPECT_TRUE(Units_clad(0x204A).compose_labels(text, abbreviation));
    EXPECT_EQ(text, "10^-10meter (linear)");
}

TEST(Units_clad, metric_units_have_a_prefix) {
    expect_renderings(true, {{0x1643, "millisecond (second)", "msec"},
                             {0x0603, "kilogram (mass)", "kg"},
                             {0x2A02, "hectoare (land area)", "ha"},
                             {0x0646, "microgram (mass)", "\265g"},
                             {0x2004, "10^4?meter (linear)", "?m"},
                             {0x2050, "10^-15meter (linear)", "?m"},
                             {0x2019, "10^25meter (linear)", "m"},
                             {0x207F, "10^-63meter (linear)", "m"},
                             {0x0703, "kilo (liquid weight)", "k"}});
}

TEST(Units_clad, of_english_rows_that_share_a_code_the_first_is_told_but_for_the_first_of_all) {
    expect_renderings(true, {{0x8100, "Farenheit degree days", "\260F-days"},
                             {0xA007, "rod", "rod"},
                             {0xCC00, "calorie", "cal"},
                             {0x8606, "pound", "lb"}});
}

TEST(Units_clad, a_second_half_follows_the_first) {
    expect_renderings(true, {{0x2A820603, "kilogram (mass) per hectoare (land area)", "kg/ha"},
                             {0x1880A00B, "statute mile per hour (hour)", "mile/h"},
                             {0x0100A005, "footcelcius (temperature)", "ft\260C"},
                             {0x28800000, "- (unitless) per square meter (rectangular area)", "-/m\262"},
                             // The reciprocal of a plain unit is not in the table of plain units.
                             {0x1980, " per day (day)", "/d"},
                             {0x00830603, "kilogram (mass) per kilo- (unitless)", "kg/k-"},
                             {0xA0850603, "kilogram (mass) per foot", "kg/ft"},
                             {0xAA808606, "pound per acre", "lb/acre"},
                             // The second half alone says whether there is a label.
                             {0x2000A00D, "meter (linear)", "m"}});
}

TEST(Units_clad, codes_without_a_label_give_what_can_be_told) {
    expect_renderings(
        false,
        {{0x0903, "kilo", "k"}, {0xFFFF, " per ", "/"}, {0xFFFFFFFF, " per  per ", "//"}, {0xA00D, "", ""}});
}

struct Reading {
    std::uint32_t code;
    std::vector<const char*> texts;
};

void expect_readings(const std::vector<Reading>& readings) {
    for (const Reading& r : readings)
        for (const char* text : r.texts)
            EXPECT_EQ(hexadecimal(Units_clad::parse_label(text)), hexadecimal(r.code))
                << (text ? text : "null");
}

TEST(Units_clad, compound_labels_and_either_degree_sign_are_read) {
    expect_readings({{0x18802003, {"kph"}},
                     {0x28C2CC00, {"langley", "Langley"}},
                     {0x5802, {"mbar"}},
                     {0x0100, {"\260C", "\272C"}},
                     {0x8100, {"\272F-days"}},
                     {0x01800603, {"kg/\272C"}}});
}

TEST(Units_clad, masks_of_dates_and_times_are_read_wherever_they_stand) {
    expect_readings({{0x1001, {"YYYY/MM/DD", "yy-mm", "yyyyddd", "dddYY", "YYMM HH"}},
                     {0x1000, {"HH:MM", "hh.mm.ss", "MM hh"}},
                     {0x2043, {"mm"}},
                     {0xFFFF, {"YYYY", "HH:SS", "MMDD"}}});
}

TEST(Units_clad, the_first_separator_splits) {
    expect_readings({{0x20005000, {"N*m", "N.m", "N\267m", "N\327m"}},
                     {0x20805000, {"N/m", "N\367m"}},
                     {0xFFFF0600, {"g/m/d", "g*m/d", "g/", "g/?"}},
                     {0x2A820603, {"kg/ha", "kilogram/hectare"}},
                     {0x2080FFFF, {"/m"}},
                     {0x28800000, {"-/m\262"}},
                     {0xFFFFFFFF, {"/"}},
                     // The words of a description are no separator, nor its brackets a part of a name.
                     {0xFFFF, {"gram per meter", "kilogram (mass)"}}});
}

TEST(Units_clad, hexadecimal_digits_are_the_code_where_no_unit_is_found) {
    expect_readings({{0x2A820603, {"2A820603", "12A820603"}},
                     {0x2A82, {"00002a82"}},
                     {0xFFFFFFFF, {"FFFFFFFF"}},
                     {3, {"3"}},
                     {0, {"0", "", nullptr}},
                     {0xFFFF, {"12 ", "0x12", "-12"}},
                     {0xFFFF, {"x", "kilog", "kgram", "k", "?"}},
                     // Units all the same.
                     {0x2000, {"meters"}},
                     {0x2A02, {"hectare"}},
                     {0x1643, {"ms"}},
                     {1, {"1"}},
                     {0x7000, {"A"}},
                     {0x1941, {"dd"}}});
}

TEST(Units_clad, a_time_step_is_a_number_and_the_last_word_for_a_step) {
    expect_readings({{0x141E, {"30 minute", "30min", "30 hours or minutes"}},
                     {0x1506, {"6 hr", " 6 hours", "6 min of an hour"}},
                     {0x130A, {"10 sec", "+10 seconds"}},
                     {0x1500, {"hr", "every 5 hours"}},
                     {0x12FF, {"-1 sec", "9223372036854775807 sec"}},
                     {0x1505FFFF, {"0.5 hour"}},
                     {0x1700, {"min", "minute"}}});
}

// The codes whose abbreviation is read as another code.
const std::map<std::uint32_t, std::uint32_t> taken = {
    {0x1942, 0x0C00},     {0x784C, 0x0020},    // centiday is candela, picohenry potential hydrogen
    {0x4003, 0x4001},     {0x4004, 0x4001},    // longitude and latitude are degrees
    {0x204A, 0x2004},     {0x7A44, 0x7A04},    // angstrom and gauss are powers of ten without an abbreviation
    {0x2019, 0x2000},                          // above 24 the power of ten is not told
    {0x3500, 0},          {0x3543, 0x2000},    // the dry measure and the weights have no abbreviation
    {0x20005000, 0xFFFF}, {0x0080, 0x0080FFFF} // only a second unit is read, and only behind "per"
};

void expect_read_back(std::uint32_t code, std::uint32_t as) {
    std::string description;
    std::string abbreviation;
    Units_clad(code).compose_labels(description, abbreviation);
    expect_readings({{taken.contains(code) ? taken.at(code) : as, {abbreviation.c_str()}}});
}

TEST(Units_clad, abbreviations_are_read_back_but_for_those_that_others_share) {
    for (int row = 0; row < quantity_count; ++row)
        for (int power = 1 - prefix_count; power < prefix_count; ++power) {
            const std::uint16_t code = unit_code(row, power);
            // The name of a date or time holds a separator.
            if (*quantities()[row].abbreviation == 0 || row == dates_and_times)
                continue;
            const bool nameless = positive_prefixes()[std::abs(power)].abbreviation == std::string("?");
            const int read_row = row == electric_flux ? electric_charge : row;
            expect_read_back(code, is_plain(code) ? code : unit_code(read_row, nameless ? 4 : power));
            // By its name every power of ten is read back.
            const Prefix& prefix = (power < 0 ? negative_prefixes() : positive_prefixes())[std::abs(power)];
            const std::string name = std::string(prefix.name) + quantities()[row].unit;
            expect_readings({{unit_code(read_row, power), {name.c_str()}}});
        }
    for (const auto& [code, as] : taken)
        expect_read_back(code, as);
    for (const Compound& row : compounds()) {
        expect_read_back(row.code, row.code);
        expect_readings({{row.code, {row.label}}});
    }
    for (const Unit& row : english_units())
        expect_read_back(row.code, row.code);
    for (const auto rows : {plain_units(), english_units()})
        for (const Unit& row : rows) {
            const bool is_of_a_year = row.description == std::string("quarter"); // before the English one
            EXPECT_EQ(Units_clad::parse_unit(row.description), is_of_a_year ? 0x1210 : row.code);
        }
}

} // namespace
