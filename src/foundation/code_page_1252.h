// The one code page of the suite's files: Windows code page 1252, a byte a character. Text goes to and from
// UTF-8 here, and this is the one place that says which letters are the same when case does not count.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace TESK {

// The text in UTF-8. Every byte has a character: the five that the code page leaves open become the control
// characters of the same number, and come back from them.
std::string utf8_from_code_page(std::string_view text);

// Appends the character in UTF-8. What is no character of Unicode (half of a surrogate pair, a number that is
// too large) becomes U+FFFD.
void append_utf8(std::string& text, char32_t character);

// The text in the code page, or nothing when it is not UTF-8 or holds a character that the page lacks.
std::optional<std::string> code_page_from_utf8(std::string_view text);

// Whether the character of the byte is in the code page only as a hole (0x81, 0x8D, 0x8F, 0x90, 0x9D).
bool is_code_page_hole(unsigned char byte);

// The lower-case form of a letter of the code page, accented ones included; any other byte as it is.
char fold_case(char letter);

// The order of two texts when case does not count: negative, 0 or positive.
int compare_ignoring_case(std::string_view a, std::string_view b);
bool equal_ignoring_case(std::string_view a, std::string_view b);

// Classes of characters as the "C" locale has them, whatever the process's locale, for any byte.
constexpr bool is_white_space(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}
constexpr bool is_digit(char c) {
    return c >= '0' && c <= '9';
}
constexpr bool is_letter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}
constexpr char to_ascii_lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}
constexpr char to_ascii_upper(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - ('a' - 'A')) : c;
}

} // namespace TESK
