// Moments: a date and a time of day in one number, and the time of day alone in whole seconds.
#pragma once

#include "temporal/date.h"
#include "temporal/date_format.h"
#include "temporal/date_time_abstract.h"

#include <cstdint>
#include <string>

namespace TESK {

// Seconds since midnight. Nothing that is set is validated: a text shows hours modulo 24.
class Time : public Time_format, public Temporal_base {
public:
    std::uint32_t seconds = 0;

    // The present time of day, by the user's clock.
    Time();
    Time(std::uint32_t hours, std::uint32_t minutes, std::uint32_t new_seconds);

    // Each of the setters returns the seconds since midnight.
    std::uint32_t set_hms(std::uint32_t hours, std::uint32_t minutes, std::uint32_t new_seconds);

    // The part of the day gone by, from 0; whole days are dropped, and what is no part of a day gives 0.
    std::uint32_t set_fraction(double fraction);

    // Reads the text by the ordering and the separator, as formatted input reads. What does not match stays
    // 0. A null text and the empty ordering give 0.
    std::uint32_t set_c_str(const char* text);

    // The part of the day gone by. The time comes back from it by set_fraction().
    double get_fraction() const;

    // Adds, keeps the time of day, and returns the whole days that passed.
    std::uint32_t inc_seconds(std::uint32_t count);

    // Hours, minutes and seconds under any ordering but the empty one, which gives no text. The text replaces
    // what the buffer held, and the buffer is returned.
    std::string& text_str(std::string& buffer) const;
};

// The integer part of the value is the date number (see Date), the fraction the part of the day gone by. A
// value that is no such number, infinity for instance, is no date at midnight.
class Date_time_64 : public Date_time_abstract, public Temporal_base {
public:
    double date_time = 0;
    Date_time_format format;

    // The present moment, by the user's calendar and clock.
    Date_time_64();
    explicit Date_time_64(double value) : date_time(value) {}

    // The sum of the date's number and the time's part of the day, rounded up where the number cannot hold
    // it, so that the time reads back as it was set. Returns the value.
    double set_date_time(const Date& date, const Time& time);
    double set_YMD_hms(std::int16_t year, std::uint8_t month, std::uint8_t day_of_month, std::uint8_t hour,
                       std::uint8_t minute, std::uint8_t second);

    long double get_date_time() const override { return date_time; }
    std::int32_t get_date_number() const override;
    double get_fraction() const override;
    void get_YMD(std::int16_t& year, std::uint8_t& month, std::uint8_t& day_of_month) const override;
    std::int32_t get_hour() const override;
    std::int32_t get_minute() const override;
    std::int32_t get_second() const override;
    std::int32_t get_time_number() const override;

    // The operations of Date of the same name, on the date; the time of day stays. Those that change the date
    // return the new value.
    double inc();
    double dec();
    double inc_days(std::int32_t days);
    double dec_days(std::int32_t days);
    double inc_years(std::int16_t years);
    double dec_years(std::int16_t years);
    double inc_months(std::int16_t months);
    double dec_months(std::int16_t months);
    std::int32_t days_between(const Date_time_abstract& other, bool inclusive) const;

    // The date, one blank, and the time, each in its format.
    std::string& text_str(std::string& buffer) const override;

private:
    // Applies `change` to the date, and keeps the time of day.
    template <typename Change>
    double change_date(Change change);

    double store(std::int32_t date_number, double fraction);
};

} // namespace TESK
