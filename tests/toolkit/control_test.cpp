#include "toolkit/button.h"
#include "toolkit/edit.h"
#include "toolkit/form.h"
#include "toolkit/list_box.h"

#include <gtest/gtest.h>

namespace {

// Writes down what its control tells it, as a view would draw it.
class Recording_view : public Control_view {
public:
    using Control_view::Control_view;
    void changed(const Change& change) override { changes.push_back(change); }
    void control_gone() override { gone = true; }

    std::vector<Change> changes;
    bool gone = false;
};

TEST(Edit, filters_what_is_typed_and_what_is_pasted_alike) {
    TEdit edit("edit");
    edit.input_filter = [](const std::string& text) {
        std::string digits;
        std::copy_if(text.begin(), text.end(), std::back_inserter(digits),
                     [](char c) { return c >= '0' && c <= '9'; });
        return digits;
    };
    int changes = 0;
    edit.on_change = [&] { ++changes; };

    EXPECT_TRUE(edit.type_text("1a2\n3"));
    EXPECT_EQ(edit.text(), "123");
    EXPECT_EQ(edit.caret(), 3);
    // The same as a widget would report a paste of "x9y" behind the first digit.
    EXPECT_TRUE(edit.edit_text("1x9y23", 4));
    EXPECT_EQ(edit.text(), "1923");
    EXPECT_EQ(edit.caret(), 2);
    EXPECT_TRUE(edit.type_text("abc"));
    EXPECT_EQ(changes, 2);
}

TEST(Check_list_box, tells_its_view_of_the_changed_lines_only) {
    TCheckListBox list("list");
    list.set_lines(std::vector<std::string>(5000, "line"));
    Recording_view view(list);
    list.set_checked(3999, true);
    ASSERT_EQ(view.changes.size(), 1u);
    EXPECT_EQ(view.changes[0].aspect, Aspect::lines_changed);
    EXPECT_EQ(view.changes[0].first, 3999);
    EXPECT_EQ(view.changes[0].count, 1);
    list.set_all_checked(true);
    EXPECT_EQ(view.changes.size(), 5000u);
}

TEST(Control, goes_before_or_after_its_view) {
    {
        TForm form("form");
        TControl& edit = form.add<TEdit>("edit");
        Recording_view view(edit);
        form.remove(edit);
        EXPECT_TRUE(view.gone);
    }
    TEdit edit("edit");
    { const Recording_view view(edit); }
    edit.set_text("drawn by nobody");
}

} // namespace
