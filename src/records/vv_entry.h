// An entry of a section: a key of a record file, and the text that stands behind it.
#pragma once

#include "foundation/arena.h"
#include "foundation/item.h"
#include "foundation/ustring.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace TESK {

class Valid_number;
enum class Validation_status : std::uint8_t;

// How a column of a table shows its numbers. The decimals are the number of characters behind the point of
// the picture ("####.##" has two).
struct Field_format {
    std::uint8_t width;
    const char* picture;
    char decimal_mark;

    std::uint8_t decimals() const;
};

// The types of entry, by the numbers that tables know them by.
enum class Entry_type : std::uint8_t {
    unexpected = 0,
    uint8 = 1,
    uint32 = 3,
    int16 = 5,
    int32 = 6,
    float32 = 7,
    float64 = 8,
    date = 9,
    boolean = 12,
    string = 14,
    file_name = 16,
    enumeration = 17,
    units = 18,
};

// The words of a boolean, unless a record says otherwise: "true" and "false".
constexpr std::uint8_t usual_bool_form = 3;

class VV_entry_item : public Association {};

class VV_base_entry : public VV_entry_item, public Arena_object {
public:
    // The annotations must outlive the entry; null for none.
    VV_base_entry(std::string_view entry_key, std::uint16_t longest_value, const char* first_annotation,
                  const char* second_annotation);

    // The entry's line without its end: key, "=", value, and each annotation behind a blank. A line break in
    // any of them is a blank.
    std::string& label_cstr(std::string& buffer) const;
    void append_line(std::string& text) const; // the same, with its end, behind what the text holds
    std::string& label_to(std::string& buffer) const override { return label_cstr(buffer); }

    // The line and its end.
    std::ostream& write(std::ostream& out) const override;

    const char* get_key() const override { return key.c_str(); }
    std::string_view get_key_view() const override { return key; }
    bool is_key_case_sensitive() const override { return true; }

    // Parses the text into the field. True.
    virtual bool set_value(const char* text) = 0;
    virtual bool set_value(const Ustring& text) { return set_value(text.c_str()); }

    virtual Entry_type type_code() const = 0;

    // The value's text, in place of what the buffer held.
    std::string& get_value(std::string& buffer) const;
    virtual void append_value(std::string& text) const = 0;

    // The longest text that an editor should accept.
    virtual std::uint16_t get_max_strlen() const { return max_strlen; }

    // Where a numeric entry tells whether its text looked like a number. Not owned; may be null.
    virtual void set_validation_status(Validation_status* status) { validation_status = status; }

    const std::string key;
    const char* annotation_1; // not owned; null for none
    const char* annotation_2; // not owned; null for none
    Validation_status* validation_status = nullptr;
    const Field_format* column_format = nullptr; // not owned; null in a record file
    const Valid_number* guard = nullptr;         // what judges the value; not owned, null for nothing
    std::uint16_t max_strlen;
    bool encountered = false; // whether the store had this entry
};

// A key that its record does not know. It keeps the text, byte for byte.
class VV_unexpected_entry : public VV_base_entry {
public:
    VV_unexpected_entry(std::string_view entry_key, std::string_view text);

    using VV_base_entry::set_value;
    bool set_value(const char* text) override;
    bool set_value(const Ustring& text) override;
    Entry_type type_code() const override { return Entry_type::unexpected; }
    void append_value(std::string& text) const override { text += std::string_view(value); }

    Arena_text value;
};

} // namespace TESK
