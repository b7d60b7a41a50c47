#include "foundation/code_page_1252.h"

#include <gtest/gtest.h>
#include <iconv.h>
#include <locale.h>
#include <wctype.h>

namespace TESK {
namespace {

std::string bytes(bool holes) {
    std::string text;
    for (int i = 0; i < 256; ++i)
        if (is_code_page_hole(static_cast<unsigned char>(i)) == holes)
            text += static_cast<char>(i);
    return text;
}

// A text of the code page by the host's own conversion; empty where the host has none.
template <class Text>
Text converted(const char* encoding, std::string text) {
    Text result(4 * text.size(), 0);
    char* in = text.data();
    char* out = reinterpret_cast<char*>(result.data());
    std::size_t in_left = text.size();
    std::size_t out_left = result.size() * sizeof result[0];
    const iconv_t conversion = iconv_open(encoding, "CP1252");
    if (conversion == iconv_t(-1))
        return {};
    iconv(conversion, &in, &in_left, &out, &out_left);
    iconv_close(conversion);
    result.resize(result.size() - out_left / sizeof result[0]);
    return result;
}

TEST(Code_page_1252, every_byte_survives_the_way_through_utf8) {
    EXPECT_EQ(bytes(true), "\x81\x8D\x8F\x90\x9D");
    for (const bool holes : {false, true})
        EXPECT_EQ(code_page_from_utf8(utf8_from_code_page(bytes(holes))), bytes(holes));
    EXPECT_EQ(utf8_from_code_page("\x9D"), "\xC2\x9D");
}

TEST(Code_page_1252, characters_and_their_case_are_those_of_the_host) {
    const auto characters = converted<std::wstring>("WCHAR_T", bytes(false));
    const locale_t locale = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
    if (characters.empty() || locale == nullptr)
        GTEST_SKIP() << "the host knows neither the code page nor Unicode";
    EXPECT_EQ(utf8_from_code_page(bytes(false)), converted<std::string>("UTF-8", bytes(false)));
    for (std::size_t i = 0; i < characters.size(); ++i) {
        const auto lower = characters.find(static_cast<wchar_t>(towlower_l(characters[i], locale)));
        const char byte = bytes(false)[i];
        EXPECT_EQ(fold_case(byte), lower == characters.npos ? byte : bytes(false)[lower]) << i;
    }
    freelocale(locale);
}

TEST(Code_page_1252, what_is_no_utf8_or_has_no_byte_is_refused) {
    const char* refused[] = {
        "\x80",     "a\xC3",        "\xE2\x82",         "\xE2\x82x",       "\xC3\xA9\xFF", // malformed
        "\xC1\xA1", "\xE0\x83\xA9", "\xF0\x80\x82\xA9", "\xED\xA0\x80",      // over-long, surrogate
        "\xC4\x80", "\xC2\x80",     "\xE2\x82\xAD",     "\xF0\x9F\x8C\xBE"}; // not in the page
    for (const char* text : refused)
        EXPECT_EQ(code_page_from_utf8(text), std::nullopt) << text;
    EXPECT_EQ(code_page_from_utf8("\xE2\x82\xAC\xC3\xA9"), "\x80\xE9");
}

TEST(Code_page_1252, texts_are_ordered_without_their_case) {
    EXPECT_EQ(compare_ignoring_case("\xC9t\xE9", "\xE9T\xC9"), 0);
    const char* ascending[] = {"", "A", "aB", "b", "\xD7", "\xE9", "\xF7"};
    for (std::size_t i = 1; i < std::size(ascending); ++i) {
        EXPECT_EQ(compare_ignoring_case(ascending[i - 1], ascending[i]), -1) << i;
        EXPECT_EQ(compare_ignoring_case(ascending[i], ascending[i - 1]), 1) << i;
        EXPECT_FALSE(equal_ignoring_case(ascending[i], ascending[i - 1])) << i;
    }
}

} // namespace
} // namespace TESK
