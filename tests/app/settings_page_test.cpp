#include "project_support.h"

#include "editing/auto_calendar.h"

namespace {

class Settings_page_test : public Project_test {
protected:
    Settings_page_test() {
        write_scenario("wet", scenario("wet") + "[other_program]\nmood=bright\n");
        open_with("Scenarios\\base.tvn");
        created().check(1);
        created().check(2);
        page.settings_tabsheet.bring_to_front();
    }
    static std::string path(const std::string& name_of_one) {
        return "projects/study/Scenarios/" + name_of_one + ".tvn";
    }
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
        std::string section;
        for (int row = 0; row < page.settings_table.count(); ++row) {
            const Table_cell cell = page.settings_table.rows()->cell(row, 0);
            if (cell.strong)
                section = cell.text;
            else if (section + '.' + cell.text == key)
                return row;
        }
        return -1;
    }

    // Applies the settings, with what is told of those that cannot be.
    void apply(int files, const std::string& told = "") {
        desktop.expect_message("Apply settings",
                               "Files that will be changed: " + std::to_string(files) +
                                   ". They are put aside first. Go on?",
                               Modal_result::ok);
        if (!told.empty())
            desktop.expect_message("Settings not applied", told);
        EXPECT_TRUE(page.settings_apply_button.click());
    }

    static constexpr int first = Setting_rows::first_scenario;
    Settings_page& page = form.settings;
};

TEST_F(Settings_page_test, changes_nothing_but_the_settings_that_were_applied) {
    EXPECT_EQ(row_of("field.size"), "12.5;12.5;12.5;");
    EXPECT_EQ(row_of("other_program.mood"), ";;bright!;") << "a key that no record declares";
    const std::string dry = scenario("dry");
    const std::string base = scenario("base");

    EXPECT_FALSE(page.settings_table.edit_cell(find("field.size"), first, "wide"));
    EXPECT_NE(parameter_form.status_line.text(), "") << "what is refused is said";
    EXPECT_EQ(row_of("field.size"), "12.5;12.5;12.5;");
    EXPECT_TRUE(page.settings_table.edit_cell(find("field.size"), first + 1, "14.25"));
    EXPECT_EQ(row_of("field.size"), "12.5;14.25!;12.5;");
    page.settings_table.click_cell(find("field.size"), first);
    page.settings_only_differing_checkbox.check();
    EXPECT_EQ(page.settings_table.count(), 4) << "the size, and what only one file has, with their sections";
    EXPECT_EQ(page.settings_table.cursor_row(), find("field.size"));
    page.settings_filter_edit.type_text("14.2");
    EXPECT_EQ(page.settings_table.count(), 2);
    EXPECT_EQ(scenario("dry"), dry) << "nothing is written yet";

    page.settings_tabsheet.bring_to_front();
    page.Update();
    EXPECT_EQ(row_of("field.size"), "12.5;14.25!;12.5;") << "what is wanted is not read away";
    page.settings_table.click_cell(1, first + 1);
    EXPECT_TRUE(page.settings_give_to_all_button.click());
    apply(3);
    EXPECT_FALSE(page.settings_apply_button.enabled());
    std::string expected = dry;
    expected.replace(expected.find("size=12.5000000000"), 18, "size=14.2500000000");
    EXPECT_EQ(scenario("dry"), expected);

    EXPECT_TRUE(page.settings_table.focused());
    EXPECT_TRUE(form.menu.bar->choose("Edit|Undo the last change to scenarios"));
    page.settings_only_differing_checkbox.check(false);
    EXPECT_TRUE(form.menu.bar->choose("Edit|Find"));
    page.settings_filter_edit.type_text("size");
    EXPECT_EQ(row_of("field.size"), "12.5;12.5;12.5;") << "is read anew";
    EXPECT_EQ(scenario("dry"), dry);
    EXPECT_EQ(scenario("base"), base);
}

TEST_F(Settings_page_test, a_stopped_apply_leaves_the_rest_wanted) {
    page.settings_table.edit_cell(find("field.size"), first, "14.25");
    page.settings_table.click_cell(find("field.size"), first);
    page.settings_give_to_all_button.click();
    const std::string base = scenario("base");
    desktop.on_process_messages = [&] { desktop.closing = scenario("base") != base; };
    desktop.expect_message("Apply settings",
                           "Files that will be changed: 3. They are put aside first. Go on?",
                           Modal_result::ok);
    EXPECT_TRUE(page.settings_apply_button.click());
    EXPECT_EQ(row_of("field.size"), "14.25;14.25!;14.25!;");
    EXPECT_NE(scenario("dry").find("size=12.5"), std::string::npos);
    page.settings_discard_button.click();
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

TEST_F(Settings_page_test, edits_dates_and_files_by_their_dialogs_and_shows_all_keys_of_a_field) {
    const int date = find("simulation.starting_date");
    desktop.expect_modal("auto_calendar_form", [](TForm& calendar) {
        static_cast<TAutoCalendar_form&>(calendar).DOM_calendar.pick(17);
        static_cast<TAutoCalendar_form&>(calendar).ok_button.click();
    });
    EXPECT_TRUE(page.settings_table.double_click(date, first + 1));
    EXPECT_EQ(row_of("simulation.starting_date"), "1996-01-01;1996-01-17!;1996-01-01;");

    desktop.expect_file_dialog("", {"C:\\other\\peas.rot"});
    EXPECT_TRUE(page.settings_table.begin_edit(find("parameter_filenames.rotation"), first + 1));
    EXPECT_TRUE(page.settings_file_dialog.filter.find("*.rot") != std::string::npos);
    for (const char* key : {"parameter_filenames.rotation", "cropping_system.rotation"})
        EXPECT_NE(row_of(key).find(";C:\\other\\peas.rot!;"), std::string::npos) << key;
    // The field has what was wanted last, whichever of its keys that was wanted under.
    EXPECT_TRUE(page.settings_table.edit_cell(find("cropping_system.rotation"), first + 1, "oats.rot"));
    EXPECT_NE(row_of("parameter_filenames.rotation").find(";oats.rot!;"), std::string::npos);
    page.settings_table.click_cell(date, first + 1);
    desktop.expect_menu("Take the change back");
    EXPECT_TRUE(page.settings_table.open_menu(date, first + 1));
    EXPECT_EQ(row_of("simulation.starting_date"), "1996-01-01;1996-01-01;1996-01-01;");

    // What is wanted of the others needs no file; what cannot be written stays wanted.
    std::filesystem::remove(drives.host(path("wet")));
    page.settings_table.click_cell(find("cropping_system.rotation"), first + 1);
    EXPECT_TRUE(page.settings_give_to_all_button.click());
    apply(3,
          "Files that could not be dealt with: 1\nC:\\projects\\study\\Scenarios\\wet.tvn: There is no file "
          "C:\\projects\\study\\Scenarios\\wet.tvn.\n");
    EXPECT_NE(scenario("dry").find("rotation=oats.rot"), std::string::npos);
    EXPECT_NE(row_of("cropping_system.rotation").find(";oats.rot;oats.rot!;"), std::string::npos)
        << row_of("cropping_system.rotation");
    EXPECT_TRUE(page.settings_discard_button.click());
}

TEST_F(Settings_page_test, tells_who_changed_what_of_the_template_and_leaves_alone_what_lies_outside) {
    const auto set_size = [&](const std::string& file, const char* size) {
        std::string text = drives.read(file);
        text.replace(text.find("size=12.5000000000"), 18, std::string("size=") + size);
        drives.write(file, text);
    };
    drives.write("projects/other/far.tvn", scenario("base"));
    set_size(path("dry"), "13");
    set_size(path("wet"), "200000");
    record->template_scenario = "Scenarios\\base.tvn";
    activate("C:\\projects\\other\\far.tvn");
    EXPECT_TRUE(page.settings_template_checkbox.check());
    EXPECT_EQ(row_of("field.size"), "12.5;12.5;13!;200000!;");
    const auto changed_by = [&](const char* key) {
        return page.settings_table.rows()->cell(find(key), Setting_rows::changers_column).text;
    };
    EXPECT_EQ(changed_by("field.size"), "dry, wet (each otherwise)");
    EXPECT_EQ(changed_by("field.number"), "");
    EXPECT_EQ(changed_by("other_program.mood"), "wet");
    EXPECT_EQ(page.settings_table.columns()[first].caption, "base (template)");
    EXPECT_EQ(page.settings_table.columns()[first + 1].caption, "far (outside the project)");
    EXPECT_FALSE(page.settings_table.editor(find("field.size"), first)) << "the template";
    EXPECT_FALSE(page.settings_table.editor(find("field.size"), first + 1)) << "what cannot be put aside";

    page.settings_table.click_cell(find("field.size"), first + 2);
    EXPECT_TRUE(page.settings_give_to_all_button.click());
    EXPECT_EQ(row_of("field.size"), "12.5;12.5;13!;13!;");
    EXPECT_EQ(changed_by("field.size"), "dry, wet (alike)");
    apply(1);
    EXPECT_NE(scenario("wet").find("size=13.0000000000"), std::string::npos);
    EXPECT_EQ(row_of("field.size"), "12.5;12.5;13!;13!;");
}

} // namespace
