#include "temporal/date_time_64.h"

#include "foundation/numbers.h"
#include "temporal/local_clock.h"
#include "temporal/text_scanner.h"

#include <cmath>
#include <limits>
#include <string_view>

namespace TESK {

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr std::uint32_t hours_in_day = 24;
constexpr std::uint32_t minutes_in_day = hours_in_day * 60;
constexpr std::uint32_t seconds_in_day = minutes_in_day * 60;

// Not below the exact quotient, so that no hour, minute or second is lost when it is scaled up again and cut.
double day_fraction(double seconds) {
    const double fraction = seconds / seconds_in_day;
    return std::fma(fraction, seconds_in_day, -seconds) < 0 ? std::nextafter(fraction, infinity) : fraction;
}

// A fraction is below 1 in size, so that the result is within the units of a day.
std::int32_t units_gone_by(double fraction, std::uint32_t units_in_day) {
    return static_cast<std::int32_t>(fraction * units_in_day);
}

void append_two_digits(std::string& text, std::uint32_t value) {
    if (value < 10)
        text += '0';
    append_integer(text, value);
}

} // namespace

Time::Time() {
    const Local_moment now = local_now();
    set_hms(now.hour, now.minute, now.second);
}

Time::Time(std::uint32_t hours, std::uint32_t minutes, std::uint32_t new_seconds) {
    set_hms(hours, minutes, new_seconds);
}

std::uint32_t Time::set_hms(std::uint32_t hours, std::uint32_t minutes, std::uint32_t new_seconds) {
    return seconds = hours * 3600 + minutes * 60 + new_seconds;
}

std::uint32_t Time::set_fraction(double fraction) {
    const double part_of_day = fraction - std::trunc(fraction);
    return seconds = part_of_day > 0 ? static_cast<std::uint32_t>(part_of_day * seconds_in_day) : 0;
}

std::uint32_t Time::set_c_str(const char* text) {
    seconds = 0;
    if (text == nullptr || ordering == time_none)
        return seconds;
    const bool has_hours =
        ordering == time_hours_minutes_seconds || ordering == time_hours_minutes || ordering == time_hours;
    const bool has_minutes =
        has_hours ? ordering != time_hours : ordering == time_minutes_seconds || ordering == time_minutes;
    const bool has_seconds = ordering == time_hours_minutes_seconds || ordering == time_minutes_seconds ||
                             ordering == time_seconds;
    const std::size_t width = (style & 3) == 2 ? 2 : Text_scanner::any_width;
    const std::string_view between(&separator, separator == 0 ? 0 : 1);

    Text_scanner scanner(text);
    std::int32_t hours = 0, minutes = 0, rest = 0;
    if (has_hours)
        scanner.take_integer(hours, width);
    if (has_minutes) {
        scanner.take_literal(has_hours ? between : "");
        scanner.take_integer(minutes, width);
    }
    if (has_seconds) {
        scanner.take_literal(has_minutes ? between : "");
        scanner.take_integer(rest, width);
    }
    return set_hms(static_cast<std::uint32_t>(hours), static_cast<std::uint32_t>(minutes),
                   static_cast<std::uint32_t>(rest));
}

double Time::get_fraction() const {
    return day_fraction(seconds);
}

std::uint32_t Time::inc_seconds(std::uint32_t count) {
    const std::uint64_t total = static_cast<std::uint64_t>(seconds) + count;
    seconds = static_cast<std::uint32_t>(total % seconds_in_day);
    return static_cast<std::uint32_t>(total / seconds_in_day);
}

std::string& Time::text_str(std::string& buffer) const {
    buffer.clear();
    if (ordering == time_none)
        return buffer;
    const std::string_view between(&separator, separator == 0 ? 0 : 1);
    const std::uint32_t hours = seconds / 3600 % 24;
    if ((style & 3) == 2)
        append_two_digits(buffer, hours);
    else
        append_integer(buffer, hours);
    append_two_digits(buffer.append(between), seconds / 60 % 60);
    append_two_digits(buffer.append(between), seconds % 60);
    return buffer;
}

Date_time_64::Date_time_64() {
    const Local_moment now = local_now();
    Date today(0);
    today.set_YMD(now.year, now.month, now.day_of_month);
    const Time time(now.hour, now.minute, now.second);
    store(today.date_num, day_fraction(time.seconds + now.part_of_second));
}

double Date_time_64::set_date_time(const Date& date, const Time& time) {
    return store(date.date_num, time.get_fraction());
}

double Date_time_64::set_YMD_hms(std::int16_t year, std::uint8_t month, std::uint8_t day_of_month,
                                 std::uint8_t hour, std::uint8_t minute, std::uint8_t second) {
    Date date(0);
    date.set_YMD(year, month, day_of_month);
    return set_date_time(date, Time(hour, minute, second));
}

// A sum rounded down would show the second before the one that was set.
double Date_time_64::store(std::int32_t date_number, double fraction) {
    date_time = date_number + fraction;
    if (date_time - date_number < fraction)
        date_time = std::nextafter(date_time, infinity);
    return date_time;
}

std::int32_t Date_time_64::get_date_number() const {
    constexpr double too_large = 2147483648.0;
    const double number = std::trunc(date_time);
    return std::abs(number) < too_large ? static_cast<std::int32_t>(number) : 0;
}

double Date_time_64::get_fraction() const {
    return std::isfinite(date_time) ? date_time - std::trunc(date_time) : 0;
}

void Date_time_64::get_YMD(std::int16_t& year, std::uint8_t& month, std::uint8_t& day_of_month) const {
    Date(get_date_number()).get_YMD(year, month, day_of_month);
}

std::int32_t Date_time_64::get_hour() const {
    return units_gone_by(get_fraction(), hours_in_day);
}

std::int32_t Date_time_64::get_minute() const {
    return units_gone_by(get_fraction(), minutes_in_day) % 60;
}

std::int32_t Date_time_64::get_second() const {
    return units_gone_by(get_fraction(), seconds_in_day) % 60;
}

std::int32_t Date_time_64::get_time_number() const {
    return get_hour() * 10000 + get_minute() * 100 + get_second();
}

template <typename Change>
double Date_time_64::change_date(Change change) {
    Date changed(get_date_number());
    change(changed);
    return store(changed.date_num, get_fraction());
}

double Date_time_64::inc() {
    return change_date([](Date& date) { date.inc(); });
}

double Date_time_64::dec() {
    return change_date([](Date& date) { date.dec(); });
}

double Date_time_64::inc_days(std::int32_t days) {
    return change_date([days](Date& date) { date.inc_days(days); });
}

double Date_time_64::dec_days(std::int32_t days) {
    return change_date([days](Date& date) { date.dec_days(days); });
}

double Date_time_64::inc_years(std::int16_t years) {
    return change_date([years](Date& date) { date.inc_years(years); });
}

double Date_time_64::dec_years(std::int16_t years) {
    return change_date([years](Date& date) { date.dec_years(years); });
}

double Date_time_64::inc_months(std::int16_t months) {
    return change_date([months](Date& date) { date.inc_months(months); });
}

double Date_time_64::dec_months(std::int16_t months) {
    return change_date([months](Date& date) { date.dec_months(months); });
}

std::int32_t Date_time_64::days_between(const Date_time_abstract& other, bool inclusive) const {
    return Date(get_date_number()).days_between(other, inclusive);
}

std::string& Date_time_64::text_str(std::string& buffer) const {
    Date date(get_date_number());
    date.Date_format::operator=(format);
    Time time(0, 0, 0);
    time.Time_format::operator=(format);
    time.set_fraction(get_fraction());
    std::string time_text;
    return date.text_str(buffer).append(" ").append(time.text_str(time_text));
}

} // namespace TESK
