#include "temporal/date_format.h"

#include <cstddef>
#include <string_view>

namespace TESK {

namespace {

// A mask that can be asked for any place, before its start and behind its end too.
class Mask {
public:
    explicit Mask(const char* text) : text_(text) {}

    std::ptrdiff_t size() const { return static_cast<std::ptrdiff_t>(text_.size()); }

    // The character at the place, or 0 where there is none.
    char at(std::ptrdiff_t place) const {
        return place >= 0 && place < size() ? text_[static_cast<std::size_t>(place)] : '\0';
    }

    // Whether the "M" at the place stands for minutes.
    bool is_minute(std::ptrdiff_t place) const {
        return at(place - 1) == ':' || at(place + 1) == ':' || at(place - 2) == ':' || at(place + 2) == ':' ||
               at(place + 2) == 'S' || at(place + 3) == 'S';
    }

private:
    std::string_view text_;
};

// What a walk over a date mask gathers.
class Date_mask_reader {
public:
    explicit Date_mask_reader(const Mask& mask) : mask_(mask) {}

    void read(Date_format& format) {
        format.separator = 0;
        for (std::ptrdiff_t place = 0; place < mask_.size(); ++place) {
            switch (mask_.at(place)) {
            case '0': flags_ |= zero_flag; break;
            case '1': flags_ |= one_flag; break;
            case '-':
            case '/': format.separator = mask_.at(place); break;
            case 'D': place += read_day(place); break;
            case 'M':
                if (!mask_.is_minute(place))
                    read_month(place);
                break;
            case 'Y':
                if (mask_.at(place + 3) == 'Y')
                    year_style_ = 0;
                join(Date_field::year);
                break;
            default: break;
            }
        }
        format.ordering = ordering_;
        format.styles = static_cast<std::uint16_t>(flags_ | year_style_ | padding_style() | month_style_);
    }

private:
    // Returns how many further characters belong to the day.
    std::ptrdiff_t read_day(std::ptrdiff_t place) {
        if (mask_.at(place + 2) == 'D') {
            join(Date_field::day_of_year);
            return 2;
        }
        join(Date_field::day_of_month);
        wants_zeros_ = mask_.at(place + 1) == 'D';
        return wants_zeros_ ? 1 : 0;
    }

    void read_month(std::ptrdiff_t place) {
        if (mask_.at(place + 1) == 'm')
            month_style_ = mask_.at(place + 3) == 'm' ? full_month : abbreviated_month;
        if (mask_.at(place - 1) == ' ')
            wants_blanks_ = true;
        if (mask_.at(place + 1) == 'M') {
            wants_zeros_ = true;
            wants_blanks_ = false;
        }
        join(Date_field::month);
    }

    void join(Date_field field) {
        const auto code = static_cast<std::uint16_t>(field);
        if ((ordering_ & 7) != code)
            ordering_ = static_cast<std::uint16_t>(ordering_ << 3 | code);
    }

    std::uint16_t padding_style() const {
        return wants_zeros_ ? leading_zeros : wants_blanks_ ? leading_blanks : no_padding;
    }

    Mask mask_;
    std::uint16_t ordering_ = 0;
    std::uint16_t flags_ = 0;
    std::uint16_t year_style_ = two_digit_year;
    std::uint16_t month_style_ = numeric_month;
    bool wants_zeros_ = false;
    bool wants_blanks_ = false;
};

std::uint8_t time_ordering(bool hours, bool minutes, bool seconds) {
    if (hours && minutes)
        return seconds ? time_hours_minutes_seconds : time_hours_minutes;
    if (hours)
        return time_hours;
    if (minutes)
        return seconds ? time_minutes_seconds : time_minutes;
    return seconds ? time_seconds : time_none;
}

} // namespace

void Date_format::set_format(const char* mask) {
    if (mask != nullptr)
        Date_mask_reader(Mask(mask)).read(*this);
}

void Time_format::set_format(const char* mask) {
    if (mask == nullptr)
        return;
    const Mask text(mask);
    bool hours = false, minutes = false, seconds = false, separated = false;
    for (std::ptrdiff_t place = 0; place < text.size(); ++place) {
        switch (text.at(place)) {
        case 'H': hours = true; break;
        case 'M': minutes = minutes || separated || text.at(place + 2) == 'S'; break;
        case 'S': seconds = true; break;
        case '.':
        case ':':
            separator = text.at(place);
            separated = true;
            break;
        default: break;
        }
    }
    ordering = time_ordering(hours, minutes, seconds);
    style = 2;
}

void Date_time_format::set_format(const char* mask) {
    Date_format::set_format(mask);
    Time_format::set_format(mask);
}

} // namespace TESK
