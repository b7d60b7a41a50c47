#include "editing/auto_calendar.h"
#include "editing/auto_month_label.h"
#include "support/test_desktop.h"

#include <algorithm>

using TESK::Date;

namespace {

using User = std::function<void(TAutoCalendar_form&)>;

User press(const char* button) {
    return [=](TAutoCalendar_form& calendar) { EXPECT_TRUE(calendar.find(button)->click()) << button; };
}

User spin(const char* arrows, bool upward) {
    return [=](TAutoCalendar_form& calendar) {
        EXPECT_TRUE(static_cast<TSpinArrows*>(calendar.find(arrows))->spin(upward)) << arrows;
    };
}

// Key by key, in place of what the edit holds.
User type(const char* edit, const std::string& text) {
    return [=](TAutoCalendar_form& calendar) {
        auto& typed_in = static_cast<TEdit&>(*calendar.find(edit));
        typed_in.focus();
        typed_in.select_all();
        typed_in.key({Key_code::del, {}});
        for (const char c : text)
            EXPECT_TRUE(typed_in.type_text(std::string(1, c)));
    };
}

User key(Key_code code) {
    return [=](TAutoCalendar_form& calendar) { EXPECT_TRUE(calendar.year_intedit.key({code, {}})); };
}

User pick(int day) {
    return [=](TAutoCalendar_form& calendar) { EXPECT_TRUE(calendar.DOM_calendar.pick(day)); };
}

class Calendar : public testing::Test {
protected:
    // Opens the calendar on the date, lets the user work on it and end it by OK.
    void edit(Date& date, const User& user, bool relative = false) {
        desktop.expect_modal("auto_calendar_form", [&](TForm& form) {
            auto& calendar = static_cast<TAutoCalendar_form&>(form);
            user(calendar);
            expect_to_show(calendar, date);
            if (calendar.visible()) {
                EXPECT_TRUE(calendar.ok_button.click());
            }
        });
        button.bind_to(&date, nullptr, relative, nullptr);
        EXPECT_TRUE(button.click());
    }

    static void expect_to_show(TAutoCalendar_form& calendar, const Date& date) {
        std::string text;
        date.text_str(text);
        EXPECT_EQ(calendar.date_text_output.text(), text);
        EXPECT_EQ(calendar.text(), text);
        EXPECT_EQ(calendar.DOM_calendar.day(), std::min<int>(date.get_day_of_month(), 31));
        for (std::size_t month = 1; month <= calendar.month_buttons.size(); ++month)
            EXPECT_EQ(calendar.month_buttons[month - 1]->down(), month == date.get_month()) << text;
        expect_number(calendar.year_intedit, date.get_year());
        expect_number(calendar.day_of_year_intedit, date.get_day_of_year());
    }

    // An edit that the user is typing in may hold less, or more.
    static void expect_number(const TAutoInt16Edit& edit, int number) {
        if (!edit.focused()) {
            EXPECT_EQ(edit.text(), std::to_string(number));
        }
    }

    Test_desktop desktop;
    TForm form_{"form"};
    TAutoDateButton& button = form_.add<TAutoDateButton>("date_button");
    void SetUp() override { form_.show(); }
};

TEST_F(Calendar, takes_every_action_into_the_date_at_once) {
    const std::int32_t today = Date().date_num;
    const std::tuple<const char*, std::int32_t, User, std::int32_t> cases[] = {
        {"today", 1999001, press("today_button"), today},
        {"no date", 1999001, press("nodate_button"), 0},
        {"a month keeps the day", 2000015, press("dec_button"), 2000350},
        {"31 February is 3 March", 2001031, press("feb_button"), 2001062},
        {"31 February of a leap year is 2 March", 2000031, press("feb_button"), 2000062},
        {"the day of a cell", 2000060, pick(1), 2000032},
        {"a year up", 1999100, spin("year_updown", true), 2000100},
        {"a year down", 1999100, spin("year_updown", false), 1998100},
        {"a decade", 1999100, spin("decade_updown", true), 2009100},
        {"a century", 1999100, spin("century_updown", false), 1899100},
        {"a millennium", 1999100, spin("millenia_updown", true), 2999100},
        {"a decade down by its key", 1999100, key(Key_code::page_down), 1989100},
        {"across year 0", 5100, spin("decade_updown", false), -5100},
        {"the last year", 32767001, spin("year_updown", true), 32767001},
        {"beyond the last year", 32000001, spin("millenia_updown", true), 32767001},
        {"beyond the first year", -32000001, spin("millenia_updown", false), -32768001},
        {"a typed year keeps the day on the way", 2000366, type("year_intedit", "2004"), 2004366},
        {"the last day of a leap year, a year up", 2000366, spin("year_updown", true), 2001365},
        {"the last day of a leap year, a common year typed", 2000366, type("year_intedit", "2001"), 2001365},
        {"a typed year before 0", 2000005, type("year_intedit", "-5"), -5005},
        {"no year", 2000005, type("year_intedit", ""), 5},
        {"a typed day", 2001001, type("day_of_year_intedit", "161"), 2001161},
        {"a day behind the year", 2001001, type("day_of_year_intedit", "400"), 2001365},
        {"a day behind the leap year", 2000001, type("day_of_year_intedit", "9999"), 2000366},
        {"a day before the year", 2001005, type("day_of_year_intedit", "-3"), 2001001},
        {"no day", 2001005, type("day_of_year_intedit", ""), 2001001},
        {"no date, nothing typed", 0, type("year_intedit", ""), 0},
        {"no date, a typed year", 0, type("year_intedit", "2024"), 2024001},
        {"no date, a typed day", 0, type("day_of_year_intedit", "45"), 45},
        {"no date, a month", 0, press("feb_button"), 32},
        {"no date, a day", 0, pick(17), 17},
        {"no date, a year up", 0, spin("year_updown", true), 1001},
        {"arrows that are switched off", 2000001,
         [](TAutoCalendar_form& calendar) {
             calendar.updown_enabled = false;
             spin("century_updown", true)(calendar);
         },
         2000001},
        {"a year that the edit cannot hold, looked at", 99999001,
         [](TAutoCalendar_form& calendar) { EXPECT_TRUE(calendar.day_of_year_intedit.focus()); }, 99999001},
    };
    for (const auto& [what, before, user, after] : cases) {
        SCOPED_TRACE(what);
        Date date(before);
        edit(date, user);
        EXPECT_EQ(date.date_num, after);
    }
}

TEST_F(Calendar, gives_the_date_back_unless_it_ends_by_ok) {
    const User ends[] = {
        press("cancel_button"),
        [](TAutoCalendar_form& calendar) { EXPECT_TRUE(calendar.close()); },
        key(Key_code::escape),
    };
    const User works[] = {press("nodate_button"), press("today_button"), type("year_intedit", "7"),
                          type("day_of_year_intedit", "9"), pick(3)};
    for (const std::int32_t before : {1999031, 0, 31, -5005, 99999001})
        for (const User& work : works)
            for (const User& end : ends) {
                Date date(before);
                edit(date, [&](TAutoCalendar_form& calendar) {
                    work(calendar);
                    end(calendar);
                });
                EXPECT_EQ(date.date_num, before);
            }
}

TEST_F(Calendar, leaves_what_is_typed_alone_until_the_focus_leaves_or_the_arrows_change_it) {
    Date date(2001100);
    edit(date, [](TAutoCalendar_form& calendar) {
        type("year_intedit", "-")(calendar);
        EXPECT_EQ(calendar.year_intedit.text(), "-");
        spin("year_updown", true)(calendar);
        EXPECT_EQ(calendar.year_intedit.text(), "1");
        type("day_of_year_intedit", "400")(calendar);
        EXPECT_EQ(calendar.day_of_year_intedit.text(), "400");
        calendar.DOM_calendar.focus();
    });
    EXPECT_EQ(date.date_num, 1365);
}

TEST_F(Calendar, of_a_relative_date_hides_what_has_no_meaning) {
    for (const bool relative : {false, true}) {
        Date date(2024060);
        edit(
            date,
            [&](TAutoCalendar_form& calendar) {
                for (const char* name :
                     {"today_button", "decade_updown", "century_updown", "millenia_updown"})
                    EXPECT_EQ(calendar.find(name)->visible(), !relative) << name;
                EXPECT_EQ(calendar.relative_label.visible(), relative);
                EXPECT_EQ(calendar.DOM_calendar.shows_weekdays(), !relative);
                EXPECT_EQ(calendar.hint(), relative
                                               ? "For relative dates, year 0 indicates the target year, "
                                                 "negative, the year before, and positive, the year after."
                                               : "");
            },
            relative);
    }
    Date before(60);
    edit(before, spin("year_updown", false), true);
    EXPECT_EQ(before.date_num, -1060);
}

TEST_F(Calendar, lays_the_month_out_by_the_days_of_the_week) {
    // The calendar is the Gregorian one for every year, before 0 too; year 0 recurs and has no weekdays.
    for (const auto& [date_num, days, first_weekday] :
         {std::tuple(2024060, 29, 3), {1900032, 28, 3}, {2001366, 31, 5}, {-1001, 31, 4}, {60, 29, 0}}) {
        Date date(date_num);
        TAutoCalendar_form calendar;
        calendar.bind_to(&date, nullptr, false, nullptr);
        EXPECT_EQ(calendar.DOM_calendar.days(), days) << date_num;
        EXPECT_EQ(calendar.DOM_calendar.first_weekday(), first_weekday) << date_num;
    }
}

TEST_F(Calendar, button_shows_the_date_in_its_format_and_then_runs_its_own_handler) {
    Date date(2000161);
    date.set_format(12, TESK::no_padding, '.', false);
    std::string caption_seen;
    button.on_click = [&] { caption_seen = button.text(); };
    button.bind_to(&date, "YYYY/Mmm/DD", false, "http://example.org/dates.htm");
    EXPECT_EQ(button.text(), "2000/Jun/09");
    desktop.expect_modal("auto_calendar_form", [](TForm& form) {
        auto& calendar = static_cast<TAutoCalendar_form&>(form);
        EXPECT_EQ(*calendar.get_help_URL(), "http://example.org/dates.htm");
        EXPECT_EQ(calendar.text(), "2000/Jun/09");
        press("nodate_button")(calendar);
        calendar.ok_button.click();
    });
    EXPECT_TRUE(button.click());
    EXPECT_EQ(caption_seen, "Date omitted");
    EXPECT_EQ(date.ordering, 12) << "the record's own format is not the button's";

    button.bind_to(nullptr, nullptr, false, nullptr);
    caption_seen = "none";
    EXPECT_TRUE(button.click());
    EXPECT_EQ(caption_seen, "");
}

TEST(Month_label, has_a_pixel_for_each_day) {
    TAutoMonthLabel label("label");
    EXPECT_EQ(label.width(), 366);
    EXPECT_EQ(label.stretches()[0].colour, 0x808080);
    EXPECT_EQ(label.stretches()[1].colour, 0xc0c0c0);
    label.set_non_leap(true);
    EXPECT_EQ(label.width(), 365);
    EXPECT_EQ(label.stretches()[1].width, 28);
}

} // namespace
