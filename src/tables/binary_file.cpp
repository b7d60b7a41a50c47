#include "tables/binary_file.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <limits>

namespace TESK {

namespace {

// The sizes of the length in front of a string, by the low bits of its form.
constexpr std::uint32_t length_sizes[] = {0, 1, 2, 4};

std::uint32_t longest_string(String_form form) {
    switch (length_sizes[form & length_size_mask]) {
    case 1: return std::numeric_limits<std::uint8_t>::max();
    case 2: return std::numeric_limits<std::uint16_t>::max();
    default: return std::numeric_limits<std::uint32_t>::max();
    }
}

// One character of a string as it lies in a file.
std::uint8_t unit_of(char c) {
    return static_cast<std::uint8_t>(c);
}

std::uint16_t unit_of(wchar_t c) {
    return static_cast<std::uint16_t>(c);
}

} // namespace

Binary_file_abstract::Binary_file_abstract(const char* name, bool big_endian)
    : file_name(name == nullptr ? "" : name),
      swap_bytes(big_endian != (std::endian::native == std::endian::big)) {}

template <class Value>
void Binary_file_abstract::write_value(Value value) {
    char bytes[sizeof(Value)];
    std::memcpy(bytes, &value, sizeof value);
    if (swap_bytes)
        std::reverse(std::begin(bytes), std::end(bytes));
    write_bytes(bytes, sizeof bytes);
}

template <class Value>
Value Binary_file_abstract::read_value() {
    char bytes[sizeof(Value)] = {};
    read_bytes(bytes, sizeof bytes);
    if (swap_bytes)
        std::reverse(std::begin(bytes), std::end(bytes));
    Value value;
    std::memcpy(&value, bytes, sizeof value);
    return value;
}

void Binary_file_abstract::write_char(char value) {
    write_value(value);
}

void Binary_file_abstract::write_int16(std::int16_t value) {
    write_value(value);
}

void Binary_file_abstract::write_int32(std::int32_t value) {
    write_value(value);
}

void Binary_file_abstract::write_nat8(std::uint8_t value) {
    write_value(value);
}

void Binary_file_abstract::write_nat16(std::uint16_t value) {
    write_value(value);
}

void Binary_file_abstract::write_nat32(std::uint32_t value) {
    write_value(value);
}

void Binary_file_abstract::write_float32(float value) {
    write_value(value);
}

void Binary_file_abstract::write_float64(double value) {
    write_value(value);
}

char Binary_file_abstract::read_char() {
    return read_value<char>();
}

std::int16_t Binary_file_abstract::read_int16() {
    return read_value<std::int16_t>();
}

std::int32_t Binary_file_abstract::read_int32() {
    return read_value<std::int32_t>();
}

std::uint8_t Binary_file_abstract::read_nat8() {
    return read_value<std::uint8_t>();
}

std::uint16_t Binary_file_abstract::read_nat16() {
    return read_value<std::uint16_t>();
}

std::uint32_t Binary_file_abstract::read_nat32() {
    return read_value<std::uint32_t>();
}

float Binary_file_abstract::read_float32() {
    return read_value<float>();
}

double Binary_file_abstract::read_float64() {
    return read_value<double>();
}

void Binary_file_abstract::write_length(std::uint32_t count, String_form form) {
    switch (length_sizes[form & length_size_mask]) {
    case 1: write_nat8(static_cast<std::uint8_t>(count)); break;
    case 2: write_nat16(static_cast<std::uint16_t>(count)); break;
    case 4: write_nat32(count); break;
    default: break;
    }
}

std::uint32_t Binary_file_abstract::read_length(String_form form) {
    switch (length_sizes[form & length_size_mask]) {
    case 1: return read_nat8();
    case 2: return read_nat16();
    case 4: return read_nat32();
    default: return 0;
    }
}

template <class Text>
void Binary_file_abstract::write_text(const Text& text, String_form form, std::uint32_t length) {
    const auto count = static_cast<std::uint32_t>(std::min<std::size_t>(text.size(), longest_string(form)));
    write_length(count, form);
    if (length == 0) {
        for (std::uint32_t i = 0; i < count; ++i)
            write_value(unit_of(text[i]));
        if ((form & zero_terminated) != 0)
            write_value(unit_of(typename Text::value_type(0)));
        return;
    }
    const std::uint32_t room = length - std::min(length, length_sizes[form & length_size_mask]);
    const std::uint32_t written = std::min(count, room);
    for (std::uint32_t i = 0; i < written; ++i)
        write_value(unit_of(text[i]));
    for (std::uint32_t i = written; i < room; ++i)
        write_nat8(0);
}

template <class Text>
void Binary_file_abstract::take_units(Text& buffer, std::uint32_t count) {
    using Unit = decltype(unit_of(typename Text::value_type()));
    for (std::uint32_t i = 0; i < count; ++i) {
        const Unit unit = read_value<Unit>();
        if (!good())
            return;
        buffer += static_cast<typename Text::value_type>(unit);
    }
}

template <class Text>
Text& Binary_file_abstract::read_text(Text& buffer, String_form form, std::uint32_t length) {
    using Unit = decltype(unit_of(typename Text::value_type()));
    const std::uint32_t length_size = length_sizes[form & length_size_mask];
    const std::uint32_t told = read_length(form);
    buffer.clear();
    if (length != 0) {
        const std::uint32_t room = length - std::min(length, length_size);
        take_units(buffer, length_size == 0 ? room : std::min(told, room));
        for (std::size_t i = buffer.size(); i < room && good(); ++i)
            read_nat8();
        if (length_size == 0)
            buffer.resize(std::min(buffer.find(typename Text::value_type(0)), buffer.size()));
    } else if (length_size != 0) {
        take_units(buffer, told);
        if ((form & zero_terminated) != 0)
            read_value<Unit>();
    } else {
        for (Unit unit = read_value<Unit>(); good() && unit != 0; unit = read_value<Unit>())
            buffer += static_cast<typename Text::value_type>(unit);
    }
    return buffer;
}

void Binary_file_abstract::write_string(const char* text, String_form form, std::uint32_t length) {
    write_text(std::string(text == nullptr ? "" : text), form, length);
}

void Binary_file_abstract::write_string(const std::string& text, String_form form, std::uint32_t length) {
    write_text(text, form, length);
}

void Binary_file_abstract::write_string(const std::wstring& text, String_form form, std::uint32_t length) {
    write_text(text, form, length);
}

std::string& Binary_file_abstract::read_string(std::string& buffer, String_form form, std::uint32_t length) {
    return read_text(buffer, form, length);
}

std::wstring& Binary_file_abstract::read_string(std::wstring& buffer, String_form form,
                                                std::uint32_t length) {
    return read_text(buffer, form, length);
}

platform::File_stream& Binary_file_fstream::opened() {
    if (stream_ == nullptr)
        stream_ = std::make_unique<platform::File_stream>(file_name, true);
    return *stream_;
}

std::size_t Binary_file_fstream::read_bytes(char* bytes, std::size_t count) {
    return opened().read(bytes, count);
}

void Binary_file_fstream::write_bytes(const char* bytes, std::size_t count) {
    opened().write(bytes, count);
}

void Binary_file_fstream::seek(std::int64_t offset, Seek_direction direction) {
    platform::File_stream& stream = opened();
    const std::int64_t base = direction == Seek_direction::from_start ? 0
                              : direction == Seek_direction::from_end ? stream.size()
                                                                      : stream.tell();
    stream.seek(base + offset);
}

bool Binary_file_fstream::at_eof() {
    seek(0, Seek_direction::from_end);
    return !good();
}

std::int64_t Binary_file_fstream::tell() {
    return opened().tell();
}

bool Binary_file_fstream::good() {
    return opened().good();
}

} // namespace TESK
