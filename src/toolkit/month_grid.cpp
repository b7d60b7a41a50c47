#include "toolkit/month_grid.h"

#include <algorithm>

void TMonthGrid::set_month(int days, int first_weekday, int day) {
    days_ = std::clamp(days, 1, 31);
    first_weekday_ = std::clamp(first_weekday, 0, 6);
    day_ = std::clamp(day, 0, days_);
    notify(Aspect::value);
}

bool TMonthGrid::pick(int day) {
    if (!begin_action() || day < 1 || day > days_)
        return false;
    assign(day_, day, Aspect::value);
    do_click();
    return true;
}

bool TMonthGrid::press(const Key& key) {
    switch (key.code) {
    case Key_code::left: return pick(day_ - 1);
    case Key_code::right: return pick(day_ + 1);
    case Key_code::up: return pick(day_ - 7);
    case Key_code::down: return pick(day_ + 7);
    default: return false;
    }
}
