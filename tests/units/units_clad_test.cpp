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

TEST(Units_clad, a_code_is_told_by_description_and_abbreviation) {
    const std::tuple<std::uint32_t, bool, const char*, const char*> renderings[] = {
        // Plain units are found by their whole code; two of them only so, and not as a half of a code.
        {0, true, "unitless", "-"},
        {0x0003, true, "percent", "%"},
        {0x4003, true, "\260longitude", "\260"},
        // Metric units have a prefix.
        {0x1643, true, "millisecond (second)", "msec"},
        {0x0603, true, "kilogram (mass)", "kg"},
        {0x2A02, true, "hectoare (land area)", "ha"},
        {0x0646, true, "microgram (mass)", "\265g"},
        {0x2004, true, "10^4?meter (linear)", "?m"},
        {0x2050, true, "10^-15meter (linear)", "?m"},
        {0x2019, true, "10^25meter (linear)", "m"},
        {0x207F, true, "10^-63meter (linear)", "m"},
        {0x0703, true, "kilo (liquid weight)", "k"},
        // Of English rows that share a code the first is told, but for the first of all.
        {0x8100, true, "Farenheit degree days", "\260F-days"},
        {0xA007, true, "rod", "rod"},
        {0xCC00, true, "calorie", "cal"},
        {0x8606, true, "pound", "lb"},
        // A second half follows the first.
        {0x2A820603, true, "kilogram (mass) per hectoare (land area)", "kg/ha"},
        {0x1880A00B, true, "statute mile per hour (hour)", "mile/h"},
        {0x0100A005, true, "footcelcius (temperature)", "ft\260C"},
        {0x28800000, true, "- (unitless) per square meter (rectangular area)", "-/m\262"},
        // The reciprocal of a plain unit is not in the table of plain units.
        {0x1980, true, " per day (day)", "/d"},
        {0x00830603, true, "kilogram (mass) per kilo- (unitless)", "kg/k-"},
        {0xA0850603, true, "kilogram (mass) per foot", "kg/ft"},
        {0xAA808606, true, "pound per acre", "lb/acre"},
        // The second half alone says whether there is a label.
        {0x2000A00D, true, "meter (linear)", "m"},
        // Without a label there is what can be told.
        {0x0903, false, "kilo", "k"},
        {0xFFFF, false, " per ", "/"},
        {0xFFFFFFFF, false, " per  per ", "//"},
        {0xA00D, false, "", ""}};
    std::string text = "before";
    std::string short_text = "before";
    for (const auto& [code, found, description, abbreviation] : renderings) {
        EXPECT_EQ(Units_clad(code).compose_labels(text, short_text), found) << hexadecimal(code);
        EXPECT_EQ(text, description);
        EXPECT_EQ(short_text, abbreviation);
        EXPECT_EQ(Units_clad(code).get_label(text), description);
    }
    EXPECT_EQ(Units_clad(0x204A).get_label(text), "angstrom");
    EXPECT_EQ(Units_clad(0x7A44).get_label(text), "gauss");
    EXPECT_TRUE(Units_clad(0x204A).compose_labels(text, short_text));
    EXPECT_EQ(text, "10^-10meter (linear)");
}

void expect_reading(const char* text, std::uint32_t code) {
    EXPECT_EQ(hexadecimal(Units_clad::parse_label(text)), hexadecimal(code)) << (text ? text : "null");
}

TEST(Units_clad, a_label_is_read_as_the_code) {
    const std::pair<std::uint32_t, std::vector<const char*>> readings[] = {
        // Compound labels, and either degree sign.
        {0x18802003, {"kph"}},
        {0x28C2CC00, {"langley", "Langley"}},
        {0x5802, {"mbar"}},
        {0x0100, {"\260C", "\272C"}},
        {0x8100, {"\272F-days"}},
        {0x01800603, {"kg/\272C"}},
        // Masks of dates and times, wherever they stand.
        {0x1001, {"YYYY/MM/DD", "yy-mm", "yyyyddd", "dddYY", "YYMM HH"}},
        {0x1000, {"HH:MM", "hh.mm.ss", "MM hh"}},
        {0x2043, {"mm"}},
        {0xFFFF, {"YYYY", "HH:SS", "MMDD"}},
        // The first separator splits.
        {0x20005000, {"N*m", "N.m", "N\267m", "N\327m"}},
        {0x20805000, {"N/m", "N\367m"}},
        {0xFFFF0600, {"g/m/d", "g*m/d", "g/", "g/?"}},
        {0x2A820603, {"kg/ha", "kilogram/hectare"}},
        {0x2080FFFF, {"/m"}},
        {0x28800000, {"-/m\262"}},
        {0xFFFFFFFF, {"/"}},
        // The words of a description are no separator, nor its brackets a part of a name.
        {0xFFFF, {"gram per meter", "kilogram (mass)"}},
        // Hexadecimal digits are the code where no unit is found.
        {0x2A820603, {"2A820603", "12A820603"}},
        {0x2A82, {"00002a82"}},
        {0xFFFFFFFF, {"FFFFFFFF"}},
        {3, {"3"}},
        {0, {"0", "", nullptr}},
        {0xFFFF, {"12 ", "0x12", "-12", "x", "kilog", "kgram", "k", "?"}},
        // Units all the same.
        {0x2000, {"meters"}},
        {0x2A02, {"hectare"}},
        {0x1643, {"ms"}},
        {1, {"1"}},
        {0x7000, {"A"}},
        {0x1941, {"dd"}},
        // A time step is a number and the last word for a step.
        {0x141E, {"30 minute", "30min", "30 hours or minutes"}},
        {0x1506, {"6 hr", " 6 hours", "6 min of an hour"}},
        {0x130A, {"10 sec", "+10 seconds"}},
        {0x1500, {"hr", "every 5 hours"}},
        {0x12FF, {"-1 sec", "9223372036854775807 sec"}},
        {0x1505FFFF, {"0.5 hour"}},
        {0x1700, {"min", "minute"}}};
    for (const auto& [code, texts] : readings)
        for (const char* text : texts)
            expect_reading(text, code);
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
    expect_reading(abbreviation.c_str(), taken.contains(code) ? taken.at(code) : as);
}

TEST(Units_clad, abbreviations_are_read_back_but_for_those_that_others_share) {
    for (int row = 0; row < quantity_count; ++row)
        for (int power = 1 - prefix_count; power < prefix_count; ++power) {
            const std::uint16_t code = unit_code(row, power);
            // The name of a date or time holds a separator.
            if (quantities()[row].abbreviation.empty() || row == dates_and_times)
                continue;
            const bool nameless = positive_prefixes()[std::abs(power)].abbreviation == "?";
            const int read_row = row == electric_flux ? electric_charge : row;
            expect_read_back(code, is_plain(code) ? code : unit_code(read_row, nameless ? 4 : power));
            // By its name every power of ten is read back.
            const Prefix& prefix = (power < 0 ? negative_prefixes() : positive_prefixes())[std::abs(power)];
            const std::string name = std::string(prefix.name).append(quantities()[row].unit);
            expect_reading(name.c_str(), unit_code(read_row, power));
        }
    for (const auto& [code, as] : taken)
        expect_read_back(code, as);
    for (const Compound& row : compounds()) {
        expect_read_back(row.code, row.code);
        expect_reading(row.label.data(), row.code);
    }
    for (const Unit& row : english_units())
        expect_read_back(row.code, row.code);
    for (const auto rows : {plain_units(), english_units()})
        for (const Unit& row : rows) {
            const bool is_of_a_year = row.description == "quarter"; // before the English one
            EXPECT_EQ(Units_clad::parse_unit(row.description), is_of_a_year ? 0x1210 : row.code);
        }
}

} // namespace
