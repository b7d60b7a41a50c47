#include "foundation/ustring.h"

#include <gtest/gtest.h>
#include <sstream>
#include <stdexcept>

namespace TESK {
namespace {

TEST(Ustring, strip_takes_its_end_and_its_trailing_pass_spares_the_first_character) {
    // The text, and what is left when it is stripped of leading, trailing, and both.
    const char* cases[][4] = {
        {"abc", "abc", "abc", "abc"}, {"ax", "ax", "a", "a"}, {"xa", "a", "xa", "a"},
        {"xxx", "", "x", ""},         {"", "", "", ""},       {"xxaxbxx", "axbxx", "xxaxb", "axb"}};
    for (const auto& c : cases)
        for (int mode = 0; mode < 3; ++mode)
            EXPECT_EQ(Ustring(c[0]).strip(static_cast<Strip_mode>(mode), 'x'), c[1 + mode]) << c[0] << mode;
}

TEST(Ustring, find_gives_the_first_place_or_minus_one) {
    EXPECT_EQ(Ustring("abc").find(""), 0);
    EXPECT_EQ(Ustring("").find(""), -1);
    EXPECT_EQ(Ustring("aabcbc").find("abc"), 1);
    EXPECT_EQ(Ustring("abc").find("abcd"), -1);
    EXPECT_TRUE(Ustring("").contains(""));
    EXPECT_FALSE(Ustring("abc").contains("C"));
    EXPECT_THROW(Ustring("abc").contains(nullptr), std::logic_error);
}

TEST(Ustring, texts_are_made_of_parts_and_changed_in_place) {
    EXPECT_EQ(Ustring("abcdef", 2, 3), "cde");
    EXPECT_EQ(Ustring(Ustring("abcdef"), 4, 9), "ef");
    EXPECT_THROW(Ustring("abc", 4, 1), std::out_of_range);
    Ustring text("tail");
    EXPECT_EQ(&text.prepend("head "), &text);
    EXPECT_EQ(text.prepend(text), "head tailhead tail");
    EXPECT_EQ(text.char_at(17), 'l');
    EXPECT_THROW(text.char_at(18), std::out_of_range);
    text = "MA\xCFZE [Z]";
    text.to_lower();
    EXPECT_EQ(text, "ma\xCFze [z]");
    std::string narrow = "what was there";
    EXPECT_EQ(wide_to_narrow(L"caf\u00E9 \u20AC", narrow), "caf\xE9 \xAC");
}

// The lines of the text, "|" between them, by reading until the stream is no longer good.
std::string lines_of(const std::string& text, bool skip_whitespace) {
    std::istringstream in(text);
    UIO_string line;
    line.set_skip_whitespace(skip_whitespace);
    std::string lines;
    while (line.read_line(in).good())
        lines += line + "|";
    return lines + line;
}

TEST(Ustring, lines_are_read_whole_and_without_their_line_feed) {
    // The text, its lines, and its lines when leading white space is skipped. Behind the last line feed an
    // empty text is read.
    const char* cases[][3] = {{"", "", ""},
                              {"a\nb", "a|b", "a|b"},
                              {"\n\n\na\n", "|||a|", "|||a|"},
                              {" \t\v\f\ra b \r\n", " \t\v\f\ra b \r|", "a b \r|"},
                              {"a\n  \n  b", "a|  |  b", "a||b"},
                              {"a\n   ", "a|   ", "a|"}};
    for (const auto& [text, lines, skipped] : cases) {
        EXPECT_EQ(lines_of(text, false), lines) << text;
        EXPECT_EQ(lines_of(text, true), skipped) << text;
    }
    for (const std::size_t length : {253, 254, 255, 300, 508, 509, 100'000}) {
        const std::string line(length, 'y');
        EXPECT_EQ(lines_of(line + "\n" + line, true), line + "|" + line);
    }
    const std::string zero("a\0b", 3);
    EXPECT_EQ(lines_of(zero + "\n\xFF", true), zero + "|\xFF");
}

TEST(Ustring, the_delimiter_is_consumed_and_the_text_emptied_first) {
    std::istringstream in("a;\n;b");
    UIO_string text("what was there");
    for (const char* piece : {"a", "\n", "b", ""}) {
        EXPECT_EQ(&text.read_to_delimiter(in, ';'), &in);
        EXPECT_EQ(text, piece);
    }
    EXPECT_TRUE(in.fail());
}

} // namespace
} // namespace TESK
