// How dates and times are written and read. A format is a small value, set field by field or from a mask text
// such as "YYYY/Mmm/DD" or "YYYY/MM/DD HH:MM:SS".
#pragma once

#include <cstdint>

namespace TESK {

// What one 3-bit group of a date ordering stands for.
enum class Date_field : std::uint16_t { year = 1, month = 2, day_of_month = 3, day_of_year = 4 };

// The bits of Date_format::styles. A year without a year bit has four digits.
enum Date_style : std::uint16_t {
    two_digit_year = 1,
    apostrophe_year = 2,
    no_padding = 4,
    leading_zeros = 8,
    leading_blanks = 16,
    abbreviated_month = 32,
    full_month = 64,
    numeric_month = 128,
    zero_flag = 256,
    one_flag = 512
};

inline constexpr std::uint16_t default_date_ordering = 83; // year, month, day of month
inline constexpr std::uint16_t default_date_styles = no_padding | numeric_month;
inline constexpr char default_date_separator = '/';

class Date_format {
public:
    std::uint16_t ordering; // 3 bits a field, the first field in the highest group; 0 for an empty format
    std::uint16_t styles;   // bits of Date_style
    char separator;         // between the fields: 0 for none, "," for the form "March 5, 2000"
    bool show_day_of_year;  // whether the text ends in the day of year, as "(161)"

    explicit Date_format(std::uint16_t new_ordering = default_date_ordering,
                         std::uint16_t new_styles = default_date_styles,
                         char new_separator = default_date_separator, bool new_show_day_of_year = false)
        : ordering(new_ordering), styles(new_styles), separator(new_separator),
          show_day_of_year(new_show_day_of_year) {}

    // Rebuilds ordering, styles and separator from a mask of Y, M, D, their multiples, "Mmm" or "Mmmm", and
    // "-" or "/". What belongs to a time in the mask is passed over. A null mask changes nothing.
    void set_format(const char* mask);

    // Whether the mask held a "0" or a "1".
    bool is_zero_flagged() const { return (styles & zero_flag) != 0; }
    bool is_one_flagged() const { return (styles & one_flag) != 0; }
};

// The values of Time_format::ordering.
enum Time_ordering : std::uint8_t {
    time_none = 0,
    time_hours_minutes_seconds = 1,
    time_hours_minutes = 2,
    time_minutes_seconds = 3,
    time_hours = 4,
    time_minutes = 5,
    time_seconds = 6
};

class Time_format {
public:
    std::uint8_t ordering = time_hours_minutes_seconds;
    std::uint8_t style = 0; // low two bits 2: hours below 10 have a leading zero
    char separator = ':';   // between the fields; 0 for none

    // Rebuilds ordering and style from a mask of H, M and S with "." or ":" between. The separator stays as
    // it was when the mask has none. What belongs to a date in the mask is passed over, save that an "M"
    // behind a "." counts as minutes. A null mask changes nothing.
    void set_format(const char* mask);
};

class Date_time_format : public Date_format, public Time_format {
public:
    // Sets both parts from the same mask. A null mask changes nothing.
    void set_format(const char* mask);
};

} // namespace TESK
