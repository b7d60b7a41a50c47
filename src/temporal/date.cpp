#include "temporal/date.h"

#include "foundation/code_page_1252.h"
#include "foundation/numbers.h"
#include "temporal/local_clock.h"
#include "temporal/text_scanner.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <string_view>

namespace TESK {

namespace {

constexpr std::uint8_t months_in_year = 12;
constexpr std::uint8_t february = 2;
constexpr std::uint16_t ordering_year_and_day_of_year = 12;

struct Month {
    std::uint8_t days; // in a year that is no leap year
    std::string_view full_name;
    std::string_view abbreviation;
};

constexpr Month months_of_year[months_in_year] = {
    {31, "January", "Jan"},   {28, "February", "Feb"}, {31, "March", "Mar"},    {30, "April", "Apr"},
    {31, "May", "May"},       {30, "June", "Jun"},     {31, "July", "Jul"},     {31, "August", "Aug"},
    {30, "September", "Sep"}, {31, "October", "Oct"},  {30, "November", "Nov"}, {31, "December", "Dec"},
};

std::uint16_t days_in_year(std::int16_t year) {
    return is_leap_year(year) ? 366 : 365;
}

std::int16_t year_of(std::int32_t date_num) {
    return static_cast<std::int16_t>(date_num / 1000);
}

std::uint16_t day_of_year_of(std::int32_t date_num) {
    return static_cast<std::uint16_t>(std::abs(date_num % 1000));
}

// The day of year behind which forward steps leave the year: the recurring year has no leap day for them.
std::uint16_t last_day_forward(std::int16_t year) {
    return year == 0 ? 365 : days_in_year(year);
}

// The leap years from a fixed one, before all years of 16 bits, to the one before `year`.
std::int32_t leap_years_before(std::int32_t year) {
    constexpr std::int32_t offset = 100 * 400; // whole cycles of the rule
    const std::int32_t past = year + offset - 1;
    return past / 4 - past / 100 + past / 400;
}

// The days of the years that lie between the two, neither included.
std::int32_t days_in_years_between(std::int32_t first, std::int32_t last) {
    if (last - first < 2)
        return 0;
    return 365 * (last - first - 1) + leap_years_before(last) - leap_years_before(first + 1);
}

// Calls `visit` with each field of the ordering and its place among them, from 0.
template <typename Visit>
void visit_fields(std::uint16_t ordering, Visit visit) {
    int place = 0;
    for (int shift = 12; shift >= 0; shift -= 3) {
        const int code = ordering >> shift & 7;
        if (code != 0)
            visit(static_cast<Date_field>(code), place++);
    }
}

bool has_field(std::uint16_t ordering, Date_field wanted) {
    bool found = false;
    visit_fields(ordering, [&](Date_field field, int) { found = found || field == wanted; });
    return found;
}

// What stands before the field at each place.
struct Separators {
    std::string_view first;
    std::string_view second;

    std::string_view before(int place) const { return place == 0 ? "" : place == 1 ? first : second; }
};

// The separator belongs to the caller, and must outlive the result.
Separators separators_of(const char& separator, bool with_comma) {
    if (with_comma)
        return {" ", ", "};
    const std::string_view text(&separator, separator == 0 ? 0 : 1);
    return {text, text};
}

// The style of the month's text: the number, where the styles name it or none.
Date_style month_style(std::uint16_t styles) {
    if ((styles & numeric_month) != 0)
        return numeric_month;
    if ((styles & abbreviated_month) != 0)
        return abbreviated_month;
    return (styles & full_month) != 0 ? full_month : numeric_month;
}

// Decimal, filled up to the width. The sign counts in the width and stands first: only years have one, and
// they are filled with zeros.
void append_padded(std::string& text, int value, std::size_t width, char fill) {
    std::string digits;
    append_integer(digits, std::abs(value));
    const std::string_view sign = value < 0 ? "-" : "";
    const std::size_t length = sign.size() + digits.size();
    text.append(sign).append(width > length ? width - length : 0, fill).append(digits);
}

void append_by_style(std::string& text, int value, std::size_t width, std::uint16_t styles) {
    if ((styles & leading_zeros) != 0)
        append_padded(text, value, width, '0');
    else
        append_padded(text, value, (styles & leading_blanks) != 0 ? width : 0, ' ');
}

void append_year(std::string& text, std::int16_t year, std::uint16_t styles) {
    if ((styles & (two_digit_year | apostrophe_year)) == 0) {
        append_padded(text, year, 4, '0');
        return;
    }
    if ((styles & two_digit_year) == 0)
        text += '\'';
    append_padded(text, year % 100, 2, '0');
}

// The number of the month, from 1, or 0.
std::int32_t month_by_name(std::string_view word, Date_style style) {
    const auto month =
        std::find_if(std::begin(months_of_year), std::end(months_of_year), [&](const Month& candidate) {
            return equal_ignoring_case(word,
                                       style == full_month ? candidate.full_name : candidate.abbreviation);
        });
    return month == std::end(months_of_year)
               ? 0
               : static_cast<std::int32_t>(month - std::begin(months_of_year)) + 1;
}

// The fields of a date as they are read from a text; what is not there stays 0.
struct Read_fields {
    std::int32_t year = 0;
    std::int32_t month = 0;
    std::int32_t day_of_month = 0;
    std::int32_t day_of_year = 0;

    void read(Text_scanner& scanner, Date_field field, std::uint16_t styles) {
        const bool fixed_width = (styles & leading_zeros) != 0;
        switch (field) {
        case Date_field::year: read_year(scanner, styles); break;
        case Date_field::month: read_month(scanner, styles); break;
        case Date_field::day_of_month:
            scanner.take_integer(day_of_month, fixed_width ? 2 : Text_scanner::any_width);
            break;
        case Date_field::day_of_year:
            scanner.take_integer(day_of_year, fixed_width ? 3 : Text_scanner::any_width);
            break;
        }
    }

private:
    void read_year(Text_scanner& scanner, std::uint16_t styles) {
        if ((styles & two_digit_year) != 0) {
            if (scanner.take_integer(year, 2))
                year += 1900;
        } else if ((styles & apostrophe_year) != 0) {
            const std::size_t width = scanner.take_if_next('\'') ? 2 : 3;
            if (scanner.take_integer(year, width))
                year += 1000;
        } else {
            scanner.take_integer(year, 4);
        }
    }

    void read_month(Text_scanner& scanner, std::uint16_t styles) {
        const Date_style style = month_style(styles);
        if (style == numeric_month)
            scanner.take_integer(month, (styles & leading_zeros) != 0 ? 2 : Text_scanner::any_width);
        else
            month =
                month_by_name(scanner.take_word(style == full_month ? Text_scanner::any_width : 3), style);
    }
};

} // namespace

bool is_leap_year(std::int16_t year) {
    return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

std::uint8_t days_in_month(std::int16_t year, std::uint8_t month) {
    if (month == 0 || month > months_in_year)
        return 0;
    if (month == february && is_leap_year(year))
        return 29;
    return months_of_year[month - 1].days;
}

Date::Date() {
    Date::set_today();
}

Date::Date(std::int32_t number, std::uint16_t new_ordering, std::uint16_t new_styles, char new_separator,
           bool new_show_day_of_year)
    : Date_format(new_ordering, new_styles, new_separator, new_show_day_of_year), date_num(number) {}

Date::Date(const Date& other, std::uint16_t new_ordering, std::uint16_t new_styles, char new_separator,
           bool new_show_day_of_year)
    : Date(other.date_num, new_ordering, new_styles, new_separator, new_show_day_of_year) {}

Date::Date(std::int16_t year, std::uint16_t day_of_year, std::uint16_t new_ordering, std::uint16_t new_styles,
           char new_separator, bool new_show_day_of_year)
    : Date_format(new_ordering, new_styles, new_separator, new_show_day_of_year) {
    Date::set_YD(year, day_of_year);
}

Date::Date(const char* text, std::uint16_t new_ordering, std::uint16_t new_styles, char new_separator,
           bool new_show_day_of_year)
    : Date_format(new_ordering, new_styles, new_separator, new_show_day_of_year) {
    Date::set_c_str(text);
}

double Date::inc() {
    const std::int16_t year = year_of(date_num);
    if (day_of_year_of(date_num) + 1 > last_day_forward(year))
        return set_YD(static_cast<std::int16_t>(year + 1), 1);
    return set_datenum(date_num + 1);
}

double Date::dec() {
    if (day_of_year_of(date_num) == 1) {
        const auto year = static_cast<std::int16_t>(year_of(date_num) - 1);
        return set_YD(year, days_in_year(year));
    }
    return set_datenum(static_cast<std::int32_t>(static_cast<std::int64_t>(date_num) - 1));
}

// Whole years at a time, so that the largest count ends soon. Below zero, where the day of year runs the
// other way, it goes day by day: a negative year is left after three days or fewer than a thousand.
double Date::step_forward(std::int64_t days) {
    while (days > 0) {
        if (date_num < 0) {
            Date::inc();
            --days;
            continue;
        }
        const std::int16_t year = year_of(date_num);
        const int left_in_year = std::max(last_day_forward(year) - day_of_year_of(date_num), 0);
        if (days <= left_in_year)
            return set_datenum(date_num + static_cast<std::int32_t>(days));
        set_YD(static_cast<std::int16_t>(year + 1), 1);
        days -= left_in_year + 1;
    }
    return get_datenum();
}

double Date::inc_days(std::int32_t days) {
    return step_forward(days);
}

double Date::dec_days(std::int32_t days) {
    if (days < 0)
        return step_forward(-static_cast<std::int64_t>(days));
    std::int16_t year = get_year();
    std::uint16_t day_of_year = get_day_of_year();
    while (days > 0) {
        if (days < day_of_year) {
            day_of_year = static_cast<std::uint16_t>(day_of_year - days);
            days = 0;
        } else {
            days -= day_of_year;
            year = static_cast<std::int16_t>(year - 1);
            day_of_year = days_in_year(year);
        }
    }
    return set_YD(year, day_of_year);
}

double Date::inc_years(std::int16_t years) {
    return set_year(static_cast<std::int16_t>(get_year() + years));
}

double Date::dec_years(std::int16_t years) {
    return set_year(static_cast<std::int16_t>(get_year() - years));
}

double Date::inc_months(std::int16_t months) {
    const int total = get_month() + months;
    return set_YMD(static_cast<std::int16_t>(get_year() + total / months_in_year),
                   static_cast<std::uint8_t>(total % months_in_year), get_day_of_month());
}

double Date::dec_months(std::int16_t months) {
    if (months == 0)
        return get_datenum();
    const int difference = get_month() - months;
    return set_YMD(static_cast<std::int16_t>(get_year() - difference / months_in_year),
                   static_cast<std::uint8_t>(std::abs(difference) % months), get_day_of_month());
}

double Date::set_today() {
    const Local_moment now = local_now();
    return set_YMD(now.year, now.month, now.day_of_month);
}

double Date::set_c_str(const char* text) {
    date_num = 0;
    if (text == nullptr || ordering == 0)
        return get_datenum();

    const std::string_view all(text);
    if (ordering == ordering_year_and_day_of_year && std::all_of(all.begin(), all.end(), is_digit))
        return set_datenum(static_cast<std::int32_t>(parse_integer(text)));

    const bool with_comma = separator == ',' || all.find(',') != std::string_view::npos;
    const Separators separators = separators_of(separator, with_comma);
    Text_scanner scanner(all);
    Read_fields fields;
    visit_fields(ordering, [&](Date_field field, int place) {
        scanner.take_literal(separators.before(place));
        fields.read(scanner, field, styles);
    });

    const auto year = static_cast<std::int16_t>(fields.year);
    if (has_field(ordering, Date_field::month))
        return set_YMD(year, static_cast<std::uint8_t>(fields.month),
                       static_cast<std::uint8_t>(fields.day_of_month));
    if (has_field(ordering, Date_field::day_of_year))
        return set_YD(year, static_cast<std::uint16_t>(fields.day_of_year));
    return get_datenum();
}

double Date::set_YMD(std::int16_t year, std::uint8_t month, std::uint8_t day_of_month) {
    std::uint16_t day_of_year = day_of_month;
    for (std::uint8_t earlier = 1; earlier < month && earlier <= months_in_year; ++earlier)
        day_of_year = static_cast<std::uint16_t>(day_of_year + days_in_month(year, earlier));
    return set_YD(year, day_of_year);
}

double Date::set_YD(std::int16_t year, std::uint16_t day_of_year) {
    const std::int32_t magnitude = std::abs(static_cast<std::int32_t>(year)) * 1000 + day_of_year;
    return set_datenum(year < 0 ? -magnitude : magnitude);
}

double Date::set_datenum(std::int32_t number) {
    date_num = number;
    return get_datenum();
}

std::int16_t Date::get_year() const {
    return year_of(date_num);
}

std::uint16_t Date::get_day_of_year() const {
    return day_of_year_of(date_num);
}

std::uint8_t Date::get_month() const {
    std::int16_t year = 0;
    std::uint8_t month = 0, day_of_month = 0;
    get_YMD(year, month, day_of_month);
    return month;
}

std::uint8_t Date::get_day_of_month() const {
    std::int16_t year = 0;
    std::uint8_t month = 0, day_of_month = 0;
    get_YMD(year, month, day_of_month);
    return day_of_month;
}

double Date::set_day_of_year(std::uint16_t day_of_year) {
    return set_YD(get_year(), day_of_year);
}

double Date::set_year(std::int16_t year) {
    return set_YD(year, get_day_of_year());
}

double Date::set_month(std::uint8_t month) {
    return set_YMD(get_year(), month, get_day_of_month());
}

double Date::set_day_of_month(std::uint8_t day_of_month) {
    return set_YMD(get_year(), get_month(), day_of_month);
}

void Date::get_YMD(std::int16_t& year, std::uint8_t& month, std::uint8_t& day_of_month) const {
    year = get_year();
    std::uint16_t rest = get_day_of_year();
    for (month = 1; month < months_in_year && rest > days_in_month(year, month); ++month)
        rest = static_cast<std::uint16_t>(rest - days_in_month(year, month));
    day_of_month = static_cast<std::uint8_t>(rest);
}

bool Date::is_leap() const {
    constexpr std::int16_t first_gregorian_year = 1582;
    const std::int16_t year = get_year();
    return year < first_gregorian_year ? year % 4 == 0 : is_leap_year(year);
}

std::int32_t Date::days_between(const Date_time_abstract& other, bool inclusive) const {
    const auto [earlier, later] = std::minmax({date_num, other.get_date_number()});
    const std::int16_t first_year = year_of(earlier);
    const std::int16_t last_year = year_of(later);
    std::int32_t days = 0;
    if (first_year == last_year)
        days = std::abs(day_of_year_of(later) - day_of_year_of(earlier));
    else
        days = days_in_years_between(first_year, last_year) + get_days_in_this_year() -
               day_of_year_of(earlier) + day_of_year_of(later);
    return std::max(days, 0) + (inclusive ? 1 : 0);
}

bool Date::is_between(const Date& start, const Date& end) const {
    if (start.get_year() != 0 || end.get_year() != 0)
        return date_num >= start.date_num && date_num <= end.date_num;
    const bool after_start = get_day_of_year() > start.get_day_of_year();
    const bool before_end = get_day_of_year() < end.get_day_of_year();
    const bool wraps = end.get_day_of_year() < start.get_day_of_year();
    return wraps ? after_start || before_end : after_start && before_end;
}

std::int32_t Date::get_days_since_zero() const {
    return days_between(Date(0), false);
}

std::uint8_t Date::get_days_in_this_month() const {
    return days_in_month(get_year(), get_month());
}

std::uint16_t Date::get_days_in_this_year() const {
    return days_in_year(get_year());
}

bool Date::is_last_day_of_year() const {
    return get_day_of_year() == get_days_in_this_year();
}

std::string& Date::text_str(std::string& buffer) const {
    if (date_num == 0)
        return buffer = "Date omitted";
    buffer.clear();
    if (ordering == 0)
        return buffer;
    const Separators separators = separators_of(separator, separator == ',');
    visit_fields(ordering, [&](Date_field field, int place) {
        buffer.append(separators.before(place));
        append_field(buffer, field);
    });
    if (show_day_of_year) {
        buffer += '(';
        append_padded(buffer, get_day_of_year(), 3, '0');
        buffer += ')';
    }
    return buffer;
}

void Date::append_field(std::string& text, Date_field field) const {
    switch (field) {
    case Date_field::year: append_year(text, get_year(), styles); break;
    case Date_field::month: {
        const Date_style style = month_style(styles);
        const std::uint8_t month = get_month();
        if (style == numeric_month)
            append_by_style(text, month, 2, styles);
        else
            text.append(style == full_month ? months_of_year[month - 1].full_name
                                            : months_of_year[month - 1].abbreviation);
        break;
    }
    case Date_field::day_of_month: append_by_style(text, get_day_of_month(), 2, styles); break;
    case Date_field::day_of_year: append_by_style(text, get_day_of_year(), 3, styles); break;
    }
}

void Date::set_format(std::uint16_t new_ordering, std::uint16_t new_styles, char new_separator,
                      bool new_show_day_of_year) {
    Date_format::operator=(Date_format(new_ordering, new_styles, new_separator, new_show_day_of_year));
}

int Date::compare(const Date& other) const {
    return date_num < other.date_num ? -1 : date_num > other.date_num ? 1 : 0;
}

} // namespace TESK
