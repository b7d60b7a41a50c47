#include "temporal/date_format.h"

#include <gtest/gtest.h>

TEST(Date_format, mask_gives_ordering_styles_and_separator) {
    const std::tuple<const char*, int, int, char> cases[] = {
        {"YYYY/Mmm/DD", 83, 40, '/'}, {"YYYY/MM/DD", 83, 136, '/'},   {"YYYY.DDD", 12, 132, 0},
        {"YYYYMMDD", 83, 136, 0},     {"YYYY/M/D", 83, 132, '/'},     {"YY-DDD", 12, 133, '-'},
        {"DDD/YYYY", 33, 132, '/'},   {"D-M/YYYY", 209, 132, '/'},    {"DD Mmmm YYYY", 209, 72, 0},
        {"D Mmm YYYY", 209, 48, 0},   {"D MM YYYY", 209, 136, 0},     {"MM/D/YYYY", 153, 132, '/'},
        {"MM/DD", 19, 137, '/'},      {"HH:MM:SS", 0, 133, 0},        {"HH:MM", 0, 133, 0},
        {"MM:SS", 0, 133, 0},         {"HH.MM.SS", 0, 133, 0},        {"HH.MM", 2, 137, 0},
        {"Y/D/M/Y", 721, 133, '/'},   {"DMDMDMDMDM", 0x289A, 133, 0}, {"10", 0, 901, 0}};
    for (const auto& [mask, ordering, styles, separator] : cases) {
        TESK::Date_format format(83, 0xFFFF, '?', true);
        format.set_format(mask);
        EXPECT_EQ(format.ordering, ordering) << mask;
        EXPECT_EQ(format.styles, styles) << mask;
        EXPECT_EQ(format.separator, separator) << mask;
        EXPECT_TRUE(format.show_day_of_year);
    }
}

TEST(Time_format, mask_gives_ordering_and_separator) {
    const std::tuple<const char*, int, char> cases[] = {
        {"HH:MM:SS", 1, ':'}, {"HH.MM", 2, '.'}, {"MM:SS", 3, ':'},      {"HH", 4, '?'},
        {"HH:SS", 4, ':'},    {":MM", 5, ':'},   {"SS", 6, '?'},         {"HHMM", 4, '?'},
        {"MMSS", 3, '?'},     {"", 0, '?'},      {"YYYY/MM/DD", 0, '?'}, {"YYYY.MM", 5, '.'}};
    for (const auto& [mask, ordering, separator] : cases) {
        TESK::Time_format format;
        format.separator = '?';
        format.set_format(mask);
        EXPECT_EQ(format.ordering, ordering) << mask;
        EXPECT_EQ(format.separator, separator) << mask;
        EXPECT_EQ(format.style, 2);
    }
}
