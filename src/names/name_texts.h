// What the names do with plain texts, for the use of this folder alone.
#pragma once

#include <string_view>

namespace TESK {

inline const char* text_or_empty(const char* text) {
    return text == nullptr ? "" : text;
}

// A piece of a path: the text up to and including the first delimiter, or all of it without one.
inline std::string_view first_piece(std::string_view text, char delimiter) {
    const std::size_t end = text.find(delimiter);
    return end == std::string_view::npos ? text : text.substr(0, end + 1);
}

// Takes the first piece off the text, and gives it.
inline std::string_view take_piece(std::string_view& text, char delimiter) {
    const std::string_view piece = first_piece(text, delimiter);
    text.remove_prefix(piece.size());
    return piece;
}

} // namespace TESK
