#include "editing/auto_month_label.h"

namespace {

constexpr int february = 2;
constexpr int february_days_of_non_leap = 28;
constexpr Colour odd_month_colour = 0x808080;
constexpr Colour even_month_colour = 0xc0c0c0;

struct Month {
    int days;
    const char* name;
};

constexpr Month months[] = {
    {31, "Jan"}, {29, "Feb"}, {31, "Mar"}, {30, "Apr"}, {31, "May"}, {30, "Jun"},
    {31, "Jul"}, {31, "Aug"}, {30, "Sep"}, {31, "Oct"}, {30, "Nov"}, {31, "Dec"},
};

} // namespace

TAutoMonthLabel::TAutoMonthLabel(std::string name) : TRuler(std::move(name)) {
    Paint();
}

void TAutoMonthLabel::set_non_leap(bool non_leap) {
    non_leap_ = non_leap;
    Paint();
}

void TAutoMonthLabel::Paint() {
    std::vector<Stretch> stretches;
    int number = 1;
    for (const Month& month : months) {
        const int days = number == february && non_leap_ ? february_days_of_non_leap : month.days;
        stretches.push_back({days, number % 2 == 1 ? odd_month_colour : even_month_colour, month.name});
        ++number;
    }
    set_stretches(std::move(stretches));
}
