// What is known of a numeric parameter beside its value: its key, its captions and unit, its decimals, and
// the ranges outside which a value is doubtful or wrong.
#pragma once

#include "records/validation_status.h"
#include "units/units_clad.h"

#include <cstdint>
#include <string>

namespace TESK {

class Valid_type {
public:
    virtual ~Valid_type() = default;
    Valid_type(const Valid_type&) = delete;
    Valid_type& operator=(const Valid_type&) = delete;

    // Judges the value by the ranges: sets the status and returns it. What is to be said of the value, one
    // line of text or one row of a table in HTML, replaces what `message` held.
    virtual Validation_status validate(std::string& message, bool html) = 0;

    // The value as a line of a record file, in place of what the buffer held.
    virtual std::string& write_line(std::string& buffer) const;

    virtual std::string get_value_text() const = 0;

    Validation_status status = Validation_status::unchecked;
    std::string key;
    const char* caption_1; // not owned; may be null
    const char* caption_2; // not owned; may be null

protected:
    Valid_type(const char* record_key, const char* first_caption, const char* second_caption)
        : key(record_key), caption_1(first_caption), caption_2(second_caption) {}
};

// The ranges of a value. A low limit near the smallest number of a float32 means that there is none, and so
// does a high limit near the largest. Zero is near the smallest: a low limit of 0 never holds.
struct Valid_range {
    double warning_low;
    double warning_high;
    double error_low;
    double error_high;
};

class Valid_number : public Valid_type {
public:
    Validation_status validate(std::string& message, bool html) override;

    // The verdict alone, on the field's value or on another: the status stays as it is.
    Validation_status judge() const { return judge(get_value()); }
    Validation_status judge(double x) const;
    // What the verdict asks of the value: "must range from 0 - 4". Nothing for a verdict that asks nothing.
    std::string range_text(Validation_status verdict) const;

    // With a second line that tells the unit.
    std::string& write_line(std::string& buffer) const override;

    // Never null.
    virtual const char* get_units_label() const { return units_label == nullptr ? "" : units_label; }

    virtual double get_value() const = 0;

    std::uint8_t precision; // decimals for showing the value
    double default_value;   // for resetting a control; the field's initial value is the record's affair
    double warning_low;
    double warning_high;
    double error_low;
    double error_high;
    Units_clad stored_units;
    Units_clad shown_units;
    const char* units_label; // not owned; may be null
    // The units that a user may choose from, up to a 0; null when there is no choice. Not owned.
    const std::uint32_t* units_selectable = nullptr;

protected:
    Valid_number(std::uint32_t units_code, const char* record_key, std::uint8_t decimals, double reset_value,
                 const Valid_range& range, const char* unit, const char* first_caption,
                 const char* second_caption);

private:
    std::string number_text(double number) const;
    std::string range_message(bool html) const;
    std::string html_row() const;
    std::string text_line() const;
};

class Valid_float32 : public Valid_number {
public:
    Valid_float32(float& field, std::uint32_t units_code, const char* record_key, std::uint8_t decimals,
                  double reset_value, const Valid_range& range, const char* unit, const char* first_caption,
                  const char* second_caption = nullptr);
    std::string get_value_text() const override;
    double get_value() const override { return value; }

    float& value;
};

class Valid_int16 : public Valid_number {
public:
    Valid_int16(std::int16_t& field, const char* record_key, double reset_value, const Valid_range& range,
                const char* unit, const char* first_caption, const char* second_caption = nullptr);
    std::string get_value_text() const override;
    double get_value() const override { return value; }

    std::int16_t& value;
};

} // namespace TESK
