#include "units/units_convertor.h"

#include "units/units_clad.h"

#include <cmath>
#include <iterator>

namespace TESK {

namespace {

struct Special_case {
    std::uint32_t from;
    std::uint32_t to;
    double factor;
};
constexpr Special_case special_cases[] = {
    {0x2A02, 0x2800, 10000},                     // hectare, square meter
    {0x2800, 0x2A02, 0.0001},                    //
    {0x0014, 0x0003, 100},                       // decimal percent, percent
    {0x0018, 0x0003, 100},                       // fraction, percent
    {0x0003, 0x0014, 0.01},                      //
    {0x0003, 0x0018, 0.01},                      //
    {0x3400, 0x3000, 0.001},                     // liter, cubic meter
    {0x4C00, 0x4D00, 0.000277777778},            // joule, watt hour
    {0x4C00, 0x4E00, 0.000011574074},            // joule, watt day
    {0x28800603, 0x2A820603, 10000},             // kg per square meter, kg per hectare
    {0x2A820603, 0x28800603, 0.0001},            //
    {0x28804C06, 0x28C2CC00, 23.88002674562996}, // MJ per square meter, langley
    {0x28C2CC00, 0x28804C06, 0.041876},          //
    {0x28804C00, 0x28804C06, 0.000001 * 86400},  // joule per square meter, taken for a watt over a day
    {0x28804D00, 0x28804C06, 0.000001 * 3600},   // watt hour per square meter
    {0x28805500, 0x28804C06, 0.000001},          // watt per square meter
};

constexpr std::uint8_t second_row = 22;
constexpr std::uint8_t year_row = 26;
constexpr std::uint8_t length_row = 32;
constexpr std::uint8_t square_meter_row = 40;
constexpr std::uint8_t are_row = 42;
constexpr std::uint8_t liquid_row = 52;
constexpr std::uint8_t dry_row = 53;

constexpr std::uint16_t celsius = 0x0100;
constexpr std::uint16_t per_celsius = 0x0180;
constexpr std::uint16_t fahrenheit = 0x8100;
constexpr std::uint16_t per_fahrenheit = 0x8180;
constexpr std::uint16_t meter = 0x2000;
constexpr std::uint16_t are = 0x2A00;
constexpr std::uint16_t per_are = are | reciprocal_bit;
constexpr std::uint16_t liter = 0x3400;

// By the low bits of an English unit: yards, acres and gallons.
constexpr float yards[] = {0,  0.027777778F, 0.0625F, 0.111111111F,     0.22F, 0.333333333F, 1, 5.5F, 2,
                           22, 220,          1760,    2025.37182852143F};
constexpr float acres[] = {1, 0.25F, 0.8445F, 1, 30, 120, 0.63F, 0.6309144F, 2.1F, 2.1169F};
constexpr float gallons[] = {0.0000130208F, 0.00078125F, 0.00625F, 0.03125F, 0.09375F, 0.125F, 0.2F,
                             0.25F,         1,           2,        8,        32,       252,    288};

float power_of_ten(int power) {
    return static_cast<float>(std::pow(10.0, power));
}

template <std::size_t size>
float row_or_one(const float (&rows)[size], unsigned row) {
    return row < size ? rows[row] : 1;
}

bool is_reciprocal(std::uint16_t unit) {
    return (unit & reciprocal_bit) != 0;
}

bool is_time(std::uint8_t quantity) {
    return quantity >= second_row && quantity <= year_row;
}

} // namespace

bool Units_convertor::convert(float value, std::uint32_t from, float& result, std::uint32_t to) const {
    if (to == from) {
        result = value;
        return true;
    }
    for (const Special_case& row : special_cases) {
        if (row.from == from && row.to == to) {
            result = value * static_cast<float>(row.factor);
            return true;
        }
    }
    const auto from_high = static_cast<std::uint16_t>(from >> 16);
    const auto to_high = static_cast<std::uint16_t>(to >> 16);
    float interim = 0;
    const bool low_done =
        convert_simple(value, static_cast<std::uint16_t>(from), interim, static_cast<std::uint16_t>(to));
    if (from_high == 0 && to_high == 0) {
        result = interim;
        return low_done;
    }
    result = 0;
    return convert_simple(interim, from_high, result, to_high) && low_done;
}

bool Units_convertor::convert(double value, std::uint32_t from, double& result, std::uint32_t to) const {
    return convert(static_cast<float>(value), from, result, to);
}

bool Units_convertor::convert(float value, std::uint32_t from, double& result, std::uint32_t to) const {
    float narrow = 0;
    const bool done = convert(value, from, narrow, to);
    result = narrow;
    return done;
}

bool Units_convertor::convert(double value, std::uint32_t from, float& result, std::uint32_t to) const {
    return convert(static_cast<float>(value), from, result, to);
}

bool Units_convertor::convert_with_time_step(std::uint16_t from_time_step, float value, std::uint32_t from,
                                             std::uint32_t to, float& result,
                                             std::uint16_t to_time_step) const {
    float interim = 0;
    const bool converted = convert(value, from, interim, to);
    return convert_time_step(interim, from_time_step, result, to_time_step) && converted;
}

bool Units_convertor::convert_time_step(float value, std::uint16_t from, float& result,
                                        std::uint16_t to) const {
    const std::uint32_t from_seconds = time_step_seconds(from);
    const std::uint32_t to_seconds = time_step_seconds(to);
    result = value * static_cast<float>(from_seconds);
    if (to != 0)
        result /= static_cast<float>(to_seconds);
    return from_seconds != 0 && (to == 0 || to_seconds != 0);
}

bool Units_convertor::convert_simple(float value, std::uint16_t from, float& result, std::uint16_t to) const {
    if ((from & english_bit) != 0)
        to_metric(value, from);
    if ((to & english_bit) == 0)
        result = value * conversion_factor(from, to);
    else
        metric_to_english(value, from, result, to);
    return true;
}

void Units_convertor::to_metric(float& value, std::uint16_t& unit) const {
    constexpr float degrees_ratio = 0.5555556F;
    constexpr float meters_in_yard = 0.9144F;
    constexpr float ares_in_acre = 40.468563F;
    constexpr float imperial_gallon = 4.54609F;
    constexpr float us_gallon = 3.785412F;

    if (unit == fahrenheit) {
        value = (value - 32) * degrees_ratio;
        unit = celsius;
        return;
    }
    if (unit == per_fahrenheit) {
        value = 1 / ((value - 32) * degrees_ratio);
        unit = per_celsius;
        return;
    }
    switch (quantity_of(unit)) {
    case length_row:
        value = value * english_length_in_yards(unit) * meters_in_yard;
        unit = meter;
        break;
    case are_row: {
        const float factor = row_or_one(acres, unit & 0x7FU);
        // What stands behind "per" goes down as its unit grows, and stays behind it.
        if (is_reciprocal(unit)) {
            value = value / (factor * ares_in_acre);
            unit = per_are;
        } else {
            value = value * factor * ares_in_acre;
            unit = are;
        }
        break;
    }
    case liquid_row:
    case dry_row: {
        const bool imperial = (unit & negative_exponent_bit) != 0;
        const float factor = row_or_one(gallons, unit & exponent_mask);
        value =
            value * (is_reciprocal(unit) ? 1 / factor : factor) * (imperial ? imperial_gallon : us_gallon);
        unit = liter;
        break;
    }
    default: break;
    }
}

bool Units_convertor::metric_to_english(float value, std::uint16_t& from, float& result,
                                        std::uint16_t& to) const {
    constexpr float yards_in_meter = 1.0936132983377078F;
    value *= conversion_factor(from, base(from));
    from = base(from);
    if (from == celsius) {
        result = value * 1.8F + 32;
        to = fahrenheit;
        return true;
    }
    if (from != meter)
        return false;
    const float factor = english_length_in_yards(to);
    if (std::fabs(factor) < 0.000000001F)
        return false;
    result = value * yards_in_meter / factor;
    return true;
}

float Units_convertor::english_length_in_yards(std::uint16_t unit) const {
    const unsigned row = unit & 0x7FU;
    const float length = row < std::size(yards) ? yards[row] : 0;
    if (!is_reciprocal(unit))
        return length;
    // One over a length is no length.
    return length != 0 && std::fabs(1 / length) < 0.000001F ? 1 : 0;
}

std::uint32_t Units_convertor::time_step_seconds(std::uint16_t unit) const {
    constexpr std::uint32_t minute = 60;
    constexpr std::uint32_t hour = 60 * minute;
    constexpr std::uint32_t day = 24 * hour;
    switch (unit) {
    case 0x1600: return 1;
    case 0x1700: return minute;
    case 0x1800: return hour;
    case 0x1900: return day;
    case 0x1100: return 7 * day;
    case 0x1140: return 14 * day;
    case 0x1A00: return 365 * day;
    default: break;
    }
    const std::uint32_t count = unit & 0xFFU;
    switch (base(unit)) {
    case 0x1300: return count <= 60 ? count : 0;
    case 0x1400: return count <= 60 ? count * minute : 0;
    case 0x1500: return count <= 24 ? count * hour : 0;
    default: return 0;
    }
}

float Units_convertor::conversion_factor(std::uint16_t from, std::uint16_t to) const {
    const std::uint8_t from_quantity = quantity_of(from);
    const std::uint8_t to_quantity = quantity_of(to);
    const int from_power = exponent(from);
    const int to_power = exponent(to);
    int power = 0;
    if (from_quantity == to_quantity) {
        power = from_power - to_power;
    } else if (from == 0x2800 && to == 0x2A02) {
        return 0.0001F;
    } else if (from_quantity == are_row && to == 0x0028) {
        return 10000;
    } else if (is_time(from_quantity) && is_time(to_quantity)) {
        const float ratio = seconds_of(from_quantity, static_cast<std::int8_t>(from_power)) /
                            seconds_of(to_quantity, static_cast<std::int8_t>(to_power));
        return is_reciprocal(from) ? 1 / ratio : ratio;
    } else if (from_quantity == square_meter_row && to_quantity == are_row) {
        // The square of the exponent stands for the prefix of a squared unit.
        power = from_power * from_power - to_power - 2;
    } else if (from_quantity == are_row && to_quantity == square_meter_row) {
        power = from_power * from_power + to_power + 2;
    }
    if (power == 0)
        return 1;
    return is_reciprocal(from) ? 1 / power_of_ten(power) : power_of_ten(power);
}

float Units_convertor::seconds_of(std::uint8_t quantity, std::int8_t exponent_of_ten) const {
    constexpr float seconds[] = {1, 60, 3600, 86400, 31536000};
    return is_time(quantity) ? power_of_ten(exponent_of_ten) * seconds[quantity - second_row] : 0;
}

} // namespace TESK
