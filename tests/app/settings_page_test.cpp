#include "project_support.h"

#include <fstream>

namespace {

class Settings_page_test : public Project_test {
protected:
    Settings_page_test() {
        created_file_ends_with("wet", "[other_program]\nmood=bright\n");
        open_with("Scenarios\\base.tvn");
        created().check(1);
        created().check(2);
        page.settings_tabsheet.bring_to_front();
    }
    void created_file_ends_with(const std::string& scenario, const char* text) {
        std::ofstream(drives.host(path(scenario)), std::ios::app | std::ios::binary) << text;
    }
    static std::string path(const std::string& scenario) {
        return "projects/study/Scenarios/" + scenario + ".tvn";
    }
    std::string content(const std::string& scenario) const { return drives.read(path(scenario)); }
    // The cells of the row of a key, with the marks of the pictures: "12.5 *".
    std::string row_of(const std::string& key) const {
        const int row = find(key);
        std::string text;
        for (int column = first; row >= 0 && column < page.settings_table.column_count(); ++column) {
            const Table_cell cell = page.settings_table.rows()->cell(row, column);
            text += cell.text + (cell.picture.shape == Shape::none ? "" : "!") + ';';
        }
        return text;
    }
    int find(const std::string& key) const {
        for (int row = 0; row < page.settings_table.count(); ++row)
            if (page.settings_table.rows()->cell(row, 0).text + '.' +
                    page.settings_table.rows()->cell(row, 1).text ==
                key)
                return row;
        return -1;
    }

    static constexpr int first = Setting_rows::first_scenario;
    Settings_page& page = form.settings;
};

TEST_F(Settings_page_test, changes_nothing_but_the_settings_that_were_applied) {
    EXPECT_EQ(row_of("field.size"), "12.5;12.5;12.5;");
    EXPECT_EQ(row_of("other_program.mood"), ";;bright!;") << "a key that no record declares";
    const std::string dry = content("dry");
    const std::string base = content("base");

    EXPECT_FALSE(page.settings_table.edit_cell(find("field.size"), first, "wide"));
    EXPECT_NE(parameter_form.status_line.text(), "") << "what is refused is said";
    EXPECT_EQ(row_of("field.size"), "12.5;12.5;12.5;");
    EXPECT_TRUE(page.settings_table.edit_cell(find("field.size"), first + 1, "14.25"));
    EXPECT_EQ(row_of("field.size"), "12.5;14.25!;12.5;");
    page.settings_only_differing_checkbox.check();
    EXPECT_EQ(page.settings_table.count(), 2) << "the size, and what only one file has";
    page.settings_filter_edit.type_text("14.2");
    EXPECT_EQ(page.settings_table.count(), 1);
    EXPECT_EQ(content("dry"), dry) << "nothing is written yet";

    page.settings_tabsheet.bring_to_front();
    page.Update();
    EXPECT_EQ(row_of("field.size"), "12.5;14.25!;12.5;") << "what is wanted is not read away";
    page.settings_table.click_cell(0, first + 1);
    EXPECT_TRUE(page.settings_give_to_all_button.click());
    desktop.expect_message("Apply settings",
                           "Files that will be changed: 3. They are put aside first. Go on?",
                           Modal_result::ok);
    EXPECT_TRUE(page.settings_apply_button.click());
    EXPECT_FALSE(page.settings_apply_button.enabled());
    std::string expected = dry;
    expected.replace(expected.find("size=12.5000000000"), 18, "size=14.2500000000");
    EXPECT_EQ(content("dry"), expected);

    const Operation_outcome undone =
        Change_backups(*form.workspace()->project_directory).undo_last(Operation_progress());
    EXPECT_EQ(undone.done, 3u);
    EXPECT_EQ(content("dry"), dry);
    EXPECT_EQ(content("base"), base);
}

TEST_F(Settings_page_test, forgets_changes_only_when_the_user_says_so) {
    EXPECT_TRUE(page.settings_table.edit_cell(find("field.size"), first + 2, "3"));
    desktop.expect_message("Settings not applied",
                           "Changes on the page Settings are not applied. Leave without them?",
                           Modal_result::cancel);
    parameter_form.cancel_button.click();
    EXPECT_TRUE(parameter_form.visible());
    EXPECT_TRUE(page.settings_discard_button.click());
    EXPECT_EQ(row_of("field.size"), "12.5;12.5;12.5;");
    EXPECT_TRUE(page.may_close());
}

} // namespace
