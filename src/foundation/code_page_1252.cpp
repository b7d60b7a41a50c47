#include "foundation/code_page_1252.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace TESK {

namespace {

// The characters of the bytes 0x80 to 0x9F. All other bytes are the characters of their own number.
constexpr std::array<std::uint16_t, 32> c1_characters = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

constexpr std::array<char, 256> folded_letters = [] {
    std::array<char, 256> table{};
    for (int i = 0; i < 256; ++i) {
        const bool plain = i >= 'A' && i <= 'Z';
        const bool accented = i >= 0xC0 && i <= 0xDE && i != 0xD7;
        const bool caron_or_ligature = i == 0x8A || i == 0x8C || i == 0x8E;
        const int folded = plain || accented ? i + 0x20 : caron_or_ligature ? i + 0x10 : i == 0x9F ? 0xFF : i;
        table[static_cast<std::size_t>(i)] = static_cast<char>(folded);
    }
    return table;
}();

// Takes one character off the front of the text; nothing when the bytes are no UTF-8 of the basic plane.
std::optional<std::uint16_t> take_character(std::string_view& text) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const auto continues = [&](std::size_t i) { return i < text.size() && (byte(i) & 0xC0) == 0x80; };
    const unsigned lead = byte(0);
    unsigned character = lead;
    std::size_t length = 1;
    if (lead >= 0xC2 && lead <= 0xDF && continues(1)) {
        character = (lead & 0x1FU) << 6 | (byte(1) & 0x3FU);
        length = 2;
    } else if ((lead & 0xF0) == 0xE0 && continues(1) && continues(2)) {
        character = (lead & 0x0FU) << 12 | (byte(1) & 0x3FU) << 6 | (byte(2) & 0x3FU);
        length = 3;
        if (character < 0x800 || (character >= 0xD800 && character <= 0xDFFF))
            return std::nullopt;
    } else if (lead >= 0x80) {
        return std::nullopt;
    }
    text.remove_prefix(length);
    return static_cast<std::uint16_t>(character);
}

} // namespace

void append_utf8(std::string& text, char32_t character) {
    constexpr char32_t replacement = 0xFFFD;
    if ((character >= 0xD800 && character <= 0xDFFF) || character > 0x10FFFF)
        character = replacement;
    const auto continuation = [&](unsigned shift) {
        text += static_cast<char>(0x80 | (character >> shift & 0x3F));
    };
    if (character < 0x80) {
        text += static_cast<char>(character);
    } else if (character < 0x800) {
        text += static_cast<char>(0xC0 | character >> 6);
        continuation(0);
    } else if (character < 0x10000) {
        text += static_cast<char>(0xE0 | character >> 12);
        continuation(6);
        continuation(0);
    } else {
        text += static_cast<char>(0xF0 | character >> 18);
        continuation(12);
        continuation(6);
        continuation(0);
    }
}

std::string utf8_from_code_page(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        append_utf8(result, byte >= 0x80 && byte <= 0x9F ? c1_characters[byte - 0x80U] : byte);
    }
    return result;
}

std::optional<std::string> code_page_from_utf8(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    while (!text.empty()) {
        const auto character = take_character(text);
        if (!character)
            return std::nullopt;
        if (*character < 0x80 || (*character >= 0xA0 && *character <= 0xFF)) {
            result += static_cast<char>(*character);
            continue;
        }
        const auto found = std::find(c1_characters.begin(), c1_characters.end(), *character);
        if (found == c1_characters.end())
            return std::nullopt;
        result += static_cast<char>(0x80 + (found - c1_characters.begin()));
    }
    return result;
}

bool is_code_page_hole(unsigned char byte) {
    return byte >= 0x80 && byte <= 0x9F && c1_characters[byte - 0x80U] == byte;
}

char fold_case(char letter) {
    return folded_letters[static_cast<unsigned char>(letter)];
}

int compare_ignoring_case(std::string_view a, std::string_view b) {
    const std::size_t common = std::min(a.size(), b.size());
    for (std::size_t i = 0; i < common; ++i) {
        const int difference =
            static_cast<unsigned char>(fold_case(a[i])) - static_cast<unsigned char>(fold_case(b[i]));
        if (difference != 0)
            return difference < 0 ? -1 : 1;
    }
    return a.size() == b.size() ? 0 : a.size() < b.size() ? -1 : 1;
}

bool equal_ignoring_case(std::string_view a, std::string_view b) {
    return a.size() == b.size() && compare_ignoring_case(a, b) == 0;
}

} // namespace TESK
