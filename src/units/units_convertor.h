// Converts values between unit codes: by a short list of named cases, by the powers of ten of metric units,
// and, for English units, by way of the metric unit of the same quantity. All arithmetic is in single
// precision.
#pragma once

#include <cstdint>

namespace TESK {

class Units_convertor {
public:
    virtual ~Units_convertor() = default;

    // Always true. Two metric units that have nothing to do with each other give the value unchanged; what no
    // rule leads to an English unit gives 0.
    virtual bool convert(float value, std::uint32_t from, float& result, std::uint32_t to) const;
    virtual bool convert(double value, std::uint32_t from, double& result, std::uint32_t to) const;
    virtual bool convert(float value, std::uint32_t from, double& result, std::uint32_t to) const;
    virtual bool convert(double value, std::uint32_t from, float& result, std::uint32_t to) const;

    // convert(), and then convert_time_step() on the result.
    virtual bool convert_with_time_step(std::uint16_t from_time_step, float value, std::uint32_t from,
                                        std::uint32_t to, float& result, std::uint16_t to_time_step) const;

    // The value times the seconds of the one step and, unless `to` is 0, divided by those of the other. False
    // when a step is none; the result then holds what the arithmetic gave.
    virtual bool convert_time_step(float value, std::uint16_t from, float& result, std::uint16_t to) const;

    // One half of a code to another. Always true; the result stays as it was when no rule leads to an English
    // unit.
    bool convert_simple(float value, std::uint16_t from, float& result, std::uint16_t to) const;

    // Turns a value in an English unit, and the unit, into the metric base of its quantity. An English unit
    // without a rule stays.
    void to_metric(float& value, std::uint16_t& unit) const;

    // From a metric unit, which becomes its base, to an English one; any temperature becomes Fahrenheit.
    // False, and the result untouched, where there is no rule.
    bool metric_to_english(float value, std::uint16_t& from, float& result, std::uint16_t& to) const;

    // 0 for what is no length.
    float english_length_in_yards(std::uint16_t unit) const;

    // The seconds of a time step; 0 for a unit that is none.
    std::uint32_t time_step_seconds(std::uint16_t unit) const;

    // What a value in the one metric unit is multiplied with to be in the other.
    float conversion_factor(std::uint16_t from, std::uint16_t to) const;

    // The seconds of a power of ten of a second, minute, hour, day or year of 365 days (the quantities 22 to
    // 26).
    float seconds_of(std::uint8_t quantity, std::int8_t exponent) const;
};

} // namespace TESK
