// The typed byte stream through which binary formats are read and written: one switch for the byte order, and
// one way of writing strings.
#pragma once

#include "platform/file_stream.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace TESK {

// How a string lies in a file. Bits 0 and 1 are the size of the length in front of it (none, one byte, two,
// four); bit 2 puts a zero behind a string that has no fixed length.
using String_form = std::uint8_t;
constexpr String_form length_size_mask = 3;
constexpr String_form zero_terminated = 4;

enum class Seek_direction : std::int32_t { from_start = 0, from_current = 1, from_end = 2 };

// Errors stay in the stream's state, which good() tells. A reader at the end of the stream gives 0.
class Binary_file_interface {
public:
    virtual ~Binary_file_interface() = default;

    virtual void write_char(char value) = 0;
    virtual void write_int16(std::int16_t value) = 0;
    virtual void write_int32(std::int32_t value) = 0;
    virtual void write_nat8(std::uint8_t value) = 0;
    virtual void write_nat16(std::uint16_t value) = 0;
    virtual void write_nat32(std::uint32_t value) = 0;
    virtual void write_float32(float value) = 0;
    virtual void write_float64(double value) = 0;

    // `length` is the size of the whole field in the file, the length in front included: a longer string is
    // cut, and what is left of the field is filled with zeros. 0 is as much as the string takes. A string too
    // long for the length in front of it is cut to what that can tell. The wide form counts in 16-bit units.
    virtual void write_string(const char* text, String_form form, std::uint32_t length) = 0;
    virtual void write_string(const std::string& text, String_form form, std::uint32_t length) = 0;
    virtual void write_string(const std::wstring& text, String_form form, std::uint32_t length) = 0;

    virtual char read_char() = 0;
    virtual std::int16_t read_int16() = 0;
    virtual std::int32_t read_int32() = 0;
    virtual std::uint8_t read_nat8() = 0;
    virtual std::uint16_t read_nat16() = 0;
    virtual std::uint32_t read_nat32() = 0;
    virtual float read_float32() = 0;
    virtual double read_float64() = 0;

    // Reads what write_string wrote with the same form and length. A string without a length in front of it
    // ends at its first zero. Returns the buffer.
    virtual std::string& read_string(std::string& buffer, String_form form, std::uint32_t length) = 0;
    virtual std::wstring& read_string(std::wstring& buffer, String_form form, std::uint32_t length) = 0;

    // Bytes as they stand; how many of them there were.
    virtual std::size_t read_bytes(char* bytes, std::size_t count) = 0;
    virtual void write_bytes(const char* bytes, std::size_t count) = 0;

    virtual void seek(std::int64_t offset, Seek_direction direction) = 0;
    // Goes to the end of the stream, and tells whether that failed.
    virtual bool at_eof() = 0;
    virtual std::int64_t tell() = 0;

    virtual const char* get_file_name() const = 0;
    virtual std::uint32_t get_open_mode() const = 0;
    virtual bool good() = 0;
};

// The common part: everything but the bytes themselves.
class Binary_file_abstract : public Binary_file_interface {
public:
    // A null name is an empty one.
    Binary_file_abstract(const char* name, bool big_endian);

    void write_char(char value) override;
    void write_int16(std::int16_t value) override;
    void write_int32(std::int32_t value) override;
    void write_nat8(std::uint8_t value) override;
    void write_nat16(std::uint16_t value) override;
    void write_nat32(std::uint32_t value) override;
    void write_float32(float value) override;
    void write_float64(double value) override;
    void write_string(const char* text, String_form form, std::uint32_t length) override;
    void write_string(const std::string& text, String_form form, std::uint32_t length) override;
    void write_string(const std::wstring& text, String_form form, std::uint32_t length) override;

    char read_char() override;
    std::int16_t read_int16() override;
    std::int32_t read_int32() override;
    std::uint8_t read_nat8() override;
    std::uint16_t read_nat16() override;
    std::uint32_t read_nat32() override;
    float read_float32() override;
    double read_float64() override;
    std::string& read_string(std::string& buffer, String_form form, std::uint32_t length) override;
    std::wstring& read_string(std::wstring& buffer, String_form form, std::uint32_t length) override;

    const char* get_file_name() const override { return file_name.c_str(); }
    std::uint32_t get_open_mode() const override { return open_mode; }
    bool good() override { return true; }

protected:
    std::string file_name;
    bool swap_bytes; // the file's byte order is not the machine's
    std::uint32_t open_mode = 12;

private:
    template <class Value>
    void write_value(Value value);
    template <class Value>
    Value read_value();
    template <class Text>
    void write_text(const Text& text, String_form form, std::uint32_t length);
    template <class Text>
    void take_units(Text& buffer, std::uint32_t count);
    template <class Text>
    Text& read_text(Text& buffer, String_form form, std::uint32_t length);
    void write_length(std::uint32_t count, String_form form);
    std::uint32_t read_length(String_form form);
};

// On a file that is opened at the first operation: for reading and writing where it exists, otherwise made;
// for reading only where it may not be written.
class Binary_file_fstream : public Binary_file_abstract {
public:
    using Binary_file_abstract::Binary_file_abstract;

    std::size_t read_bytes(char* bytes, std::size_t count) override;
    void write_bytes(const char* bytes, std::size_t count) override;
    void seek(std::int64_t offset, Seek_direction direction) override;
    bool at_eof() override;
    std::int64_t tell() override;
    bool good() override;

private:
    platform::File_stream& opened();

    std::unique_ptr<platform::File_stream> stream_;
};

} // namespace TESK
