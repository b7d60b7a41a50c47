// Counting in UTF-8: carets and selections are counted in characters, texts are stored in bytes.
#pragma once

#include <cstddef>
#include <string_view>

namespace utf8 {

constexpr bool is_continuation(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

// The number of characters of the text.
int length(std::string_view text);

// The byte where the character of that index begins: 0 for an index below 0, the size of the text behind its
// end.
std::size_t offset(std::string_view text, int index);

} // namespace utf8
