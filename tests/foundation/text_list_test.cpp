#include "foundation/text_list.h"

#include <gtest/gtest.h>
#include <sstream>

namespace TESK {
namespace {

std::string written(Text_list& list) {
    std::ostringstream out;
    list.write(out);
    return out.str();
}

TEST(Text_list, the_last_character_of_a_text_never_belongs_to_a_piece) {
    const char* cases[][2] = {{"ab,;cd", "ab,\nc\n"},  {"a;b;", "a\nb\n"}, {nullptr, ""}, {"", ""},
                              {"a;;bc;", "a\n\nbc\n"}, {"a;bc", "a\nb\n"}, {"x", "\n"},   {";", "\n"}};
    for (const auto& [text, lines] : cases) {
        Text_list list(text, ';');
        EXPECT_EQ(written(list), lines);
    }
    std::string long_text;
    for (int i = 0; i < 500'000; ++i)
        long_text += "a;";
    EXPECT_EQ(Text_list(long_text.c_str(), ';').count(), 500'000U); // in time that grows with the text
}

TEST(Text_list, lines_are_found_joined_written_whole_and_never_reordered) {
    Text_list list("b;A;a;\xC9;", ';');
    std::string out = "> ";
    EXPECT_EQ(list.to_string(out), "> bAa\xC9");
    EXPECT_EQ(list.find("a", false), list.get_at(1));
    EXPECT_EQ(list.find("a", true), list.get_at(2));
    EXPECT_EQ(list.find("\xE9", false), list.get_at(3));
    EXPECT_EQ(list.find("", false), nullptr);
    EXPECT_EQ(list.find(nullptr, false), nullptr);
    EXPECT_EQ(list.get_at(0)->label_to(out), "b");
    list.append(new Text_list::Item(std::string("z\0z", 3)));
    list.sort(Sort_order::ascending);
    list.sort(Sort_order::descending);
    EXPECT_EQ(written(list), std::string("b\nA\na\n\xC9\nz\0z\n", 12));
}

} // namespace
} // namespace TESK
