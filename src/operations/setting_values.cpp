#include "operations/setting_values.h"

#include "foundation/code_page_1252.h"
#include "foundation/labeled_enum.h"
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
std::optional<Number> whole_number(std::string_view text, Form... form) {
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

bool is_integer_of(const Setting& setting, std::string_view value) {
    const Integer_range range = integer_range(setting.entry().type_code());
    const auto number = whole_number<std::int64_t>(value, setting.radix());
    return number && *number >= range.low && *number <= range.high;
}

bool is_finite_number(std::string_view value) {
    const auto number = whole_number<float>(value, std::chars_format::general);
    return number && std::isfinite(*number);
}

constexpr const char* flag_words[] = {"true", "false", "on", "off", "1", "0"};

// The word for a flag that the text is in any case; null when it is none.
const char* flag_word(std::string_view text) {
    const auto found = std::find_if(std::begin(flag_words), std::end(flag_words),
                                    [&](const char* word) { return TESK::equal_ignoring_case(text, word); });
    return found == std::end(flag_words) ? nullptr : *found;
}

std::string expected_integer(const Setting& setting) {
    const Integer_range range = integer_range(setting.entry().type_code());
    std::string low;
    std::string high;
    TESK::append_integer(low, range.low, setting.radix());
    TESK::append_integer(high, range.high, setting.radix());
    const std::string base = setting.radix() == 10 ? "" : " in base " + std::to_string(setting.radix());
    return "a whole number" + base + " from " + low + " to " + high;
}

std::string expected_choice(const Setting& setting) {
    std::string labels;
    for (const auto& [label, description] : setting.choices())
        labels += (labels.empty() ? "" : ", ") + label;
    return "one of: " + labels;
}

// What a value of the setting must be, as people write it; nothing where any text will do.
std::string expected(const Setting& setting) {
    switch (setting.kind()) {
    case Setting_kind::integer: return expected_integer(setting);
    case Setting_kind::number: return "a number such as 12 or 0.25";
    case Setting_kind::date: return "a date such as 1996-05-02 or 1996123, or 0 for none";
    case Setting_kind::flag: return "true or false";
    case Setting_kind::choice: return expected_choice(setting);
    case Setting_kind::unit: return "a unit such as kg/ha";
    default: return {};
    }
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

// Whether the text is one of the labels, whose spelling it gets; an exact one before any other.
bool is_choice(const Setting& setting, std::string& text) {
    const auto choices = setting.choices();
    for (const bool exact : {true, false})
        for (const auto& [label, description] : choices)
            if (exact ? label == text : TESK::equal_ignoring_case(label, text)) {
                text = label;
                return true;
            }
    return false;
}

bool is_unit(const Setting& setting, const std::string& value) {
    TESK::VV_base_entry& entry = setting.entry();
    std::string old;
    std::string read;
    entry.get_value(old);
    entry.set_value(value.c_str());
    entry.get_value(read);
    entry.set_value(old.c_str());
    return read == value;
}

// The text that a setting of a kind with rules takes for the value, into `text`. False when it takes none.
bool is_taken(const Setting& setting, const std::string& value, std::string& text) {
    text = value;
    switch (setting.kind()) {
    case Setting_kind::integer: return is_integer_of(setting, value);
    case Setting_kind::number: return is_finite_number(value);
    case Setting_kind::date: {
        const auto number = date_number(value);
        text = std::to_string(number.value_or(0));
        return number.has_value();
    }
    case Setting_kind::flag: {
        const char* const word = flag_word(value);
        text = word == nullptr ? "" : word;
        return word != nullptr;
    }
    case Setting_kind::choice: return is_choice(setting, text);
    case Setting_kind::unit: return is_unit(setting, value);
    default: return true;
    }
}

std::string line_text(const std::string& value) {
    return value.find_first_of(std::string("\r\n\0", 3)) == std::string::npos
               ? std::string()
               : "The value must be one line of text.";
}

// Whether a program that reads the text from a file gets what it says. Behind a number may stand a blank and
// a note.
bool is_read_as_meant(const Setting& setting, std::string_view text) {
    std::string_view word = text.substr(std::min(text.find_first_not_of(" \t+"), text.size()));
    word = word.substr(0, word.find_first_of(" \t"));
    switch (setting.kind()) {
    case Setting_kind::integer: {
        const std::size_t point = word.find('.'); // nothing is lost with "350.000"
        const bool is_whole = point == 0 || word.find_first_not_of('0', point + 1) != std::string_view::npos;
        return is_integer_of(setting,
                             is_whole || point == std::string_view::npos ? word : word.substr(0, point));
    }
    case Setting_kind::number: return is_finite_number(word);
    case Setting_kind::date:
        return word.empty() || (whole_number<std::int32_t>(word) && date_number(std::string(word)));
    case Setting_kind::flag: return flag_word(word) != nullptr || whole_number<std::int32_t>(word);
    case Setting_kind::choice: {
        const Labeled_enum& labels = static_cast<TESK::VV_enum_entry&>(setting.entry()).value;
        std::string label(text);
        return labels.label_at(0) == nullptr || labels.is_label(label.c_str()) || is_choice(setting, label);
    }
    case Setting_kind::unit: {
        const std::uint32_t code = static_cast<TESK::VV_units_entry&>(setting.entry()).value.code;
        return text.empty() || ((code & 0xFFFFU) != 0xFFFFU && code >> 16 != 0xFFFFU);
    }
    default: return true;
    }
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
    if (!is_taken(setting, value, text))
        return "The value must be " + expected(setting) + ".";
    if (!expected(setting).empty())
        return {};
    if (std::string reason = line_text(value); !reason.empty())
        return reason;
    if (setting.is_known() && value.size() > setting.longest_value())
        return "The value must have no more than " + std::to_string(setting.longest_value()) + " characters.";
    if (setting.kind() == Setting_kind::file && value.starts_with('/'))
        text = platform::name_from_host_path(value);
    return {};
}

std::string reason_misread(const Setting& setting, std::string_view text) {
    if (is_read_as_meant(setting, text))
        return {};
    constexpr std::size_t longest_shown = 60;
    const std::string shown(text.substr(0, longest_shown));
    const std::string read = setting.value();
    return "The value \"" + shown + (text.size() > longest_shown ? "..." : "") + "\" must be " +
           (setting.kind() == Setting_kind::date ? "the number of a date such as 1996123, or 0 for none"
                                                 : expected(setting)) +
           (read == text ? "." : ", and is read as " + (read.empty() ? "none" : read) + ".");
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
