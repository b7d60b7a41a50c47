#include "temporal/date_time_64.h"

#include <cmath>
#include <ctime>
#include <gtest/gtest.h>
#include <limits>
#include <string>

using TESK::Date;
using TESK::Date_time_64;
using TESK::Time;

TEST(Date_time_64, every_second_of_a_day_reads_back_as_it_was_set) {
    // Small numbers hold finer fractions than large ones.
    for (const std::int32_t number : {0, 161, 2000161, 2097152, 32767365}) {
        for (std::uint32_t second = 0; second < 86400; second += number == 2000161 ? 1 : 7) {
            Date_time_64 moment(0.0);
            moment.set_date_time(Date(number), Time(0, 0, second));
            const std::uint32_t hour = second / 3600, minute = second / 60 % 60;
            ASSERT_EQ(moment.get_time_number(), hour * 10000 + minute * 100 + second % 60) << number;
            ASSERT_EQ(moment.get_date_number(), number);
            ASSERT_EQ(Time(0, 0, 0).set_fraction(moment.get_fraction()), second);
        }
    }
}

TEST(Date_time_64, shows_its_parts_and_its_text) {
    Date_time_64 moment(2000161.5);
    EXPECT_EQ(moment.get_time_number(), 120000);
    std::string text = "old";
    EXPECT_EQ(moment.text_str(text), "2000/6/9 12:00:00");
    moment.set_YMD_hms(1999, 12, 31, 4, 5, 58);
    moment.format.set_format("DD-MM-YY HH.MM.SS");
    moment.format.set_format(nullptr);
    const Date_time_64 copy(moment);
    EXPECT_EQ(copy.text_str(text), "31-12-99 04.05.58");
    EXPECT_NEAR(static_cast<double>(copy.get_date_time()), 1999365 + (4 * 3600 + 5 * 60 + 58) / 86400.0,
                1e-9);
    std::int16_t year = 0;
    std::uint8_t month = 0, day = 0;
    copy.get_YMD(year, month, day);
    EXPECT_EQ(year * 10000 + month * 100 + day, 19991231);
}

TEST(Date_time_64, steps_its_date_and_keeps_its_time) {
    Date_time_64 moment(0.0);
    moment.set_YMD_hms(1999, 12, 31, 23, 59, 59);
    EXPECT_EQ(std::trunc(moment.inc()), 2000001);
    EXPECT_EQ(std::trunc(moment.dec()), 1999365);
    EXPECT_EQ(std::trunc(moment.inc_days(2)), 2000002);
    EXPECT_EQ(std::trunc(moment.dec_days(1)), 2000001);
    EXPECT_EQ(std::trunc(moment.inc_months(2)), 2000061);
    EXPECT_EQ(std::trunc(moment.dec_months(2)), 2000001); // 1 % 2
    EXPECT_EQ(std::trunc(moment.inc_years(97)), 2097001);
    EXPECT_EQ(std::trunc(moment.dec_years(97)), 2000001);
    EXPECT_EQ(moment.get_time_number(), 235959);
    EXPECT_EQ(moment.days_between(Date(2000042), true), 42);
    EXPECT_EQ(Date(2000042).days_between(moment, false), 41);
}

TEST(Date_time_64, default_is_the_present_moment_and_that_of_time_its_time_of_day) {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    const std::uint32_t seconds = Time(local.tm_hour, local.tm_min, local.tm_sec).seconds;
    const Date before;
    const Date_time_64 moment;
    Time time_of_day(0, 0, 0);
    for (const std::uint32_t present : {Time().seconds, time_of_day.set_fraction(moment.get_fraction())})
        EXPECT_LE((present + 86400 - seconds) % 86400, 2U);
    EXPECT_LE(before.date_num, moment.get_date_number());
    EXPECT_GE(Date().date_num, moment.get_date_number());
}

TEST(Date_time_64, takes_values_that_are_no_moment_quietly) {
    const double infinity = std::numeric_limits<double>::infinity();
    for (const double value : {infinity, -infinity, std::nan(""), 1e300, -1e300, 3e9}) {
        Date_time_64 moment(value);
        std::string text;
        EXPECT_EQ(moment.text_str(text), "Date omitted 0:00:00");
        EXPECT_EQ(moment.get_time_number(), 0);
        EXPECT_EQ(moment.inc(), 1);
        EXPECT_EQ(Time(1, 0, 0).set_fraction(value), 0u);
    }
    EXPECT_EQ(Date_time_64(-2000161.5).get_date_number(), -2000161);
    EXPECT_EQ(Time(1, 0, 0).set_fraction(-0.5), 0u);
    EXPECT_EQ(Time(1, 0, 0).set_fraction(2.25), 21600u);
}

TEST(Time, adds_seconds_and_gives_the_days_that_passed) {
    Time time(0, 0, 0);
    EXPECT_EQ(time.inc_seconds(90000), 1u);
    EXPECT_EQ(time.seconds, 3600u);
    time.seconds = UINT32_MAX;
    EXPECT_EQ(time.inc_seconds(UINT32_MAX), 99420u);
    EXPECT_EQ(time.seconds, 46590u);
}

TEST(Time, text_follows_style_and_separator_and_reads_back) {
    const std::tuple<std::uint32_t, std::uint8_t, std::uint8_t, char, const char*> cases[] = {
        {3661, 1, 0, ':', "1:01:01"}, {3661, 1, 2, ':', "01:01:01"}, {3661, 1, 6, '.', "01.01.01"},
        {3661, 1, 3, ':', "1:01:01"}, {86399, 1, 2, 0, "235959"},    {90061, 1, 0, ':', "1:01:01"},
        {3661, 3, 0, ':', "1:01:01"}, {3661, 0, 2, ':', ""}};
    for (const auto& [seconds, ordering, style, separator, expected] : cases) {
        Time time(0, 0, seconds);
        time.ordering = ordering;
        time.style = style;
        time.separator = separator;
        std::string text = "old";
        EXPECT_EQ(time.text_str(text), expected);
        if (ordering == 1) {
            EXPECT_EQ(time.set_c_str(text.c_str()), seconds % 86400) << text;
        }
    }
}

TEST(Time, reads_the_fields_of_its_ordering) {
    const std::tuple<const char*, std::uint8_t, std::uint32_t> cases[] = {
        {"1:02:03", 1, 3723}, {"1:02:03", 2, 3720}, {"2:03", 3, 123}, {"5", 4, 18000},  {"5", 5, 300},
        {"5", 6, 5},          {"1:x", 1, 3600},     {nullptr, 1, 0},  {"1:02:03", 0, 0}};
    for (const auto& [text, ordering, expected] : cases) {
        Time time(9, 9, 9);
        time.ordering = ordering;
        EXPECT_EQ(time.set_c_str(text), expected) << ordering;
    }
}
