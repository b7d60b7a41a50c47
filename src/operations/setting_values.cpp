#include "operations/setting_values.h"

#include "foundation/code_page_1252.h"
#include "foundation/numbers.h"
#include "platform/host_names.h"
#include "records/typed_entries.h"
#include "temporal/date.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <limits>
#include <optional>

using TESK::Entry_type;

namespace {

// The number that the whole text is; nothing when it is none.
template <class Number, class... Form>
std::optional<Number> whole_number(const std::string& text, Form... form) {
    Number number{};
    const char* const end = text.data() + text.size();
    const auto [behind, error] = std::from_chars(text.data(), end, number, form...);
    return error == std::errc() && behind == end ? std::optional(number) : std::nullopt;
}

struct Integer_range {
    std::int64_t low;
    std::int64_t high;
};

template <class Integer>
constexpr Integer_range range_of() {
    return {std::numeric_limits<Integer>::min(), std::numeric_limits<Integer>::max()};
}

Integer_range integer_range(Entry_type type) {
    switch (type) {
    case Entry_type::uint8: return range_of<std::uint8_t>();
    case Entry_type::uint32: return range_of<std::uint32_t>();
    case Entry_type::int16: return range_of<std::int16_t>();
    default: return range_of<std::int32_t>();
    }
}

std::string integer_text(const Setting& setting, const std::string& value, std::string& text) {
    const Integer_range range = integer_range(setting.entry().type_code());
    const auto number = whole_number<std::int64_t>(value, setting.radix());
    if (number && *number >= range.low && *number <= range.high) {
        text = value;
        return {};
    }
    std::string low;
    std::string high;
    TESK::append_integer(low, range.low, setting.radix());
    TESK::append_integer(high, range.high, setting.radix());
    const std::string base = setting.radix() == 10 ? "" : " in base " + std::to_string(setting.radix());
    return "The value must be a whole number" + base + " from " + low + " to " + high + ".";
}

std::string number_text(const std::string& value, std::string& text) {
    const auto number = whole_number<float>(value, std::chars_format::general);
    if (!number || !std::isfinite(*number))
        return "The value must be a number such as 12 or 0.25.";
    text = value;
    return {};
}

// The number of the date that the text is; nothing when it is none.
std::optional<std::int32_t> date_number(const std::string& text) {
    if (text.empty() || text == "0")
        return 0;
    if (const auto number = whole_number<std::int32_t>(text)) {
        const TESK::Date date(*number);
        const bool is_day =
            date.get_day_of_year() >= 1 && date.get_day_of_year() <= date.get_days_in_this_year();
        return is_day && *number > 0 ? number : std::nullopt;
    }
    if (text.size() != 10 || text[4] != '-' || text[7] != '-')
        return std::nullopt;
    const auto year = whole_number<std::int16_t>(text.substr(0, 4));
    const auto month = whole_number<std::uint8_t>(text.substr(5, 2));
    const auto day = whole_number<std::uint8_t>(text.substr(8));
    if (!year || !month || !day || *year < 0 || *month < 1 || *month > 12 || *day < 1)
        return std::nullopt;
    TESK::Date date(std::int32_t{0});
    date.set_YMD(*year, *month, *day);
    // A day that the month lacks has become one of the next.
    return date.get_day_of_month() == *day ? std::optional(date.date_num) : std::nullopt;
}

std::string date_text(const std::string& value, std::string& text) {
    const auto number = date_number(value);
    if (!number)
        return "The value must be a date such as 1996-05-02 or 1996123, or 0 for none.";
    text = std::to_string(*number);
    return {};
}

std::string flag_text(const std::string& value, std::string& text) {
    for (const char* word : {"true", "on", "1", "false", "off", "0"}) {
        if (TESK::equal_ignoring_case(value, word)) {
            text = word;
            return {};
        }
    }
    return "The value must be true or false.";
}

std::string choice_text(const Setting& setting, const std::string& value, std::string& text) {
    const auto choices = setting.choices();
    std::string labels;
    for (const bool exact : {true, false}) {
        for (const auto& [label, description] : choices) {
            if (exact ? label == value : TESK::equal_ignoring_case(label, value)) {
                text = label;
                return {};
            }
            if (exact)
                labels += (labels.empty() ? "" : ", ") + label;
        }
    }
    return "The value must be one of: " + labels + ".";
}

std::string unit_text(const Setting& setting, const std::string& value, std::string& text) {
    TESK::VV_base_entry& entry = setting.entry();
    std::string old;
    std::string read;
    entry.get_value(old);
    entry.set_value(value.c_str());
    entry.get_value(read);
    entry.set_value(old.c_str());
    if (read != value)
        return "The value must be a unit such as kg/ha.";
    text = value;
    return {};
}

std::string line_text(const std::string& value) {
    return value.find_first_of(std::string("\r\n\0", 3)) == std::string::npos
               ? std::string()
               : "The value must be one line of text.";
}

// The value of an entry, which gets it back. The text of a number that is not a round one tells less than the
// field holds.
class Kept_value {
public:
    explicit Kept_value(TESK::VV_base_entry& entry) : entry_(entry) {
        entry.get_value(text_);
        if (entry.type_code() == Entry_type::float32)
            number_ = static_cast<TESK::VV_float32_entry&>(entry).value;
        else if (entry.type_code() == Entry_type::float64)
            number_ = static_cast<TESK::VV_float64_entry&>(entry).value;
    }
    Kept_value(const Kept_value&) = delete;
    Kept_value& operator=(const Kept_value&) = delete;
    ~Kept_value() {
        if (entry_.type_code() == Entry_type::float32)
            static_cast<TESK::VV_float32_entry&>(entry_).value = static_cast<float>(number_);
        else if (entry_.type_code() == Entry_type::float64)
            static_cast<TESK::VV_float64_entry&>(entry_).value = number_;
        else
            entry_.set_value(TESK::Ustring(text_));
    }

private:
    TESK::VV_base_entry& entry_;
    std::string text_;
    double number_ = 0;
};

// What a file with this text behind the key would be shown with: it keeps ten decimals of a number.
std::string value_in_file(const Setting& setting, const std::string& line) {
    if (setting.kind() == Setting_kind::number)
        if (const auto number = whole_number<float>(line, std::chars_format::general))
            return shortest_number(*number);
    return setting.value();
}

} // namespace

std::optional<std::int32_t> date_number_of(const std::string& words) {
    const auto number = whole_number<std::int32_t>(words);
    return number ? number : date_number(words);
}

std::string shortest_number(float number) {
    char digits[64];
    const auto result = std::to_chars(std::begin(digits), std::end(digits), number, std::chars_format::fixed);
    return {digits, result.ptr};
}

std::string date_in_words(std::int32_t number) {
    const std::string text = std::to_string(number);
    if (number <= 0 || date_number(text) != number)
        return number == 0 ? std::string() : text;
    const TESK::Date date(number);
    char words[32];
    std::snprintf(words, sizeof words, "%04d-%02d-%02d", date.get_year(), date.get_month(),
                  date.get_day_of_month());
    return words;
}

std::string text_for_value(const Setting& setting, const std::string& value, std::string& text) {
    switch (setting.kind()) {
    case Setting_kind::integer: return integer_text(setting, value, text);
    case Setting_kind::number: return number_text(value, text);
    case Setting_kind::date: return date_text(value, text);
    case Setting_kind::flag: return flag_text(value, text);
    case Setting_kind::choice: return choice_text(setting, value, text);
    case Setting_kind::unit: return unit_text(setting, value, text);
    default: break;
    }
    if (std::string reason = line_text(value); !reason.empty())
        return reason;
    if (setting.is_known() && value.size() > setting.longest_value())
        return "The value must have no more than " + std::to_string(setting.longest_value()) + " characters.";
    const bool is_host_path = setting.kind() == Setting_kind::file && value.starts_with('/');
    text = is_host_path ? platform::name_from_host_path(value) : value;
    return {};
}

Value_trial try_value(const Setting& setting, const std::string& value) {
    Value_trial trial;
    trial.reason = text_for_value(setting, value, trial.text);
    if (!trial.reason.empty())
        return trial;
    TESK::VV_base_entry& entry = setting.entry();
    const Kept_value kept(entry);
    entry.set_value(TESK::Ustring(trial.text));
    entry.get_value(trial.line);
    trial.value = value_in_file(setting, trial.line);
    const TESK::Validation_status verdict = setting.judge();
    trial.taken = TESK::severity_group(verdict) != TESK::severity_group(TESK::Validation_status::error);
    if (verdict != TESK::Validation_status::good)
        trial.reason = "The value " + setting.guard()->range_text(verdict) + ".";
    return trial;
}

Value_trial try_undeclared_value(const std::string& value) {
    std::string reason = line_text(value);
    return {reason.empty(), reason, value, value, value};
}

// A float32, as the fields that are judged are.
std::optional<double> number_of(const std::string& value) {
    const auto number = whole_number<float>(value, std::chars_format::general);
    return number ? std::optional<double>(*number) : std::nullopt;
}
