// Reads a text piece by piece as formatted input of the C library does in the "C" locale, whatever locale the
// process is in. A piece that does not match ends the reading: all later ones fail.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace TESK {

class Text_scanner {
public:
    static constexpr std::size_t any_width = static_cast<std::size_t>(-1);

    explicit Text_scanner(std::string_view text) : rest_(text) {}

    // "%d" or "%<width>d": a decimal integer behind white space. The sign counts in the width. Without a
    // match `value` stays and the result is false. A number out of range is cut to its low 32 bits.
    bool take_integer(std::int32_t& value, std::size_t width = any_width);

    // "%s" or "%<width>s": what follows white space, up to the next. Empty when there is no match.
    std::string_view take_word(std::size_t width = any_width);

    // A separator of a format: a white space in it matches any white space or none, another character itself.
    void take_literal(std::string_view literal);

    // Passes over the character behind white space when it is this one. No match ends nothing.
    bool take_if_next(char character);

private:
    void skip_white_space();

    std::string_view rest_;
};

} // namespace TESK
