// What a date and a date with a time of day can both be asked.
#pragma once

#include <cstdint>
#include <string>

namespace TESK {

// The common base of everything that is a time.
class Temporal_base {};

class Date_time_abstract {
public:
    virtual ~Date_time_abstract() = default;

    // The date number (see Date) plus the part of the day gone by, as one number.
    virtual long double get_date_time() const = 0;

    virtual std::int32_t get_date_number() const = 0;

    // The part of the day gone by, from 0, below 1; 0 for a date alone.
    virtual double get_fraction() const = 0;

    virtual void get_YMD(std::int16_t& year, std::uint8_t& month, std::uint8_t& day_of_month) const = 0;

    // The time of day; 0 for a date alone.
    virtual std::int32_t get_hour() const = 0;
    virtual std::int32_t get_minute() const = 0;
    virtual std::int32_t get_second() const = 0;

    // hour * 10000 + minute * 100 + second; 0 for a date alone.
    virtual std::int32_t get_time_number() const = 0;

    // Writes the moment in its own format to the buffer, in place of what that held, and returns the buffer.
    virtual std::string& text_str(std::string& buffer) const = 0;
};

} // namespace TESK
