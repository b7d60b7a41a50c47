#include "toolkit/combo_box.h"
#include "toolkit/edit.h"

#include <gtest/gtest.h>

TEST(Edit, lets_a_change_handler_set_text_and_caret_which_is_never_below_0) {
    TEdit edit("edit");
    edit.on_change = [&] {
        const int caret = edit.caret() - 3;
        edit.set_text("12.34");
        edit.set_caret(caret);
    };
    edit.edit_text("12.34abc", 7);
    EXPECT_EQ(edit.text(), "12.34");
    EXPECT_EQ(edit.caret(), 4);
    edit.edit_text("abc12.34", 1); // a widget with the caret in what goes
    EXPECT_EQ(edit.text(), "12.34");
    EXPECT_EQ(edit.caret(), 0);
}

TEST(Edit, counts_characters_and_not_bytes) {
    TEdit edit("edit");
    edit.type_text("a\xC3\xA9\xE2\x82\xAC");
    EXPECT_EQ(edit.caret(), 3);
    edit.set_selection(3, 1);
    EXPECT_EQ(edit.selected_text(), "\xC3\xA9\xE2\x82\xAC");
    EXPECT_EQ(edit.caret(), 1);
    edit.type_text("\xC3\xA8");
    EXPECT_EQ(edit.text(), "a\xC3\xA8");
    // Two characters that share a byte are told apart as characters.
    edit.input_filter = [](const std::string& text) { return text == "\xC3\xA9" ? "ok" : std::string(); };
    edit.edit_text("a\xC3\xA9", 2);
    EXPECT_EQ(edit.text(), "aok");
    edit.set_selection(-5, 99);
    EXPECT_EQ(edit.selected_text(), "aok");
}

TEST(Edit, takes_a_line_break_as_a_blank_and_a_memo_as_one_kind_of_break) {
    TEdit edit("edit");
    edit.type_text("a\r\nb\rc\nd");
    EXPECT_EQ(edit.text(), "a b c d");
    TMemo memo("memo");
    memo.type_text("a\r\nb\rc\n");
    EXPECT_EQ(memo.text(), "a\nb\nc\n");
    EXPECT_EQ(memo.line_count(), 3);
    memo.append_line("d");
    EXPECT_EQ(memo.text(), "a\nb\nc\nd\n");
    memo.append_line("e\r\nf");
    EXPECT_EQ(memo.text(), "a\nb\nc\nd\ne\nf\n");
    EXPECT_EQ(memo.caret(), 12);
    EXPECT_FALSE(memo.modified());
}

TEST(Edit, asks_for_the_text_of_its_widget_only_when_somebody_wants_to_know_it) {
    struct Holder : Text_holder {
        std::string held_text() const override { return ++asked, "typed"; }
        std::pair<int, int> held_selection() const override { return ++asked, std::pair(2, 2); }
        mutable int asked = 0;
    } holder;
    TMemo memo("memo");
    for (int key = 0; key < 3; ++key)
        EXPECT_TRUE(memo.edit_in_place(holder) && memo.select_in_place(holder) && memo.modified());
    EXPECT_EQ(holder.asked, 0);
    EXPECT_EQ(memo.text(), "typed");
    EXPECT_EQ(memo.caret(), 2);
}

TEST(Edit, erases_and_moves_by_keys) {
    TEdit edit("edit");
    edit.type_text("ab\xC3\xA9");
    edit.key({Key_code::backspace, {}});
    EXPECT_EQ(edit.text(), "ab");
    for (const Key_code code : {Key_code::home, Key_code::backspace, Key_code::left, Key_code::del})
        edit.key({code, {}});
    EXPECT_EQ(edit.text(), "b");
    EXPECT_EQ(edit.caret(), 0);
    edit.key({Key_code::end, {}, true});
    EXPECT_EQ(edit.selected_text(), "b");
    edit.key({Key_code::character, "x"});
    EXPECT_EQ(edit.text(), "x");
}

TEST(Edit, tells_whether_the_user_changed_it) {
    TMemo memo("notes");
    memo.set_text("loaded");
    memo.set_read_only(true);
    EXPECT_FALSE(memo.type_text("x") || memo.modified());
    memo.set_read_only(false);
    EXPECT_TRUE(memo.type_text("x") && memo.modified());
    memo.set_text(memo.text());
    EXPECT_FALSE(memo.modified());
}

TEST(Combo_box, takes_other_texts_than_its_items_only_when_it_may) {
    TComboBox list("units");
    list.set_items({"kg/ha", "t/ha"});
    int changes = 0;
    list.on_change = [&] { ++changes; };
    EXPECT_FALSE(list.type_text("x"));
    EXPECT_FALSE(list.select(2));
    EXPECT_TRUE(list.select(1));
    EXPECT_TRUE(list.select(1));
    EXPECT_EQ(list.text(), "t/ha");
    EXPECT_EQ(changes, 1);

    TComboBox free("attribute", true);
    free.set_items({"MUID"});
    free.set_text("SLOPE");
    EXPECT_EQ(free.item_index(), -1);
    free.select_text(0, 5);
    EXPECT_TRUE(free.type_text("MUID"));
    EXPECT_EQ(free.item_index(), 0);
    free.set_items({});
    EXPECT_EQ(free.text(), "MUID");
}
