#include "editing/auto_calendar.h"

#include <algorithm>
#include <chrono>
#include <limits>

namespace {

constexpr const char* relative_hint = "For relative dates, year 0 indicates the target year, negative, the "
                                      "year before, and positive, the year after.";

struct Month_button {
    const char* name;
    const char* caption;
};

constexpr Month_button month_captions[] = {
    {"jan_button", "Jan"}, {"feb_button", "Feb"}, {"mar_button", "Mar"}, {"apr_button", "Apr"},
    {"may_button", "May"}, {"jun_button", "Jun"}, {"jul_button", "Jul"}, {"aug_button", "Aug"},
    {"sep_button", "Sep"}, {"oct_button", "Oct"}, {"nov_button", "Nov"}, {"dec_button", "Dec"},
};

std::optional<std::string> kept(const char* text) {
    return text == nullptr ? std::nullopt : std::optional<std::string>(text);
}

// The format is for the screen: the date keeps its own, by which its record is written.
std::string date_text(const TESK::Date& date, const std::optional<std::string>& format) {
    TESK::Date shown(0);
    shown = date;
    if (format)
        shown.set_format(format->c_str());
    std::string text;
    return screen_text(shown.text_str(text));
}

// 0 for Monday. The calendar repeats itself after 400 years, so that any year can be asked for.
int weekday_of_first(std::int16_t year, std::uint8_t month) {
    constexpr int cycle = 400;
    const std::chrono::year alike(5 * cycle + year % cycle);
    const std::chrono::sys_days first = alike / std::chrono::month(month) / 1;
    return static_cast<int>(std::chrono::weekday(first).iso_encoding()) - 1;
}

TAutoInt16Edit& add_number(TContainer& row, const char* caption, const char* name) {
    row.add<TLabel>("label", caption).set_names_next(true);
    auto& edit = row.add<TAutoInt16Edit>(name);
    edit.set_place({.width = 6});
    return edit;
}

} // namespace

TAutoCalendar_form::TAutoCalendar_form()
    : TForm("auto_calendar_form"), date_text_output(add<TLabel>("date_text_output")),
      relative_label(add<TLabel>("relative_label", relative_hint, true)),
      year_intedit(add_number(add<TPanel>("year_panel", Layout::row), "Year", "year_intedit")),
      year_updown(year_intedit.parent()->add<TSpinArrows>("year_updown")),
      decade_updown(year_intedit.parent()->add<TSpinArrows>("decade_updown", "\xC2\xB1 10")),
      century_updown(year_intedit.parent()->add<TSpinArrows>("century_updown", "\xC2\xB1 100")),
      millenia_updown(year_intedit.parent()->add<TSpinArrows>("millenia_updown", "\xC2\xB1 1000")),
      month_panel(add<TPanel>("month_panel", Layout::grid, 6)), month_buttons{},
      DOM_calendar(add<TMonthGrid>("DOM_calendar")),
      day_of_year_intedit(
          add_number(add<TPanel>("day_panel", Layout::row), "Day of year", "day_of_year_intedit")),
      nodate_button(add<TPanel>("panel_buttons", Layout::row).add<TButton>("nodate_button", "&No date")),
      today_button(nodate_button.parent()->add<TButton>("today_button", "&Today")),
      ok_button(nodate_button.parent()->add<TButton>("ok_button", "&OK")),
      cancel_button(nodate_button.parent()->add<TButton>("cancel_button", "&Cancel")) {
    date_text_output.set_text_is_data(true);
    DOM_calendar.set_place({.stretch = 1});
    ok_button.set_default(true);
    ok_button.set_modal_result(Modal_result::ok);
    cancel_button.set_cancel(true);
    cancel_button.set_modal_result(Modal_result::cancel);
    add_month_buttons();
    connect();
    bind_to(nullptr, nullptr, false, nullptr);
}

void TAutoCalendar_form::add_month_buttons() {
    for (std::uint8_t month = 1; month <= month_buttons.size(); ++month) {
        const Month_button& captions = month_captions[month - 1];
        TSpeedButton& button = month_panel.add<TSpeedButton>(captions.name, captions.caption);
        button.on_click = [this, month] { month_button_onclick(month); };
        month_buttons[month - 1U] = &button;
    }
}

void TAutoCalendar_form::connect() {
    year_intedit.on_change = [this] { year_intedit_onchange(true); };
    year_intedit.on_exit = [this] { year_intedit_onchange(false); };
    day_of_year_intedit.on_change = [this] { day_of_year_intedit_onchange(); };
    day_of_year_intedit.on_exit = [this] { update_calendar(); };
    year_updown.on_spin = [this](bool upward) { year_updown_onchangingex(1, upward); };
    decade_updown.on_spin = [this](bool upward) { year_updown_onchangingex(10, upward); };
    century_updown.on_spin = [this](bool upward) { year_updown_onchangingex(100, upward); };
    millenia_updown.on_spin = [this](bool upward) { year_updown_onchangingex(1000, upward); };
    DOM_calendar.on_click = [this] { DOM_calendar_onclick(); };
    year_intedit.on_key = [this](const Key& key) {
        switch (key.code) {
        case Key_code::up: return year_updown.spin(true);
        case Key_code::down: return year_updown.spin(false);
        case Key_code::page_up: return decade_updown.spin(true);
        case Key_code::page_down: return decade_updown.spin(false);
        default: return false;
        }
    };
    nodate_button.on_click = [this] { nodate_button_onclick(); };
    today_button.on_click = [this] { today_button_onclick(); };
    on_close = [this] {
        if (modal_result() != Modal_result::ok)
            restore_original_date();
    };
}

void TAutoCalendar_form::bind_to(TESK::Date* edited, const char* format, bool relative,
                                 const char* help_URL) {
    no_date_.set_datenum(0);
    date = edited == nullptr ? &no_date_ : edited;
    original_date = *date;
    date_format = kept(format);
    relative_ = relative;
    year_intedit.bind_to(&year, nullptr);
    day_of_year_intedit.bind_to(&day_of_year, nullptr);
    updown_enabled = true;
    show_relative();
    update_calendar();
    Help_link::set(help_URL);
}

// Where a year is counted from another, there is no today, and no wide step makes sense.
void TAutoCalendar_form::show_relative() {
    set_hint(relative_ ? relative_hint : "");
    relative_label.set_visible(relative_);
    for (TControl* control :
         {static_cast<TControl*>(&today_button), static_cast<TControl*>(&decade_updown),
          static_cast<TControl*>(&century_updown), static_cast<TControl*>(&millenia_updown)})
        control->set_visible(!relative_);
}

void TAutoCalendar_form::today_button_onclick() {
    date->set_today();
    update_calendar();
}

void TAutoCalendar_form::nodate_button_onclick() {
    date->set_datenum(0);
    update_calendar();
}

void TAutoCalendar_form::year_intedit_onchange(bool typing) {
    take_year();
    if (!typing && year_intedit.modified())
        limit_day();
    update_calendar(typing ? &year_intedit : nullptr);
}

// The last day of a leap year is the last one of a common year, too. While a year is typed the day waits: the
// years on the way are not meant.
void TAutoCalendar_form::limit_day() {
    const std::uint16_t last = date->get_days_in_this_year();
    if (date->get_day_of_year() > last)
        date->set_day_of_year(last);
}

// Leaving the edit must not touch a date whose year it cannot hold, nor make a date of none.
void TAutoCalendar_form::take_year() {
    if (year == date->get_year())
        return;
    date->set_year(year);
    const bool lacks_day = date->date_num != 0 && date->get_day_of_year() == 0;
    if (lacks_day)
        date->set_day_of_year(1);
}

// A day outside the year would run into the digits of the year.
void TAutoCalendar_form::day_of_year_intedit_onchange() {
    if (day_of_year != date->get_day_of_year())
        date->set_day_of_year(
            static_cast<std::uint16_t>(std::clamp<int>(day_of_year, 1, date->get_days_in_this_year())));
    update_calendar(&day_of_year_intedit);
}

void TAutoCalendar_form::month_button_onclick(std::uint8_t month) {
    constexpr std::uint8_t first = 1; // for no date, which has no day to keep
    year = date->get_year();
    date->set_YMD(year, month, std::max(date->get_day_of_month(), first));
    update_calendar();
}

void TAutoCalendar_form::DOM_calendar_onclick() {
    date->set_YMD(date->get_year(), date->get_month(), static_cast<std::uint8_t>(DOM_calendar.day()));
    update_calendar();
}

void TAutoCalendar_form::year_updown_onchangingex(int years, bool upward) {
    using Limits = std::numeric_limits<std::int16_t>;
    if (!updown_enabled)
        return;
    year = static_cast<std::int16_t>(
        std::clamp<int>(year + (upward ? years : -years), Limits::min(), Limits::max()));
    take_year();
    limit_day();
    update_calendar();
}

void TAutoCalendar_form::restore_original_date() {
    *date = original_date;
    update_calendar();
}

void TAutoCalendar_form::update_calendar(const TControl* typed_in) {
    std::uint8_t month = 0;
    std::uint8_t day_of_month = 0;
    date->get_YMD(year, month, day_of_month);
    day_of_year = static_cast<std::int16_t>(date->get_day_of_year());
    for (TAutoInt16Edit* edit : {&year_intedit, &day_of_year_intedit})
        if (edit != typed_in)
            edit->Update();
    const std::string text = date_text(*date, date_format);
    date_text_output.set_text(text);
    set_text(text);
    update_month(month, day_of_month);
}

// Of a year that recurs, or is counted from another, nobody knows the days of the week.
void TAutoCalendar_form::update_month(std::uint8_t month, std::uint8_t day_of_month) {
    for (std::uint8_t other = 1; other <= month_buttons.size(); ++other)
        month_buttons[other - 1U]->set_down(other == month);
    const bool has_weekdays = !relative_ && year != 0;
    DOM_calendar.set_shows_weekdays(has_weekdays);
    DOM_calendar.set_month(TESK::days_in_month(year, month), has_weekdays ? weekday_of_first(year, month) : 0,
                           day_of_month);
}

TAutoDateButton::TAutoDateButton(std::string name) : TButton(std::move(name)) {
    set_text_is_data(true);
}

void TAutoDateButton::bind_to(TESK::Date* value, const char* format, bool is_relative, const char* help_URL) {
    date = value;
    date_format = kept(format);
    relative = is_relative;
    Help_link::set(help_URL);
    Update();
}

void TAutoDateButton::Update() {
    set_text(date == nullptr ? "" : date_text(*date, date_format));
}

void TAutoDateButton::do_click() {
    if (date != nullptr) {
        TAutoCalendar_form calendar;
        calendar.bind_to(date, date_format ? date_format->c_str() : nullptr, relative,
                         get_help_URL() == nullptr ? "" : get_help_URL()->c_str());
        calendar.show_modal();
        Update();
    }
    TButton::do_click();
}
