#include "units/units_convertor.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <span>

using namespace TESK;

namespace {

const Units_convertor convertor;

struct Conversion {
    double value;
    std::uint32_t from, to;
    double wanted;
};

void expect_conversion(const Conversion& conversion) {
    const auto& [wide_value, from, to, wanted] = conversion;
    const auto value = static_cast<float>(wide_value);
    float result = -1;
    float narrow = -1;
    double wide = -1;
    EXPECT_TRUE(convertor.convert(value, from, result, to));
    EXPECT_NEAR(result, wanted, std::fabs(wanted) * 5e-7) << std::hex << from << " to " << to;
    // The other forms are as exact as the first, and no more.
    EXPECT_TRUE(convertor.convert(wide_value, from, wide, to));
    EXPECT_EQ(wide, result);
    EXPECT_TRUE(convertor.convert(value, from, wide = -1, to));
    EXPECT_EQ(wide, result);
    EXPECT_TRUE(convertor.convert(wide_value, from, narrow, to));
    EXPECT_EQ(narrow, result);
}

TEST(Units_convertor, a_value_is_converted_by_the_rule_of_its_units) {
    const Conversion named[] = {{50, 0x0003, 0x0018, 0.5},
                                {10, 0x28804D00, 0x28804C06, 0.036},
                                {86400, 0x4C00, 0x4E00, 1},
                                {1, 0x2A820603, 0x28800603, 0.0001},
                                {2, 0x2A02, 0x2800, 20000},
                                {3.25, 0xFFFFFFFF, 0xFFFFFFFF, 3.25},
                                {1, 0x28C2CC00, 0x28804C06, 0.041876}};
    // By powers of ten and, for times, by their seconds; where nothing relates them the value passes.
    const Conversion metric[] = {{7, 0x0603, 0x2043, 7},
                                 {7, 0x28830603, 0x0603, 7},
                                 {1, 0x1100, 0x1900, 1},
                                 {1, 0x1700, 0x1643, 60000},
                                 {1, 0x1A00, 0x1900, 365},
                                 {36, 0x18802003, 0x16802000, 10},
                                 {1, 0x2003, 0x2000, 1000},
                                 {1, 0x2A820603, 0x2A820600, 1000},
                                 {1, 0x2000, 0x2003, 0.001},
                                 {1, 0x16802000, 0x18802000, 3600},
                                 {1, 0x20830600, 0x20800603, 0.000001}};
    // The first exponent is squared. 0x0028 stands for a square meter here, whatever the prefix of the are
    // and even behind "per".
    const Conversion squares_and_ares[] = {{1, 0x2803, 0x2A02, 100000}, {1, 0x2842, 0x2A00, 100},
                                           {1, 0x2A02, 0x2803, 1e9},    {1, 0x2A800000, 0x28800000, 0.01},
                                           {3, 0x2A03, 0x0028, 30000},  {3, 0x2A82, 0x0028, 30000}};
    // By way of the metric base; an English unit without a rule is taken for a metric one.
    const Conversion english[] = {
        {3, 0xA005, 0xA006, 1},    {212, 0x8100, 0x0100, 100},    {1, 0xA00B, 0x2003, 1.609344},
        {1, 0xA085, 0x2080, 0},    {100, 0x0100, 0x8100, 212},    {1.609344, 0x2003, 0xA00B, 1},
        {32, 0x8100, 0x0100, 0},   {100, 0x0100, 0x8606, 212},    {1, 0x1880A00B, 0x18802003, 1.609344},
        {34, 0x8180, 0x0180, 0.9}, {0.9144, 0x2000, 0xA005, 3},   {1, 0xAA800603, 0x2A820603, 2.471054},
        {1, 0x8606, 0x0603, 1000}, {100000, 0x0143, 0x8100, 212}, {1, 0xAA810603, 0x28800603, 0.000988422}};
    // What no rule leads to an English unit is 0: mass, land, volume, kelvin, no length, one over a length.
    const Conversion without_a_rule[] = {{1, 0x0603, 0x8606, 0}, {1, 0x2A00, 0xAA00, 0},
                                         {1, 0x3400, 0xB408, 0}, {1, 0x0200, 0x8100, 0},
                                         {1, 0x2000, 0xA00D, 0}, {1, 0x2000, 0xA085, 0}};
    for (const std::span<const Conversion> conversions : std::initializer_list<std::span<const Conversion>>{
             named, metric, squares_and_ares, english, without_a_rule})
        std::for_each(conversions.begin(), conversions.end(), expect_conversion);
    float untouched = 5;
    EXPECT_TRUE(convertor.convert_simple(1, 0x0603, untouched, 0x8606));
    EXPECT_EQ(untouched, 5);
}

TEST(Units_convertor, english_measures_become_metric_by_the_rows_of_their_quantity) {
    const double meters[] = {0,      0.0254, 0.05715, 0.1016,  0.201168, 0.3048, 0.9144,
                             5.0292, 1.8288, 20.1168, 201.168, 1609.344, 1852,   0};
    for (unsigned row = 0; row < std::size(meters); ++row)
        expect_conversion({1, 0xA000 + row, 0x2000, meters[row]});
    // The rows of acres and of gallons begin with these, end with these, and have nothing behind them.
    for (const auto& [row, acres] : {std::pair(0U, 1.0), {1U, 0.25}, {9U, 2.1169}, {10U, 1.0}}) {
        expect_conversion({1, 0xAA00 + row, 0x2A00, acres * 40.468563});
        expect_conversion({1, 0xAA80 + row, 0x2A80, 1 / (acres * 40.468563)});
    }
    for (const auto& [row, gallons] :
         {std::pair(0U, 0.0000130208), {1U, 0.00078125}, {13U, 288.0}, {14U, 1.0}})
        for (const unsigned quantity : {0xB400U, 0xB500U}) {
            expect_conversion({1, quantity + row, 0x3400, gallons * 3.785412});
            expect_conversion({1, quantity + 0x80 + row, 0x3480, 3.785412 / gallons});
            expect_conversion({1, quantity + 0x40 + row, 0x3400, gallons * 4.54609});
        }
}

TEST(Units_convertor, any_code_can_be_converted) {
    const std::uint32_t codes[] = {0,          0xFFFF, 0xFFFFFFFF, 0x7FFF7FFF, 0x163F, 0x1A7F, 0x28BF287F,
                                   0x2ABF2A7F, 0x8180, 0xA0FF,     0xAAFF,     0xB4FF, 0xB57F, 0x80000000};
    for (const float value : {0.0F, 32.0F, 3e38F, std::nanf("")})
        for (const std::uint32_t from : codes)
            for (const std::uint32_t to : codes) {
                float result = -1;
                EXPECT_TRUE(convertor.convert(value, from, result, to));
            }
}

TEST(Units_convertor, time_steps_are_counted_in_seconds) {
    const std::pair<int, unsigned> steps[] = {
        {0x1600, 1},      {0x1700, 60},      {0x1800, 3600},     {0x1900, 86400},
        {0x1100, 604800}, {0x1140, 1209600}, {0x1A00, 31536000}, {0x1301, 1},
        {0x133C, 60},     {0x141E, 1800},    {0x143C, 3600},     {0x1506, 21600},
        {0x1518, 86400},  {0x133D, 0},       {0x143D, 0},        {0x1519, 0},
        {0x1300, 0},      {0x1200, 0},       {0x1601, 0},        {0x9800, 0},
        {0, 0},           {0xFFFF, 0}};
    for (const auto& [unit, seconds] : steps)
        EXPECT_EQ(convertor.time_step_seconds(static_cast<std::uint16_t>(unit)), seconds) << std::hex << unit;

    float result = -1;
    EXPECT_TRUE(convertor.convert_time_step(2, 0x1800, result, 0x1600));
    EXPECT_EQ(result, 7200);
    EXPECT_TRUE(convertor.convert_time_step(2, 0x1700, result, 0));
    EXPECT_EQ(result, 120);
    // A step that is none: the arithmetic is done all the same.
    EXPECT_FALSE(convertor.convert_time_step(2, 0x1200, result, 0x1600));
    EXPECT_EQ(result, 0);
    EXPECT_FALSE(convertor.convert_time_step(2, 0x1600, result, 0x1200));
    EXPECT_TRUE(std::isinf(result));
    EXPECT_FALSE(convertor.convert_time_step(2, 0x1200, result, 0x1200));
    EXPECT_TRUE(convertor.convert_with_time_step(0x1900, 2, 0x2003, 0x2000, result, 0x1800));
    EXPECT_EQ(result, 48000);
    EXPECT_FALSE(convertor.convert_with_time_step(0, 2, 0x2003, 0x2000, result, 0x1800));
}

} // namespace
