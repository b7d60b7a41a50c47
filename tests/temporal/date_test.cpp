#include "temporal/date.h"

#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <gtest/gtest.h>
#include <string>
#include <strings.h>
#include <vector>

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

struct Step {
    std::int32_t start, count, expected;
};

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
    // year the number goes up, so the day of year down.
    const Numbers number_next_previous[] = {{1999365, 2000001, 1999364},
                                            {2000365, 2000366, 2000364},
                                            {2000366, 2001001, 2000365},
                                            {2000001, 2000002, 1999365},
                                            {2001001, 2001002, 2000366},
                                            {2000000, 2000001, 1999999},
                                            {365, 1001, 364},
                                            {366, 1001, 365},
                                            {1001, 1002, 366},
                                            {1, 2, -1365},
                                            {0, 1, -1},
                                            {-1365, 1, -1366},
                                            {-100005, -100004, -100006},
                                            {-100365, -99001, -100366},
                                            {-100001, -100000, -101365},
                                            {-100000, -99999, -100001},
                                            {-99999, -98001, -100000},
                                            {INT32_MIN, 15206001, INT32_MAX}};
    for (const auto& [number, next, previous] : number_next_previous) {
        EXPECT_EQ(Date(number).inc(), next) << number;
        EXPECT_EQ(Date(number).dec(), previous) << number;
    }
    const Step back_by_days[] = {
        {2001010, 9, 2001001}, {2001010, 10, 2000366}, {2001010, 376, 1999365}, {2001010, -1, 2001011},
        {2001010, 0, 2001010}, {1001, 1, 366},         {366, 366, -1365},       {-5, 0, 5},
        {-100005, 2, -100003}};
    for (const Step& step : back_by_days)
        EXPECT_EQ(Date(step.start).dec_days(step.count), step.expected) << step.start;
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
    const Step months_on[] = {{2000031, 1, 2000062},
                              {2000320, 1, 2001015},
                              {2000350, 1, 2001015},
                              {2000136, 31, 2003015},
                              {2000136, -2, 2000075},
                              {-10135, 12, -9135},
                              {32767365, INT16_MAX, -30038212},
                              {2000161, INT16_MIN, -730374}};
    for (const Step& step : months_on)
        EXPECT_EQ(Date(step.start).inc_months(static_cast<std::int16_t>(step.count)), step.expected);
    // The month is 7 % 5, 3 % 3, 2 % 5 and 17 % 20.
    const Step months_back[] = {{2000350, 5, 2000046},
                                {2000167, 3, 2000015},
                                {2000075, 5, 2000046},
                                {2000075, 20, 2001380},
                                {2000075, 0, 2000075}};
    for (const Step& step : months_back)
        EXPECT_EQ(Date(step.start).dec_months(static_cast<std::int16_t>(step.count)), step.expected);
    EXPECT_EQ(Date(2000060).inc_years(1), 2001060); // February 29 to March 1
    EXPECT_EQ(Date(2000060).dec_years(2001), -1060);
    EXPECT_EQ(Date(32767060).inc_years(1), -32768060);
}

TEST(Date, two_rules_say_which_years_are_leap_years) {
    const struct {
        int year;
        bool by_month_arithmetic;
        bool by_date;
    } cases[] = {{1500, false, true},  {1580, true, true}, {1600, true, true},   {1700, false, false},
                 {1900, false, false}, {2000, true, true}, {2023, false, false}, {0, true, true},
                 {-4, true, true},     {-100, false, true}};
    for (const auto& expected : cases) {
        const auto year = static_cast<std::int16_t>(expected.year);
        const Date date(year, std::uint16_t{60});
        EXPECT_EQ(is_leap_year(year), expected.by_month_arithmetic) << year;
        EXPECT_EQ(date.is_leap(), expected.by_date) << year;
        EXPECT_EQ(date.get_days_in_this_year(), expected.by_month_arithmetic ? 366 : 365);
        EXPECT_EQ(date.get_day_of_month(), expected.by_month_arithmetic ? 29 : 1) << year;
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
    const Numbers inside[] = {{300, 60, 10},
                              {300, 60, 350},
                              {60, 300, 2000100},
                              {2000001, 2000010, 2000001},
                              {2000001, 2000010, 2000010},
                              {5, 2000010, 1999001}};
    for (const auto& [start, end, date] : inside)
        EXPECT_TRUE(Date(date).is_between(Date(start), Date(end))) << date;
    const Numbers outside[] = {{300, 60, 100},     {300, 60, 300},     {300, 60, 60},
                               {60, 300, 2000060}, {60, 300, 2000300}, {2000001, 2000010, 2000011}};
    for (const auto& [start, end, date] : outside)
        EXPECT_FALSE(Date(date).is_between(Date(start), Date(end))) << date;
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
    const char* before = std::getenv("TZ");
    const std::string zone = before == nullptr ? "" : before;
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
    before == nullptr ? unsetenv("TZ") : setenv("TZ", zone.c_str(), 1);
    tzset();
}

TEST(Date, text_has_the_fields_of_the_ordering_in_the_styles) {
    const struct {
        std::uint16_t ordering;
        const char* expected;
    } orderings[] = {{0, ""},           {1, "2000"},       {12, "2000/161"},  {19, "6/9"},
                     {26, "9/6"},       {33, "161/2000"},  {83, "2000/6/9"},  {90, "2000/9/6"},
                     {139, "6/2000/9"}, {153, "6/9/2000"}, {202, "9/2000/6"}, {209, "9/6/2000"}};
    for (const auto& c : orderings)
        EXPECT_EQ(text_of(Date(2000161, c.ordering)), c.expected);
    const struct {
        Date date;
        const char* expected;
    } cases[] = {{Date(2000161, 83, 136, 0), "20000609"},
                 {Date(2000161, 83, 144, '-'), "2000- 6- 9"},
                 {Date(2000161, 83, 40), "2000/Jun/09"},
                 {Date(2000005, 33, 136), "005/2000"},
                 {Date(2000005, 33, 144), "  5/2000"},
                 {Date(2000005, 12, 132), "2000/5"},
                 {Date(2000065, 153, 68, ','), "March 5, 2000"},
                 {Date(2000065, 19, 68, ','), "March 5"},
                 {Date(2000065, 209, 36, ' '), "5 Mar 2000"},
                 {Date(1998160, 83, 133), "98/6/9"},
                 {Date(1998160, 83, 134), "'98/6/9"},
                 {Date(2005161, 1, 129), "05"},
                 {Date(161), "0000/6/9"},
                 {Date(-5005, 83, 136), "-005/01/05"},
                 {Date(-105005, 83, 133), "-5/1/5"},
                 {Date(0), "Date omitted"},
                 {Date(0, 0, std::uint16_t{0}), "Date omitted"},
                 {Date(2000999, 83, 68), "2000/December/152"},
                 {Date(2000005, 83, 132, '/', true), "2000/1/5(005)"}};
    for (const auto& c : cases)
        EXPECT_EQ(text_of(c.date), c.expected);
}

namespace {

// What the C library reads from the text by a format made from the ordering.
std::int32_t read_by_sscanf(const std::string& text, unsigned ordering, unsigned styles, char separator) {
    const bool comma = separator == ',' || text.find(',') != std::string::npos;
    const std::string plain(separator == 0 ? 0 : 1, separator);
    const std::string between[] = {"", comma ? " " : plain, comma ? ", " : plain};
    const bool named = (styles & 128) == 0;
    constexpr int unread = -1'000'000;
    int values[5] = {0, unread};
    char word[64] = "";
    std::string format;
    std::vector<void*> targets;
    int place = 0;
    for (int shift = 6; shift >= 0; shift -= 3) {
        const unsigned field = ordering >> shift & 7;
        if (field == 0)
            continue;
        format += between[place++];
        if (field == 2 && named)
            format += styles & 32 ? "%3s" : "%s";
        else if (field == 1)
            format += styles & 1 ? "%2d" : "%4d";
        else
            format += !(styles & 8) ? "%d" : field == 4 ? "%3d" : "%2d";
        targets.push_back(field == 2 && named ? static_cast<void*>(word) : &values[field]);
    }
    targets.resize(3);
    std::sscanf(text.c_str(), format.c_str(), targets[0], targets[1], targets[2]);
    std::tm name{};
    for (; named && name.tm_mon < 12; ++name.tm_mon) {
        char text_of_month[20];
        std::strftime(text_of_month, sizeof text_of_month, styles & 32 ? "%b" : "%B", &name);
        if (strcasecmp(word, text_of_month) == 0)
            values[2] = name.tm_mon + 1;
    }
    if (values[1] == unread)
        values[1] = 0;
    else if ((styles & 1) != 0)
        values[1] += 1900;
    Date date(0);
    if (ordering == 12 || ordering == 33)
        date.set_YD(static_cast<std::int16_t>(values[1]), static_cast<std::uint16_t>(values[4]));
    else if (ordering != 1)
        date.set_YMD(static_cast<std::int16_t>(values[1]), static_cast<std::uint8_t>(values[2]),
                     static_cast<std::uint8_t>(values[3]));
    return date.date_num;
}

} // namespace

TEST(Date, reads_what_formatted_input_reads_under_every_ordering_style_and_separator) {
    std::vector<std::string> texts = {"",           " ",       "x",           "2000",         "2000/",
                                      "/6/9",       "2000/6",  "-5/-6/-7",    "+1 +2 +3",     "  9 6",
                                      "20000609",   "2 0 0 0", "99999/99/99", "6,9,2000",     "sep/5/6",
                                      "5 MAR 2000", "-",       "12\t11\n10",  "March 5,2000", "5 sepT 1"};
    for (const unsigned ordering : {1u, 12u, 19u, 26u, 33u, 83u, 90u, 139u, 153u, 202u, 209u}) {
        for (const unsigned styles : {36u, 40u, 48u, 68u, 72u, 132u, 133u, 136u, 137u, 144u}) {
            for (const char separator : {'/', '-', '.', ' ', ',', '\0'}) {
                const auto with = [&](auto start) {
                    return Date(start, static_cast<std::uint16_t>(ordering),
                                static_cast<std::uint16_t>(styles), separator);
                };
                std::vector<std::string> own = texts;
                for (const std::int32_t number : {1998161, 1901005, 1999365, -45100, 250})
                    own.push_back(text_of(with(number)));
                for (const std::string& text : own) {
                    if (ordering == 12 && text.find_first_not_of("0123456789") == std::string::npos)
                        continue; // the number itself
                    ASSERT_EQ(with(text.c_str()).date_num, read_by_sscanf(text, ordering, styles, separator))
                        << '"' << text << "\" " << ordering << ' ' << styles << ' ' << separator;
                }
            }
        }
    }
}

TEST(Date, reads_back_its_own_texts_and_takes_hostile_ones_quietly) {
    for (const char* mask : {"YYYY/MM/DD", "YYYYMMDD", "DD-MM-YYYY", "MM/DD/YY", "D/Mmm/YYYY", "YYYY/Mmm/DD",
                             "YYYY/DDD", "DDD/YYYY"}) {
        for (const std::int32_t number : {1950001, 1960060, 1999365, 1996366}) {
            Date date(number);
            date.set_format(mask);
            EXPECT_EQ(date.set_c_str(text_of(date).c_str()), number) << mask;
        }
    }
    const std::string digits(100'000, '9');
    const struct {
        const char* text;
        std::uint16_t ordering, styles;
        char separator;
        std::int32_t expected;
    } cases[] = {{nullptr, 83, 132, '/', 0},
                 {"2000161", 0, 0, '/', 0},
                 {"2000161", 12, 132, '/', 2000161},
                 {"98161", 12, 133, '/', 98161},
                 {"2000.161", 12, 132, '.', 2000161},
                 {"98/6/9", 83, 133, '/', 1998160},
                 {"'98/6/9", 83, 134, '/', 1098160},
                 {"98/6/9", 83, 134, '/', 1098160},
                 {"bad", 83, 133, '/', 0},
                 {"6/9", 19, 133, '/', 161},
                 {"march 5, 2000", 153, 68, '/', 2000065},
                 {"1998", 1, 132, '/', 0},
                 {"2000/March/5", 83, 68, '/', 2000000},
                 {"4297000001", 12, 132, '/', 2032705},
                 {digits.c_str(), 83, 136, 0, 9999464},
                 {digits.c_str(), 33, 132, '/', 65535}};
    for (const auto& c : cases)
        EXPECT_EQ(Date(c.text, c.ordering, c.styles, c.separator).date_num, c.expected)
            << std::string(c.text == nullptr ? "null" : c.text).substr(0, 20);
}
