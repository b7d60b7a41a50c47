// The calendar date of the whole simulation: one number that orders, stores and steps as an integer.
#pragma once

#include "temporal/date_format.h"
#include "temporal/date_time_abstract.h"

#include <cstdint>
#include <string>

namespace TESK {

// The Gregorian rule, for every year, negative ones and 0 too. All month and day arithmetic uses it.
bool is_leap_year(std::int16_t year);

// The days of the month, from 1 for January; 0 for a month that is none.
std::uint8_t days_in_month(std::int16_t year, std::uint8_t month);

// The date is `year * 1000 + day_of_year`, the day counted from 1; a negative year gives the negative of the
// whole number. Year 0 recurs every year. 0 is no date at all. Nothing that is set is validated, and what
// does not fit the 16 bits of a year is cut to them.
//
// Each operation that changes the date returns the new date number.
class Date : public Date_time_abstract, public Date_format, public Temporal_base {
public:
    std::int32_t date_num = 0;

    // Today, by the user's calendar.
    Date();

    // The number as it stands.
    explicit Date(std::int32_t number, std::uint16_t new_ordering = default_date_ordering,
                  std::uint16_t new_styles = default_date_styles, char new_separator = default_date_separator,
                  bool new_show_day_of_year = false);

    // The number of the other date; the format is that of the arguments, not the other's. (Assignment takes
    // both.)
    Date(const Date& other, std::uint16_t new_ordering = default_date_ordering,
         std::uint16_t new_styles = default_date_styles, char new_separator = default_date_separator,
         bool new_show_day_of_year = false);

    Date(std::int16_t year, std::uint16_t day_of_year, std::uint16_t new_ordering = default_date_ordering,
         std::uint16_t new_styles = default_date_styles, char new_separator = default_date_separator,
         bool new_show_day_of_year = false);

    // Two plain integers could be a number and an ordering as well as a year and a day: give their types.
    Date(int, int) = delete;

    // The text read by set_c_str() under the given format. May be null.
    explicit Date(const char* text, std::uint16_t new_ordering = default_date_ordering,
                  std::uint16_t new_styles = default_date_styles, char new_separator = default_date_separator,
                  bool new_show_day_of_year = false);

    Date& operator=(const Date&) = default;

    long double get_date_time() const override { return date_num; }
    std::int32_t get_date_number() const override { return date_num; }
    double get_fraction() const override { return 0; }
    std::int32_t get_hour() const override { return 0; }
    std::int32_t get_minute() const override { return 0; }
    std::int32_t get_second() const override { return 0; }
    std::int32_t get_time_number() const override { return 0; }

    // One day forward or back. Forward from day 365 of year 0 is year 1; back from day 1 of year 1 is day 366
    // of year 0. In a negative year the number still goes up or down by 1, so that the day of year goes the
    // other way.
    virtual double inc();
    virtual double dec();

    // As many days forward as inc() called so often; a negative count does nothing.
    virtual double inc_days(std::int32_t days);

    // Days back; a negative count goes forward.
    virtual double dec_days(std::int32_t days);

    // The same day of year so many years on or back.
    virtual double inc_years(std::int16_t years);
    virtual double dec_years(std::int16_t years);

    // The same day of the month so many months on. Where that is a December, the result is the day of *year*
    // of that number in the year behind it: 2000 November 15 and one month is 2001 January 15.
    virtual double inc_months(std::int16_t months);

    // Takes the months off the month's number: the year goes down by the difference divided by 12, and the
    // month becomes what is left of the difference divided by `months`. A count of 0 does nothing.
    virtual double dec_months(std::int16_t months);

    virtual double set_today();

    virtual double get_datenum() const { return date_num; }

    // Reads the text under the format, as formatted input reads. Under the ordering of year and day of year a
    // text of nothing but digits is the number itself. What does not match stays 0. A two-digit year is one
    // of the 1900s; a year with an apostrophe is one of the 1000s. A comma in the text overrules the
    // separator. A null text, and an empty format, give no date.
    virtual double set_c_str(const char* text);

    // Month 0 makes the day of the month the day of year; months above 12 come behind December.
    virtual double set_YMD(std::int16_t year, std::uint8_t month, std::uint8_t day_of_month);
    virtual double set_YD(std::int16_t year, std::uint16_t day_of_year);
    virtual double set_datenum(std::int32_t number);

    virtual std::int16_t get_year() const;
    virtual std::uint16_t get_day_of_year() const;
    virtual std::uint8_t get_month() const;
    virtual std::uint8_t get_day_of_month() const;

    // Each keeps the other part: the year, the day of year.
    virtual double set_day_of_year(std::uint16_t day_of_year);
    virtual double set_year(std::int16_t year);

    // Each keeps the other two parts. A day that the month lacks becomes one of the next month.
    virtual double set_month(std::uint8_t month);
    virtual double set_day_of_month(std::uint8_t day_of_month);

    // Days behind the end of the year are counted on in December.
    void get_YMD(std::int16_t& year, std::uint8_t& month, std::uint8_t& day_of_month) const override;

    // The Gregorian rule from 1582 on; before that every fourth year is a leap year.
    virtual bool is_leap() const;

    // The days from the earlier to the later of the two dates, never negative; `inclusive` adds one. Across
    // years, the year of the earlier date counts with the length of the year of this object.
    virtual std::int32_t days_between(const Date_time_abstract& other, bool inclusive) const;

    // Whether this date is in the range, ends included. A range whose ends both have year 0 recurs yearly,
    // may wrap the new year, and has its ends outside.
    virtual bool is_between(const Date& start, const Date& end) const;

    virtual std::int32_t get_days_since_zero() const;
    virtual std::uint8_t get_days_in_this_month() const;
    virtual std::uint16_t get_days_in_this_year() const;
    virtual bool is_last_day_of_year() const;

    // "Date omitted" for no date, nothing for an empty format.
    std::string& text_str(std::string& buffer) const override;

    using Date_format::set_format;
    virtual void set_format(std::uint16_t new_ordering, std::uint16_t new_styles, char new_separator,
                            bool new_show_day_of_year);

    // -1, 0 or 1, by the date number.
    virtual int compare(const Date& other) const;

private:
    double step_forward(std::int64_t days);
    void append_field(std::string& text, Date_field field) const;
};

} // namespace TESK
