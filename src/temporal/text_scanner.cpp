#include "temporal/text_scanner.h"

#include "foundation/code_page_1252.h"

#include <algorithm>

namespace TESK {

void Text_scanner::skip_white_space() {
    const auto end = std::find_if_not(rest_.begin(), rest_.end(), is_white_space);
    rest_.remove_prefix(static_cast<std::size_t>(end - rest_.begin()));
}

bool Text_scanner::take_integer(std::int32_t& value, std::size_t width) {
    skip_white_space();
    const std::string_view field = rest_.substr(0, width);
    const bool has_sign = !field.empty() && (field[0] == '-' || field[0] == '+');
    const std::size_t start = has_sign ? 1 : 0;
    std::size_t end = start;
    std::uint32_t magnitude = 0;
    for (; end < field.size() && is_digit(field[end]); ++end)
        magnitude = magnitude * 10 + static_cast<std::uint32_t>(field[end] - '0');
    if (end == start) {
        rest_ = {};
        return false;
    }
    rest_.remove_prefix(end);
    value = static_cast<std::int32_t>(has_sign && field[0] == '-' ? 0 - magnitude : magnitude);
    return true;
}

std::string_view Text_scanner::take_word(std::size_t width) {
    skip_white_space();
    const std::string_view field = rest_.substr(0, width);
    const auto end = std::find_if(field.begin(), field.end(), is_white_space);
    const std::string_view word = field.substr(0, static_cast<std::size_t>(end - field.begin()));
    rest_.remove_prefix(word.size());
    return word;
}

void Text_scanner::take_literal(std::string_view literal) {
    for (const char character : literal) {
        if (is_white_space(character))
            skip_white_space();
        else if (!rest_.empty() && rest_.front() == character)
            rest_.remove_prefix(1);
        else
            rest_ = {};
    }
}

bool Text_scanner::take_if_next(char character) {
    skip_white_space();
    if (rest_.empty() || rest_.front() != character)
        return false;
    rest_.remove_prefix(1);
    return true;
}

} // namespace TESK
