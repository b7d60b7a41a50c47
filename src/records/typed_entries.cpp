#include "records/typed_entries.h"

#include "foundation/code_page_1252.h"
#include "foundation/labeled_enum.h"
#include "foundation/numbers.h"
#include "names/file_name.h"
#include "records/validation_status.h"
#include "temporal/date.h"
#include "units/units_clad.h"

namespace TESK {

namespace {

// How many characters the longest value of each type has.
constexpr std::uint16_t uint8_length = 5;
constexpr std::uint16_t uint32_length = 10;
constexpr std::uint16_t int16_length = 6;
constexpr std::uint16_t int32_length = 11;
constexpr std::uint16_t float32_length = 10;
constexpr std::uint16_t float64_length = 16;
constexpr std::uint16_t bool_length = 1;
constexpr std::uint16_t label_length = 80;

struct Bool_words {
    const char* when_true;
    const char* when_false;
};
constexpr Bool_words bool_words[] = {{"1", "0"},        {"t", "f"},        {"T", "F"},
                                     {"true", "false"}, {"True", "False"}, {"TRUE", "FALSE"}};

void append_number(std::string& text, std::int64_t value, int radix, const Field_format* format) {
    std::string number;
    append_integer(number, value, radix);
    if (format != nullptr && number.size() < format->width)
        text.append(format->width - number.size(), ' ');
    text += number;
}

// A column of a table shows the number as it is, a record file as a 32-bit number.
void append_float(std::string& text, double value, const Field_format* format) {
    if (format == nullptr) {
        append_ten_decimals(text, static_cast<float>(value));
        return;
    }
    std::string number;
    text += float64_to_cstr_formatted(value, number, format->width, format->decimals(), format->decimal_mark,
                                      false);
}

// Reads the number, and tells an attached status whether the text looked like one.
double parse_checked_float(const char* text, Validation_status* status) {
    if (status != nullptr)
        *status = is_number_text(text) ? Validation_status::good : Validation_status::not_valid;
    return parse_float64(text);
}

std::uint16_t text_length(const Date& date) {
    std::string text;
    return static_cast<std::uint16_t>(date.Date::text_str(text).size());
}

} // namespace

VV_string_entry::VV_string_entry(std::string_view entry_key, Ustring& field, std::uint16_t longest_value,
                                 const char* first_annotation, const char* second_annotation)
    : VV_base_entry(entry_key, longest_value, first_annotation, second_annotation), value(field) {}

bool VV_string_entry::set_value(const char* text) {
    value = text;
    return true;
}

bool VV_string_entry::set_value(const Ustring& text) {
    value.assign(text);
    return true;
}

void VV_string_entry::append_value(std::string& text) const {
    text += value;
}

VV_filename_entry::VV_filename_entry(std::string_view entry_key, File_name& field,
                                     std::uint16_t longest_value, const char* first_annotation,
                                     const char* second_annotation)
    : VV_base_entry(entry_key, longest_value, first_annotation, second_annotation), value(field) {}

bool VV_filename_entry::set_value(const char* text) {
    value.set(text);
    return true;
}

void VV_filename_entry::append_value(std::string& text) const {
    text += value;
}

VV_uint8_entry::VV_uint8_entry(std::string_view entry_key, std::uint8_t& field, std::uint8_t number_radix,
                               const char* first_annotation, const char* second_annotation)
    : VV_base_entry(entry_key, uint8_length, first_annotation, second_annotation), value(field),
      radix(number_radix) {}

bool VV_uint8_entry::set_value(const char* text) {
    value = static_cast<std::uint8_t>(cstr_to_uint32(text, radix));
    return true;
}

void VV_uint8_entry::append_value(std::string& text) const {
    append_number(text, value, radix, column_format);
}

VV_uint32_entry::VV_uint32_entry(std::string_view entry_key, std::uint32_t& field, std::uint8_t number_radix,
                                 const char* first_annotation, const char* second_annotation)
    : VV_base_entry(entry_key, uint32_length, first_annotation, second_annotation), value(field),
      radix(number_radix) {}

bool VV_uint32_entry::set_value(const char* text) {
    value = cstr_to_uint32(text, radix);
    return true;
}

void VV_uint32_entry::append_value(std::string& text) const {
    append_number(text, value, radix, column_format);
}

VV_int16_entry::VV_int16_entry(std::string_view entry_key, std::int16_t& field, const char* first_annotation,
                               const char* second_annotation)
    : VV_base_entry(entry_key, int16_length, first_annotation, second_annotation), value(field) {}

bool VV_int16_entry::set_value(const char* text) {
    value = static_cast<std::int16_t>(parse_integer(text));
    return true;
}

void VV_int16_entry::append_value(std::string& text) const {
    append_number(text, value, 10, column_format);
}

VV_int32_entry::VV_int32_entry(std::string_view entry_key, std::int32_t& field, const char* first_annotation,
                               const char* second_annotation)
    : VV_base_entry(entry_key, int32_length, first_annotation, second_annotation), value(field) {}

bool VV_int32_entry::set_value(const char* text) {
    value = static_cast<std::int32_t>(parse_integer(text));
    return true;
}

void VV_int32_entry::append_value(std::string& text) const {
    append_number(text, value, 10, column_format);
}

VV_float32_entry::VV_float32_entry(std::string_view entry_key, float& field, const char* first_annotation,
                                   const char* second_annotation)
    : VV_base_entry(entry_key, float32_length, first_annotation, second_annotation), value(field) {}

bool VV_float32_entry::set_value(const char* text) {
    value = static_cast<float>(parse_checked_float(text, validation_status));
    return true;
}

void VV_float32_entry::append_value(std::string& text) const {
    append_float(text, value, column_format);
}

VV_float64_entry::VV_float64_entry(std::string_view entry_key, double& field, const char* first_annotation,
                                   const char* second_annotation)
    : VV_base_entry(entry_key, float64_length, first_annotation, second_annotation), value(field) {}

bool VV_float64_entry::set_value(const char* text) {
    value = parse_checked_float(text, validation_status);
    return true;
}

void VV_float64_entry::append_value(std::string& text) const {
    append_float(text, value, column_format);
}

VV_bool_entry::VV_bool_entry(std::string_view entry_key, bool& field, std::uint8_t word_form,
                             const char* first_annotation, const char* second_annotation)
    : VV_base_entry(entry_key, bool_length, first_annotation, second_annotation), value(field),
      form(word_form) {}

bool VV_bool_entry::set_value(const char* text) {
    const char first = to_ascii_lower(text[0]);
    if (first == 0 || first == 'f')
        value = false;
    else if (first == 'o')
        value = to_ascii_lower(text[1]) == 'n';
    else
        value = first == 't' || static_cast<std::int32_t>(parse_integer(text)) != 0;
    return true;
}

void VV_bool_entry::append_value(std::string& text) const {
    const Bool_words& words = bool_words[form < std::size(bool_words) ? form : usual_bool_form];
    text += value ? words.when_true : words.when_false;
}

VV_date_entry::VV_date_entry(std::string_view entry_key, Date& field, bool text_form,
                             const char* first_annotation, const char* second_annotation)
    : VV_base_entry(entry_key, text_length(field), first_annotation, second_annotation), value(field),
      form(text_form) {}

bool VV_date_entry::set_value(const char* text) {
    if (form)
        value.set_c_str(text);
    else
        value.set_datenum(static_cast<std::int32_t>(parse_integer(text)));
    return true;
}

void VV_date_entry::append_value(std::string& text) const {
    std::string words;
    append_integer(text, value.date_num);
    text += " (";
    // A class derived from Date may say more of itself; a file shows the date alone.
    text += value.Date::text_str(words);
    text += ')';
}

VV_enum_entry::VV_enum_entry(std::string_view entry_key, Labeled_enum& field, const char* first_annotation,
                             const char* second_annotation)
    : VV_base_entry(entry_key, label_length, first_annotation, second_annotation), value(field) {}

bool VV_enum_entry::set_value(const char* text) {
    value.set_label(text);
    return true;
}

void VV_enum_entry::append_value(std::string& text) const {
    text += value.get_label();
}

VV_units_entry::VV_units_entry(std::string_view entry_key, Units_clad& field)
    : VV_base_entry(entry_key, label_length, nullptr, nullptr), value(field) {}

bool VV_units_entry::set_value(const char* text) {
    value = Units_clad(Units_clad::parse_label(text));
    return true;
}

void VV_units_entry::append_value(std::string& text) const {
    std::string abbreviation;
    text += value.get_abbreviation(abbreviation);
}

} // namespace TESK
