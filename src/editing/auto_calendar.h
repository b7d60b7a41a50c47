// The date of a record on the screen: a button that shows it, and the calendar that the button opens to
// change it. Dates are not typed.
#pragma once

#include "editing/auto_edits.h"
#include "temporal/date.h"
#include "toolkit/button.h"
#include "toolkit/label.h"
#include "toolkit/month_grid.h"
#include "toolkit/panel.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>

// A dialog that edits a date. The date follows everything the user does at once; it gets its first value back
// unless the dialog ends by OK, however else the window is closed.
class TAutoCalendar_form : public TForm, public Help_link {
public:
    TAutoCalendar_form();

    // The date outlives the form; null shows no date, and nothing is edited. The format is a mask (see
    // TESK::Date_format::set_format) for showing the date alone; null is the date's own. The year of a
    // `relative` date counts from the target year.
    void bind_to(TESK::Date* edited, const char* format, bool relative, const char* help_URL);
    void Update() override { update_calendar(); }

    // Whether the arrows beside the year act; bind_to() switches them on.
    bool updown_enabled = true;

    TLabel& date_text_output;
    TLabel& relative_label; // what the years of a relative date mean
    TAutoInt16Edit& year_intedit;
    TSpinArrows& year_updown;
    TSpinArrows& decade_updown;
    TSpinArrows& century_updown;
    TSpinArrows& millenia_updown;
    TPanel& month_panel;
    std::array<TSpeedButton*, 12> month_buttons; // of the month panel, from January
    TMonthGrid& DOM_calendar;
    TAutoInt16Edit& day_of_year_intedit;
    TButton& nodate_button;
    TButton& today_button;
    TButton& ok_button;
    TButton& cancel_button;

private:
    void add_month_buttons();
    void connect();
    void show_relative();

    void today_button_onclick();
    void nodate_button_onclick();
    void year_intedit_onchange(bool typing);
    void day_of_year_intedit_onchange();
    void month_button_onclick(std::uint8_t month);
    void DOM_calendar_onclick();
    void year_updown_onchangingex(int years, bool upward);
    void restore_original_date();

    void take_year();
    void limit_day();
    // Brings all controls in line with the date, but for the edit that the user is typing in.
    void update_calendar(const TControl* typed_in = nullptr);
    void update_month(std::uint8_t month, std::uint8_t day_of_month);

    TESK::Date no_date_{0};
    TESK::Date original_date{0};
    TESK::Date* date = &no_date_;
    std::optional<std::string> date_format;
    bool relative_ = false;
    std::int16_t year = 0;
    std::int16_t day_of_year = 0;
};

// A button whose caption is a date. A click opens the calendar on it, before the button's own handler runs.
class TAutoDateButton : public TButton, public Help_link {
public:
    explicit TAutoDateButton(std::string name);

    // As bind_to() of the calendar. Without a date the button says nothing and opens nothing.
    void bind_to(TESK::Date* value, const char* format, bool is_relative, const char* help_URL);
    void Update() override;

protected:
    void do_click() override;

private:
    TESK::Date* date = nullptr;
    std::optional<std::string> date_format;
    bool relative = false;
};
