// The days of one month in rows of weeks, one of them marked. It knows no calendar: it is told how the month
// lies.
#pragma once

#include "toolkit/control.h"

class TMonthGrid : public TControl {
public:
    explicit TMonthGrid(std::string name) : TControl(Control_kind::month_grid, std::move(name)) {
        set_takes_focus(true);
    }

    // The days of the month (1 to 31), the weekday of its first (0 for Monday to 6), the marked day (0 for
    // none).
    void set_month(int days, int first_weekday, int day);
    int days() const { return days_; }
    int first_weekday() const { return first_weekday_; }
    int day() const { return day_; }
    // Whether the columns are named after the days of the week; a month of no certain year has none.
    bool shows_weekdays() const { return shows_weekdays_; }
    void set_shows_weekdays(bool shows) { assign(shows_weekdays_, shows, Aspect::state); }

    // What a user does: clicks the cell of a day, which is marked, then fires.
    bool pick(int day);
    bool click() override { return pick(day_); }

protected:
    bool press(const Key& key) override;

private:
    int days_ = 31;
    int first_weekday_ = 0;
    int day_ = 0;
    bool shows_weekdays_ = true;
};
