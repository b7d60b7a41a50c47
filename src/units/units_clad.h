// A unit of measure as one number, and its labels. The low 16 bits are the unit; the high 16 bits, when they
// are not 0, a second one, which stands behind "per" when its reciprocal bit is set: 0x2A820603 is kilogram
// per hectare. Labels are bytes of code page 1252.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace TESK {

// The parts of a 16-bit unit.
constexpr std::uint16_t english_bit = 0x8000;
constexpr std::uint16_t quantity_mask = 0x7F00;
constexpr std::uint16_t reciprocal_bit = 0x0080;
constexpr std::uint16_t negative_exponent_bit = 0x0040; // of an English liquid measure: Imperial, not US
constexpr std::uint16_t exponent_mask = 0x003F;

constexpr std::uint16_t unit_not_recognized = 0xFFFF;

// The row of the table of quantities.
constexpr std::uint8_t quantity_of(std::uint16_t unit) {
    return static_cast<std::uint8_t>((unit & quantity_mask) >> 8);
}

// The power of ten of a metric unit.
constexpr int exponent(std::uint16_t unit) {
    const int power = unit & exponent_mask;
    return (unit & negative_exponent_bit) != 0 ? -power : power;
}

// The unit without its low byte: no power of ten, not reciprocal.
constexpr std::uint16_t base(std::uint16_t unit) {
    return unit & 0xFF00;
}

class Units_clad {
public:
    explicit Units_clad(std::uint32_t units_code = 0) : code(units_code) {}
    Units_clad(const Units_clad&) = default;
    Units_clad& operator=(const Units_clad&) = default;
    virtual ~Units_clad() = default;

    // The description, in place of what the buffer held: "kilogram (mass)".
    virtual std::string& get_label(std::string& buffer) const;

    // The abbreviation, likewise: "kg".
    std::string& get_abbreviation(std::string& buffer) const;

    // The description and the abbreviation ("kg"), in place of what the buffers held. False when the code, or
    // the second half of it, has no label; the buffers then hold what could be told.
    bool compose_labels(std::string& description, std::string& abbreviation) const;

    // Appends the labels of one half of a code. False when it has none.
    static bool unit_labels(std::uint16_t unit, std::string& description, std::string& abbreviation);

    // The code whose label the text is: an abbreviation or a description, alone or with another one behind a
    // multiplication or a division sign; the mask of a date or a time; or the code itself in hexadecimal.
    // What is not recognized is 0xFFFF in its half of the code. A null text is an empty one.
    static std::uint32_t parse_label(const char* text);

    // The unit with the description or abbreviation, or unit_not_recognized.
    static std::uint16_t parse_unit(std::string_view text);

    std::uint32_t code;
};

} // namespace TESK
