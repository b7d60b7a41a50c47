// The entries that bind a key of a record file to a field of a record: one class for each type of value. The
// field belongs to the record and outlives the entry. A value's text may have annotations behind it, so each
// number is read up to the first character that cannot belong to it.
#pragma once

#include "records/vv_entry.h"

#include <cstdint>

class Labeled_enum;

namespace TESK {

class Date;
class File_name;
class Units_clad;

// The text as it stands, annotations included; from a Ustring with every byte of it.
class VV_string_entry : public VV_base_entry {
public:
    VV_string_entry(std::string_view entry_key, Ustring& field, std::uint16_t longest_value,
                    const char* first_annotation, const char* second_annotation);
    bool set_value(const char* text) override;
    bool set_value(const Ustring& text) override;
    Entry_type type_code() const override { return Entry_type::string; }
    void append_value(std::string& text) const override;

    Ustring& value;
};

class VV_filename_entry : public VV_base_entry {
public:
    VV_filename_entry(std::string_view entry_key, File_name& field, std::uint16_t longest_value,
                      const char* first_annotation, const char* second_annotation);
    using VV_base_entry::set_value;
    bool set_value(const char* text) override;
    Entry_type type_code() const override { return Entry_type::file_name; }
    void append_value(std::string& text) const override;

    File_name& value;
};

// Whole numbers. What does not fit is cut to the field's width: "70000" in 16 bits is 4464.
class VV_uint8_entry : public VV_base_entry {
public:
    VV_uint8_entry(std::string_view entry_key, std::uint8_t& field, std::uint8_t number_radix,
                   const char* first_annotation, const char* second_annotation);
    using VV_base_entry::set_value;
    bool set_value(const char* text) override;
    Entry_type type_code() const override { return Entry_type::uint8; }
    void append_value(std::string& text) const override;
    std::uint8_t get_radix() const { return radix; }

    std::uint8_t& value;
    std::uint8_t radix;
};

class VV_uint32_entry : public VV_base_entry {
public:
    VV_uint32_entry(std::string_view entry_key, std::uint32_t& field, std::uint8_t number_radix,
                    const char* first_annotation, const char* second_annotation);
    using VV_base_entry::set_value;
    bool set_value(const char* text) override;
    Entry_type type_code() const override { return Entry_type::uint32; }
    void append_value(std::string& text) const override;
    std::uint8_t get_radix() const { return radix; }

    std::uint32_t& value;
    std::uint8_t radix;
};

class VV_int16_entry : public VV_base_entry {
public:
    VV_int16_entry(std::string_view entry_key, std::int16_t& field, const char* first_annotation,
                   const char* second_annotation);
    using VV_base_entry::set_value;
    bool set_value(const char* text) override;
    Entry_type type_code() const override { return Entry_type::int16; }
    void append_value(std::string& text) const override;

    std::int16_t& value;
};

class VV_int32_entry : public VV_base_entry {
public:
    VV_int32_entry(std::string_view entry_key, std::int32_t& field, const char* first_annotation,
                   const char* second_annotation);
    using VV_base_entry::set_value;
    bool set_value(const char* text) override;
    Entry_type type_code() const override { return Entry_type::int32; }
    void append_value(std::string& text) const override;

    std::int32_t& value;
};

// Fixed-point numbers with ten decimals. An attached status becomes good, or not_valid when the text is no
// number, though "1e-3" that fails that test is still read as 0.001.
class VV_float32_entry : public VV_base_entry {
public:
    VV_float32_entry(std::string_view entry_key, float& field, const char* first_annotation,
                     const char* second_annotation);
    using VV_base_entry::set_value;
    bool set_value(const char* text) override;
    Entry_type type_code() const override { return Entry_type::float32; }
    void append_value(std::string& text) const override;

    float& value;
};

// In a record file no more exact than a 32-bit number: it is rounded to one before it is written.
class VV_float64_entry : public VV_base_entry {
public:
    VV_float64_entry(std::string_view entry_key, double& field, const char* first_annotation,
                     const char* second_annotation);
    using VV_base_entry::set_value;
    bool set_value(const char* text) override;
    Entry_type type_code() const override { return Entry_type::float64; }
    void append_value(std::string& text) const override;

    double& value;
};

// "on", what begins with "t", and numbers other than 0 are true; all else is false.
class VV_bool_entry : public VV_base_entry {
public:
    // The form chooses the words: 0 "1" and "0", 1 "t" and "f", 2 "T" and "F", 3 "true" and "false", 4 "True"
    // and "False", 5 "TRUE" and "FALSE". Any other form is taken as 3.
    VV_bool_entry(std::string_view entry_key, bool& field, std::uint8_t word_form,
                  const char* first_annotation, const char* second_annotation);
    using VV_base_entry::set_value;
    bool set_value(const char* text) override;
    Entry_type type_code() const override { return Entry_type::boolean; }
    void append_value(std::string& text) const override;

    bool& value;
    std::uint8_t form;
};

// The date's number, and behind it, for the reader of the file, the date in words in brackets.
class VV_date_entry : public VV_base_entry {
public:
    // With the form false the number is read; with it true, the text in the date's own format.
    VV_date_entry(std::string_view entry_key, Date& field, bool text_form, const char* first_annotation,
                  const char* second_annotation);
    using VV_base_entry::set_value;
    bool set_value(const char* text) override;
    Entry_type type_code() const override { return Entry_type::date; }
    void append_value(std::string& text) const override;

    Date& value;
    bool form;
};

class VV_enum_entry : public VV_base_entry {
public:
    VV_enum_entry(std::string_view entry_key, Labeled_enum& field, const char* first_annotation,
                  const char* second_annotation);
    using VV_base_entry::set_value;
    bool set_value(const char* text) override;
    Entry_type type_code() const override { return Entry_type::enumeration; }
    void append_value(std::string& text) const override;

    Labeled_enum& value;
};

// A unit by its abbreviation, as users write it ("kg/ha"); nothing for a code that has none.
class VV_units_entry : public VV_base_entry {
public:
    VV_units_entry(std::string_view entry_key, Units_clad& field);
    using VV_base_entry::set_value;
    bool set_value(const char* text) override;
    Entry_type type_code() const override { return Entry_type::units; }
    void append_value(std::string& text) const override;

    Units_clad& value;
};

} // namespace TESK
