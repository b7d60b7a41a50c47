#include "records/validation.h"

#include "foundation/numbers.h"

#include <cfloat>
#include <cmath>

namespace TESK {

namespace {

constexpr double open_tolerance = 0.0000001;

bool is_open_low(double limit) {
    return std::fabs(limit - static_cast<double>(FLT_MIN)) < open_tolerance;
}

bool is_open_high(double limit) {
    // Records write the largest float32 with nine digits; as a float64 that is another number.
    constexpr double written_limit = 3.40282347e+38;
    return limit == written_limit || std::fabs(limit - static_cast<double>(FLT_MAX)) < open_tolerance;
}

const char* text_or_nothing(const char* text) {
    return text == nullptr ? "" : text;
}

} // namespace

std::string& Valid_type::write_line(std::string& buffer) const {
    buffer = key + "=" + get_value_text();
    for (const char* caption : {caption_1, caption_2}) {
        if (caption != nullptr) {
            buffer += ' ';
            buffer += caption;
        }
    }
    return buffer += '\n';
}

Valid_number::Valid_number(std::uint32_t units_code, const char* record_key, std::uint8_t decimals,
                           double reset_value, const Valid_range& range, const char* unit,
                           const char* first_caption, const char* second_caption)
    : Valid_type(record_key, first_caption, second_caption), precision(decimals), default_value(reset_value),
      warning_low(range.warning_low), warning_high(range.warning_high), error_low(range.error_low),
      error_high(range.error_high), stored_units(units_code), shown_units(units_code), units_label(unit) {}

Validation_status Valid_number::validate(std::string& message, bool html) {
    status = judge();
    message = html ? html_row() : text_line();
    return status;
}

Validation_status Valid_number::judge(double x) const {
    Validation_status verdict = Validation_status::good;
    if (!is_open_low(warning_low) && x < warning_low)
        verdict = Validation_status::warning_low;
    if (!is_open_high(warning_high) && x > warning_high)
        verdict = Validation_status::warning_high;
    if (!is_open_low(error_low) && x < error_low)
        verdict = Validation_status::error_low;
    if (!is_open_high(error_high) && x > error_high)
        verdict = Validation_status::error_high;
    return verdict;
}

std::string& Valid_number::write_line(std::string& buffer) const {
    Valid_type::write_line(buffer);
    return buffer.append(key).append("_units=").append(get_units_label()).append("\n");
}

std::string Valid_number::number_text(double number) const {
    return float64_to_cstr(number, precision);
}

// Why the value is doubted; nothing for a value that is not.
std::string Valid_number::range_message(bool html) const {
    if (status >= Validation_status::unchecked)
        return {};
    std::string text;
    if (!html) {
        if (*text_or_nothing(caption_2) != 0)
            text.append(" (").append(caption_2).append(")");
        text += "\n = " + get_value_text() + " " + get_units_label() + " is not a reasonable value, \n";
    }
    return text + range_text(status) + '\n';
}

std::string Valid_number::range_text(Validation_status verdict) const {
    const bool is_error = verdict == Validation_status::error_low || verdict == Validation_status::error_high;
    if (verdict >= Validation_status::unchecked)
        return {};
    const double low = is_error ? error_low : warning_low;
    const double high = is_error ? error_high : warning_high;
    const std::string word = is_error ? "must " : "should ";
    if (!is_open_low(low) && !is_open_high(high))
        return word + "range from " + number_text(low) + " - " + number_text(high);
    if (is_open_high(high))
        return word + "be greater than " + number_text(low);
    return word + "be less than " + number_text(high);
}

std::string Valid_number::html_row() const {
    std::string row = "<TR><TD>";
    row.append(text_or_nothing(caption_1)).append("<BR>").append(text_or_nothing(caption_2));
    row.append("<TD BGCOLOR=\"").append(status_colour(status)).append("\">").append(get_value_text());
    if (*get_units_label() != 0)
        row.append("<TD> ").append(get_units_label());
    row +=
        "<TD BGCOLOR=YELLOW>" + number_text(warning_low) + "<TD BGCOLOR=YELLOW>" + number_text(warning_high);
    row +=
        "<TD BGCOLOR=RED>" + number_text(error_low) + "<TD  BGCOLOR=RED>" + number_text(error_high) + "<TD>";
    return row + range_message(true) + "Valid\n";
}

// Like the row, the line ends in "Valid" whatever the verdict is.
std::string Valid_number::text_line() const {
    std::string line = "Validating:";
    line.append(text_or_nothing(caption_1)).append(" ").append(text_or_nothing(caption_2));
    line += " = " + get_value_text() + " " + get_units_label();
    return line + range_message(false) + ":Valid\n";
}

Valid_float32::Valid_float32(float& field, std::uint32_t units_code, const char* record_key,
                             std::uint8_t decimals, double reset_value, const Valid_range& range,
                             const char* unit, const char* first_caption, const char* second_caption)
    : Valid_number(units_code, record_key, decimals, reset_value, range, unit, first_caption, second_caption),
      value(field) {}

std::string Valid_float32::get_value_text() const {
    return float32_to_cstr(value, precision);
}

Valid_int16::Valid_int16(std::int16_t& field, const char* record_key, double reset_value,
                         const Valid_range& range, const char* unit, const char* first_caption,
                         const char* second_caption)
    : Valid_number(0, record_key, 0, reset_value, range, unit, first_caption, second_caption), value(field) {}

std::string Valid_int16::get_value_text() const {
    std::string text;
    append_integer(text, value);
    return text;
}

} // namespace TESK
