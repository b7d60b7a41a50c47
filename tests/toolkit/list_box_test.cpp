#include "recording_view.h"
#include "toolkit/check_box.h"
#include "toolkit/file_list_box.h"
#include "toolkit/month_grid.h"

#include <gtest/gtest.h>

namespace {

TEST(List_box, fires_for_the_user_and_not_for_the_program) {
    TCheckListBox list("list");
    std::string log;
    list.on_change = [&] { log += "change " + list.item_text() + " "; };
    list.on_click = [&] { log += "click "; };
    list.on_check = [&](int index) { log += "check " + std::to_string(index) + " "; };
    list.on_double_click = [&] { log += "double "; };
    list.set_lines({"a", "b", "c"});
    list.set_line_enabled(2, false);
    list.set_item_index(0);
    list.set_all_checked(true);
    EXPECT_EQ(log, "");

    EXPECT_TRUE(list.select(1));
    EXPECT_TRUE(list.select(1));
    EXPECT_EQ(log, "change b click click ");
    log.clear();
    EXPECT_TRUE(list.check(0, false));
    EXPECT_TRUE(list.check(0, false));
    EXPECT_EQ(log, "check 0 ");
    EXPECT_EQ(list.item_index(), 1) << "a mark leaves the cursor alone";
    log.clear();
    EXPECT_TRUE(list.double_click(0));
    EXPECT_EQ(log, "change a click double ");
    EXPECT_TRUE(list.key({Key_code::down, {}}));
    EXPECT_TRUE(list.key({Key_code::space, {}}));
    EXPECT_FALSE(list.checked(1));

    for (const int index : {2, 3, -1}) {
        EXPECT_FALSE(list.select(index)) << index;
        EXPECT_FALSE(list.check(index)) << index;
    }
    EXPECT_FALSE(TListBox("plain").check(0));
}

TEST(List_box, keeps_its_cursor_on_its_line) {
    TListBox list("list");
    list.set_lines({"a", "b", "c"});
    list.set_item_index(1);
    list.insert_line(0, "new");
    list.remove_line(3);
    list.remove_line(0);
    EXPECT_EQ(list.item_text(), "b");
    EXPECT_TRUE(list.selected(1));
    list.remove_line(1);
    EXPECT_EQ(list.item_index(), -1);
    list.remove_line(7);
    list.set_item_index(7);
    list.set_line_text(-1, "x");
    EXPECT_EQ(list.item_text(), "");
    EXPECT_EQ(list.count(), 1);
}

TEST(List_box, selects_several_lines_where_it_may) {
    TListBox several("several", true);
    TListBox single("single");
    several.set_lines({"a", "b", "c"});
    single.set_lines({"a", "b", "c"});
    const auto selected = [](const TListBox& list) {
        std::string names;
        for (int index = 0; index < list.count(); ++index)
            names += list.selected(index) ? list.line(index).text : "";
        return names;
    };
    EXPECT_TRUE(several.select_lines({0, 2, 9}));
    EXPECT_EQ(selected(several), "ac");
    EXPECT_TRUE(several.select(1));
    EXPECT_EQ(selected(several), "b");
    EXPECT_FALSE(single.select_lines({0, 1}));
    EXPECT_TRUE(single.select(0) && single.select(1));
    EXPECT_EQ(selected(single), "b");
}

class Folder : public Folder_source {
public:
    std::vector<Folder_entry> files(const std::string& folder, const std::string& mask) override {
        std::vector<Folder_entry> entries;
        for (const std::string& name : names)
            entries.push_back({name, folder + "\\" + name});
        asked = folder + "|" + mask;
        return entries;
    }
    std::vector<Folder_entry> folders(const std::string& folder) override {
        return {{"Crop", folder + "\\Crop"}};
    }

    std::vector<std::string> names;
    std::string asked;
};

TEST(File_list_box, keeps_marks_and_cursor_by_name_when_it_is_read_again) {
    Folder folder;
    folder.names = {"a.tvn", "b.tvn", "c.tvn"};
    TFileCheckListBox list("list");
    list.set_source(&folder);
    list.set_mask("*.tvn");
    list.set_folder("C:\\P\\Scenarios");
    EXPECT_EQ(folder.asked, "C:\\P\\Scenarios|*.tvn");
    int changes = 0;
    list.on_change = [&] { ++changes; };
    list.set_checked(1, true);
    list.set_checked(2, true);
    list.set_item_index(2);

    Recording_view view(list);
    list.Update();
    EXPECT_TRUE(view.changes.empty()) << "nothing is drawn that did not change";
    list.add_line("new.tvn");
    EXPECT_EQ(list.path(3), "C:\\P\\Scenarios\\new.tvn");

    folder.names = {"0.tvn", "c.tvn", "d.tvn"};
    list.Update();
    ASSERT_EQ(list.count(), 3);
    EXPECT_TRUE(!list.checked(0) && list.checked(1) && !list.checked(2));
    EXPECT_EQ(list.item_text(), "c.tvn");
    EXPECT_EQ(changes, 0);
    folder.names.clear();
    list.Update();
    EXPECT_EQ(list.item_index(), -1);
}

TEST(Shell_views, give_the_paths_of_what_is_selected) {
    Folder folder;
    folder.names = {"a.dbf", "b.dbf", "c.dbf"};
    current_folder_source = &folder;
    TShellListView list("list");
    list.set_folder("C:\\GIS");
    list.select_lines({0, 2});
    EXPECT_EQ(list.selected_paths(), (std::vector<std::string>{"C:\\GIS\\a.dbf", "C:\\GIS\\c.dbf"}));

    TShellTreeView tree("tree");
    tree.set_folder("C:\\GIS");
    EXPECT_TRUE(tree.select(tree.folders_of(tree.folder())[0].path));
    EXPECT_EQ(tree.selected_folder(), "C:\\GIS\\Crop");
    current_folder_source = nullptr;
    list.Update();
    EXPECT_EQ(list.count(), 0);
    EXPECT_TRUE(tree.folders_of("C:\\GIS").empty());
}

TEST(Radio_group, fires_when_the_user_chooses_another_item) {
    TRadioGroup group("group", "Database", {"Arbitrary", "Master"});
    int clicks = 0;
    group.on_click = [&] { ++clicks; };
    EXPECT_EQ(group.item_index(), -1);
    EXPECT_TRUE(group.select(1));
    EXPECT_TRUE(group.select(1));
    EXPECT_FALSE(group.select(2));
    EXPECT_EQ(clicks, 1);
    group.set_items({"Arbitrary"});
    EXPECT_EQ(group.item_index(), -1);
}

TEST(Month_grid, takes_only_days_of_its_month) {
    TMonthGrid grid("grid");
    grid.set_month(28, 6, 31);
    EXPECT_EQ(grid.day(), 28);
    EXPECT_FALSE(grid.pick(29));
    EXPECT_FALSE(grid.pick(0));
    EXPECT_TRUE(grid.pick(1));
    EXPECT_TRUE(grid.key({Key_code::down, {}}));
    EXPECT_EQ(grid.day(), 8);
}

} // namespace
