#include "temporal/date.h"

#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <ctime>
#include <gtest/gtest.h>
#include <string>

using TESK::Date;
using TESK::is_leap_year;
namespace chrono = std::chrono;

namespace {

chrono::sys_days calendar_day(int year, unsigned month, unsigned day) {
    return chrono::year(year) / chrono::month(month) / chrono::day(day);
}

std::int32_t number_of(chrono::sys_days day) {
    const chrono::year year = chrono::year_month_day(day).year();
    const auto past = day - chrono::sys_days(year / chrono::January / 1);
    return static_cast<int>(year) * 1000 + static_cast<std::int32_t>(past.count()) + 1;
}

std::int32_t number_from(int year, int month, int day) {
    Date date(0);
    date.set_YMD(static_cast<std::int16_t>(year), static_cast<std::uint8_t>(month),
                 static_cast<std::uint8_t>(day));
    return date.date_num;
}

std::string text_of(const Date& date) {
    std::string text = "old";
    return date.text_str(text);
}

struct Numbers {
    std::int32_t a, b, c;
};

} // namespace

TEST(Date, follows_the_calendar_day_by_day_and_month_by_month) {
    Date forward(1582001), backward(10000001);
    for (auto day = calendar_day(1582, 1, 1); day < calendar_day(1983, 1, 1); day += chrono::days(1)) {
        const chrono::year_month_day expected(day);
        std::int16_t year = 0;
        std::uint8_t month = 0, day_of_month = 0;
        forward.get_YMD(year, month, day_of_month);
        ASSERT_EQ(chrono::year(year) / month / day_of_month, expected) << forward.date_num;
        ASSERT_EQ(number_from(year, month, day_of_month), number_of(day));
        ASSERT_EQ(forward.date_num, number_of(day));
        forward.inc();
    }
    for (int year = 9999; year >= 1582; --year) {
        for (unsigned month = 12; month >= 1; --month) {
            const chrono::year_month_day_last last = chrono::year(year) / chrono::month(month) / chrono::last;
            backward.dec();
            ASSERT_EQ(backward.date_num, number_of(last));
            ASSERT_EQ(backward.get_month(), month);
            ASSERT_EQ(backward.get_day_of_month(), static_cast<unsigned>(last.day()));
            ASSERT_EQ(backward.get_days_in_this_month(), static_cast<unsigned>(last.day()));
            backward.set_day_of_month(1);
            ASSERT_EQ(backward.date_num, number_of(calendar_day(year, month, 1)));
        }
    }
}

TEST(Date, steps_by_many_days_as_day_by_day) {
    const Date start(1582001);
    for (std::int32_t days = 0; days < 3'000'000; days += 4999) {
        const auto day = calendar_day(1582, 1, 1) + chrono::days(days);
        Date date(start);
        date.inc_days(days);
        ASSERT_EQ(date.date_num, number_of(day));
        ASSERT_EQ(date.is_leap(), is_leap_year(date.get_year()));
        ASSERT_EQ(date.is_leap(), chrono::year_month_day(day).year().is_leap());
        // The year of the earlier date is measured by this object's year, one day off where they differ.
        const bool this_is_leap = date.is_leap();
        const std::int32_t across = date.get_year() == 1582 ? days : days + (this_is_leap ? 1 : 0);
        ASSERT_EQ(date.days_between(start, false), across);
        ASSERT_EQ(start.days_between(date, true), days + 1);
        date.dec_days(days);
        ASSERT_EQ(date.date_num, start.date_num);
    }
    for (const std::int32_t from :
         {9999363, 32766001, -3002, -1001, -5, 0, 366, 2000999, 99999360, -99999360}) {
        Date one_by_one(from);
        for (std::int32_t days = 1; days < 3000; ++days) {
            one_by_one.inc();
            Date at_once(from);
            at_once.inc_days(days);
            ASSERT_EQ(at_once.date_num, one_by_one.date_num) << from << " and " << days;
        }
    }
}

TEST(Date, steps_at_the_edges_of_years_and_of_the_number) {
    // The recurring year goes on to year 1, and year 1 back to a recurring year of 366 days. In a negative
    // year the number goes up, so the day of year down. Each number with the next and the previous one.
    const Numbers cases[] = {
        {1999365, 2000001, 1999364}, {2000365, 2000366, 2000364},      {365, 1001, 364},
        {2000366, 2001001, 2000365}, {2000001, 2000002, 1999365},      {366, 1001, 365},
        {2001001, 2001002, 2000366}, {2000000, 2000001, 1999999},      {1001, 1002, 366},
        {-100005, -100004, -100006}, {-100365, -99001, -100366},       {1, 2, -1365},
        {-100001, -100000, -101365}, {-100000, -99999, -100001},       {0, 1, -1},
        {-99999, -98001, -100000},   {INT32_MIN, 15206001, INT32_MAX}, {-1365, 1, -1366}};
    for (const auto& [number, next, previous] : cases) {
        EXPECT_EQ(Date(number).inc(), next) << number;
        EXPECT_EQ(Date(number).dec(), previous) << number;
    }
    const Numbers back_by_days[] = {
        {2001010, 9, 2001001}, {2001010, 10, 2000366}, {2001010, 376, 1999365}, {2001010, -1, 2001011},
        {2001010, 0, 2001010}, {1001, 1, 366},         {366, 366, -1365},       {-5, 0, 5},
        {-100005, 2, -100003}};
    for (const auto& [start, days, expected] : back_by_days)
        EXPECT_EQ(Date(start).dec_days(days), expected) << start;
    EXPECT_EQ(Date(2000161).inc_days(-3), 2000161);
    // Behind year 32767 the 16 bits of a year start again from below: forward, a pair of negative years takes
    // three days; back, each year its days.
    constexpr std::int32_t forward_round = 365 + 11967900 + 32768 / 2 * 3;
    constexpr std::int32_t backward_round = 65536 * 365 + 15892;
    EXPECT_EQ(Date(2000161).inc_days(178 * forward_round), 2000161);
    EXPECT_EQ(Date(2000161).dec_days(-forward_round), 2000161);
    EXPECT_EQ(Date(2000161).dec_days(89 * backward_round), 2000161);
}

TEST(Date, steps_by_months_and_years_with_their_oddities) {
    // December is month 0 of the next year.
    const Numbers months_on[] = {{2000136, 31, 2003015},        {2000031, 1, 2000062},
                                 {2000350, 1, 2001015},         {32767365, INT16_MAX, -30038212},
                                 {2000320, 1, 2001015},         {-10135, 12, -9135},
                                 {2000161, INT16_MIN, -730374}, {2000136, -2, 2000075}};
    for (const auto& [start, months, expected] : months_on)
        EXPECT_EQ(Date(start).inc_months(static_cast<std::int16_t>(months)), expected) << start;
    // The month is 7 % 5, 3 % 3, 2 % 5 and 17 % 20.
    for (const auto& [start, months, expected] : {Numbers{2000350, 5, 2000046},
                                                  {2000167, 3, 2000015},
                                                  {2000075, 5, 2000046},
                                                  {2000075, 20, 2001380},
                                                  {2000075, 0, 2000075}})
        EXPECT_EQ(Date(start).dec_months(static_cast<std::int16_t>(months)), expected) << start;
    EXPECT_EQ(Date(2000060).inc_years(1), 2001060); // February 29 to March 1
    EXPECT_EQ(Date(2000060).dec_years(2001), -1060);
    EXPECT_EQ(Date(32767060).inc_years(1), -32768060);
}

TEST(Date, two_rules_say_which_years_are_leap_years) {
    const std::tuple<std::int16_t, bool, bool> cases[] = {
        {1500, false, true},  {1580, true, true}, {1600, true, true},   {1700, false, false},
        {1900, false, false}, {2000, true, true}, {2023, false, false}, {0, true, true},
        {-4, true, true},     {-100, false, true}};
    for (const auto& [year, by_month_arithmetic, by_date] : cases) {
        const Date date(year, std::uint16_t{60});
        EXPECT_EQ(is_leap_year(year), by_month_arithmetic) << year;
        EXPECT_EQ(date.is_leap(), by_date) << year;
        EXPECT_EQ(date.get_days_in_this_year(), by_month_arithmetic ? 366 : 365);
        EXPECT_EQ(date.get_day_of_month(), by_month_arithmetic ? 29 : 1) << year;
    }
}

TEST(Date, setters_store_what_they_are_given) {
    EXPECT_EQ(number_from(2000, 0, 15), 2000015);
    EXPECT_EQ(number_from(2001, 2, 30), 2001061);
    EXPECT_EQ(number_from(2001, 255, 255), 2001620);
    EXPECT_EQ(number_from(-100, 1, 5), -100005);
    EXPECT_EQ(number_from(-32768, 1, 1), -32768001);
    EXPECT_EQ(Date(static_cast<std::int16_t>(-100), std::uint16_t{5}).date_num, -100005);
    EXPECT_EQ(Date(2000161).set_year(-3), -3161);
    EXPECT_EQ(Date(2000161).set_day_of_year(65535), 2065535);
    EXPECT_EQ(Date(2001031).set_month(2), 2001062); // the 31st of February is March 3
    EXPECT_EQ(Date(65536001).get_year(), 0);        // cut to 16 bits
    EXPECT_EQ(Date(2000999).get_month(), 12);
    EXPECT_EQ(Date(INT32_MIN).get_day_of_year(), 648);
}

TEST(Date, days_between_keeps_its_quirk_and_is_never_negative) {
    // Across years, the length of the earlier year is that of the object asked.
    const Numbers cases[] = {
        {2000001, 2000011, 10},   {2000011, 2000001, 10}, {-100005, -100010, 5}, {5, -5, 0},
        {1900001, 1904001, 1461}, {1999999, 2000001, 0},  {1999365, 2000001, 2}, {2000001, 1999365, 1},
        {2000366, 2001001, 0},    {2001001, 2000366, 1}};
    for (const auto& [other, asked, days] : cases) {
        EXPECT_EQ(Date(asked).days_between(Date(other), false), days) << asked;
        EXPECT_EQ(Date(asked).days_between(Date(other), true), days + 1) << asked;
    }
    EXPECT_EQ(Date(1001).get_days_since_zero(), 366);
    EXPECT_EQ(Date(2001161).get_days_since_zero(), 365 + 2000 * 365 + 485 + 161);
    EXPECT_GE(Date(INT32_MAX).days_between(Date(INT32_MIN), true), 0);
}

TEST(Date, range_has_its_ends_inside_unless_it_recurs) {
    const std::tuple<std::int32_t, std::int32_t, std::int32_t, bool> cases[] = {
        {2000001, 2000010, 2000001, true},
        {60, 300, 2000100, true},
        {300, 60, 10, true},
        {2000001, 2000010, 2000010, true},
        {5, 2000010, 1999001, true},
        {300, 60, 350, true},
        {300, 60, 100, false},
        {300, 60, 300, false},
        {300, 60, 60, false},
        {60, 300, 2000060, false},
        {60, 300, 2000300, false},
        {2000001, 2000010, 2000011, false}};
    for (const auto& [start, end, date, is_inside] : cases)
        EXPECT_EQ(Date(date).is_between(Date(start), Date(end)), is_inside) << start << ' ' << date;
}

TEST(Date, copy_takes_the_number_and_assignment_the_format_too) {
    Date date(2000161);
    date.set_format("YYYY.DDD");
    const Date copy(date);
    EXPECT_EQ(text_of(copy), "2000/6/9");
    Date assigned(0);
    assigned = date;
    EXPECT_EQ(text_of(assigned), "2000161");
}

TEST(Date, today_is_the_day_of_the_local_calendar) {
    for (const int hours_east : {14, -12}) {
        setenv("TZ", hours_east > 0 ? "AAA-14" : "BBB+12", 1);
        tzset();
        const auto local_day = [&] {
            return number_of(
                chrono::floor<chrono::days>(chrono::system_clock::now() + chrono::hours(hours_east)));
        };
        const std::int32_t earliest = local_day();
        const Date today;
        EXPECT_GE(today.date_num, earliest);
        EXPECT_LE(today.date_num, local_day());
    }
    unsetenv("TZ");
    tzset();
}

TEST(Date, text_has_the_fields_of_the_ordering_in_the_styles) {
    const std::tuple<std::int32_t, std::uint16_t, std::uint16_t, char, const char*> cases[] = {
        {2000161, 0, 132, '/', ""},          {2000161, 83, 132, '/', "2000/6/9"},
        {2005161, 1, 129, '/', "05"},        {2000161, 90, 132, '/', "2000/9/6"},
        {2000161, 1, 132, '/', "2000"},      {2000005, 33, 136, '/', "005/2000"},
        {2000161, 19, 132, '/', "6/9"},      {2000005, 33, 144, '/', "  5/2000"},
        {2000161, 26, 132, '/', "9/6"},      {-5005, 83, 136, '/', "-005/01/05"},
        {0, 0, 0, '/', "Date omitted"},      {2000161, 139, 132, '/', "6/2000/9"},
        {2000161, 83, 136, 0, "20000609"},   {2000161, 153, 132, '/', "6/9/2000"},
        {2000005, 12, 132, '/', "2000/5"},   {2000161, 202, 132, '/', "9/2000/6"},
        {2000065, 19, 68, ',', "March 5"},   {2000161, 209, 132, '/', "9/6/2000"},
        {1998160, 83, 133, '/', "98/6/9"},   {2000161, 83, 144, '-', "2000- 6- 9"},
        {-105005, 83, 133, '/', "-5/1/5"},   {2000161, 83, 40, '/', "2000/Jun/09"},
        {1998160, 83, 134, '/', "'98/6/9"},  {2000065, 209, 36, ' ', "5 Mar 2000"},
        {2000161, 12, 132, '/', "2000/161"}, {2000065, 153, 68, ',', "March 5, 2000"},
        {2000161, 33, 132, '/', "161/2000"}, {2000999, 83, 68, '/', "2000/December/152"}};
    for (const auto& [number, ordering, styles, separator, expected] : cases)
        EXPECT_EQ(text_of(Date(number, ordering, styles, separator)), expected);
    EXPECT_EQ(text_of(Date(161)), "0000/6/9"); // as a format is when nothing is said
    EXPECT_EQ(text_of(Date(0)), "Date omitted");
    EXPECT_EQ(text_of(Date(2000005, 83, 132, '/', true)), "2000/1/5(005)");
}

TEST(Date, reads_back_its_own_texts_and_takes_hostile_ones_quietly) {
    for (const char* mask : {"YYYY/MM/DD", "YYYYMMDD", "DD-MM-YYYY", "MM/DD/YY", "D/Mmm/YYYY", "YYYY/Mmm/DD",
                             "YYYY/DDD", "DDD/YYYY", "D-M/YYYY", "D Mmm YYYY"}) {
        for (const std::int32_t number : {1950001, 1960060, 1999365, 1996366}) {
            Date date(number);
            date.set_format(mask);
            EXPECT_EQ(date.set_c_str(text_of(date).c_str()), number) << mask;
        }
    }
    const std::string digits(100'000, '9');
    const std::tuple<const char*, std::uint16_t, std::uint16_t, char, std::int32_t> cases[] = {
        {"5 MAR 2000", 209, 36, ' ', 2000065},    {"12\t11\n10", 209, 132, ' ', 10316},
        {"20000609", 83, 136, 0, 2000161},        {"  9 6", 26, 144, ' ', 161},
        {"March 5,2000", 153, 68, ',', 2000065},  {"005/2000", 33, 136, '/', 2000005},
        {"2000/6", 83, 132, '/', 2000152},        {"2 0 0 0", 83, 136, 0, 2000},
        {"99999/99/99", 83, 136, '/', 9999000},   {"6/2000/9", 139, 132, '/', 2000161},
        {"-5/-6/-7", 83, 132, '/', -5614},        {nullptr, 83, 132, '/', 0},
        {"march 5, 2000", 153, 68, '/', 2000065}, {"9/2000/6", 202, 132, '/', 2000161},
        {"+1 +2 +3", 83, 132, ' ', 1034},         {"2000161", 0, 0, '/', 0},
        {"2000/March/5", 83, 68, '/', 2000000},   {"2000/9/6", 90, 137, '/', 1920000},
        {"5 sepT 1", 209, 36, ' ', 249},          {"98161", 12, 133, '/', 98161},
        {"4297000001", 12, 132, '/', 2032705},    {"2000161", 12, 132, '/', 2000161},
        {"6,9,2000", 153, 132, ',', 152},         {"bad", 83, 133, '/', 0},
        {digits.c_str(), 83, 136, 0, 9999464},    {"2000.161", 12, 132, '.', 2000161},
        {"98/6/9", 83, 133, '/', 1998160},        {"6/9", 19, 133, '/', 161},
        {digits.c_str(), 33, 132, '/', 65535},    {"'98/6/9", 83, 134, '/', 1098160},
        {"98/6/9", 83, 134, '/', 1098160},        {"1998", 1, 132, '/', 0}};
    for (const auto& [text, ordering, styles, separator, expected] : cases)
        EXPECT_EQ(Date(text, ordering, styles, separator).date_num, expected)
            << std::string(text == nullptr ? "null" : text).substr(0, 20);
}
