#include "project_support.h"
#include "toolkit/screen_memory.h"

#include <map>

namespace {

class Scenario_list_test : public Project_test {
protected:
    Scenario_list_test() {
        for (const char* scenario : {"plot 10", "plot 2"})
            copy_data("base.tvn", std::string("projects/study/Scenarios/") + scenario + ".tvn");
        write_scenario("plot 2", "[scenario]\ndescription=Barley after peas\n");
        open();
        desktop.advance(10);
    }
    Scenario_list_table& table() { return form.scenarios.lists.created; }
    std::string rows(int column = 0) {
        std::string text;
        for (int row = 0; row < table().table.count(); ++row)
            text += table().table.rows()->cell(row, column).text + ";";
        return text;
    }
    void filter(const std::string& text) {
        table().filter_edit.select_all();
        table().filter_edit.type_text(text);
        desktop.advance(10);
    }
};

TEST_F(Scenario_list_test, shows_what_is_known_of_scenarios_as_people_count_filtered_with_the_ticks_kept) {
    EXPECT_EQ(rows(), "base.tvn;dry.tvn;plot 2.tvn;plot 10.tvn;wet.tvn;");
    EXPECT_EQ(rows(1), "never run;never run;never run;never run;never run;");
    EXPECT_NE(rows(2).find("Barley after peas;"), std::string::npos);
    EXPECT_TRUE(table().table.click_header(0));
    EXPECT_EQ(rows(), "wet.tvn;plot 10.tvn;plot 2.tvn;dry.tvn;base.tvn;");
    EXPECT_TRUE(table().table.toggle_tick(4));
    EXPECT_TRUE(created().checked(0)) << "a tick of the table is a mark of the list";

    filter("plot");
    EXPECT_EQ(rows(), "plot 10.tvn;plot 2.tvn;");
    table().tick_all_shown();
    desktop.advance(10);
    EXPECT_EQ(table().count_label.text(), "2 / 5 shown, 3 ticked, 1 of these not shown");
    EXPECT_EQ(created().checked_count(), 3);
    filter("*peas");
    EXPECT_EQ(rows(), "plot 2.tvn;");
    filter("PEAS 2");
    EXPECT_EQ(rows(), "plot 2.tvn;");
    filter("");
    EXPECT_TRUE(table().state_combo.select(9)); // ticked
    EXPECT_EQ(rows(), "plot 10.tvn;plot 2.tvn;base.tvn;");
}

TEST_F(Scenario_list_test, the_row_under_the_cursor_is_the_active_scenario_and_has_a_menu) {
    EXPECT_TRUE(table().table.select_row(2));
    EXPECT_EQ(record->active_scenario.get_name(true), "plot 2.tvn");
    const std::string layout = table().table.layout();
    table().table.resize_column(2, 50);
    table().table.click_header(1);
    EXPECT_NE(table().table.layout(), layout);
    table().table.set_layout(layout);
    EXPECT_EQ(table().table.layout(), layout);
    EXPECT_EQ(table().table.cursor_row(), 2);

    desktop.expect_menu("Copy name");
    EXPECT_TRUE(table().table.open_menu(2, 0));
    EXPECT_EQ(desktop.clipboard_text(), "plot 2.tvn");
    started();
    drives.write("Suite/Tilverra/scenario_editor.exe");
    desktop.expect_menu("Open in the scenario editor");
    EXPECT_TRUE(table().table.open_menu(2, 0));
    EXPECT_NE(started().find("\"C:\\projects\\study\\Scenarios\\plot 2.tvn\""), std::string::npos);
}

TEST_F(Scenario_list_test, a_scenario_is_renamed_and_duplicated_from_its_menu) {
    EXPECT_TRUE(table().table.select_row(1));
    const auto names_it = [](const char* new_name) {
        return [new_name](TForm& asks) {
            auto& edit = static_cast<TEdit&>(*asks.find("new_scenario_name_edit"));
            retype(edit, new_name);
            edit.key({Key_code::enter, ""});
        };
    };
    desktop.expect_menu("Rename...");
    desktop.expect_modal("new_name_form_check_used", names_it("arid"));
    EXPECT_TRUE(table().table.open_menu(1, 0));
    EXPECT_TRUE(there("projects/study/Scenarios/arid.tvn"));
    EXPECT_FALSE(there("projects/study/Scenarios/dry.tvn"));
    EXPECT_EQ(record->active_scenario.get_name(true), "arid.tvn");
    EXPECT_EQ(rows(), "arid.tvn;base.tvn;plot 2.tvn;plot 10.tvn;wet.tvn;");
    desktop.expect_menu("Duplicate...");
    desktop.expect_modal("new_name_form_check_used", names_it("arid 2"));
    EXPECT_TRUE(table().table.open_menu(0, 0));
    EXPECT_TRUE(there("projects/study/Scenarios/arid 2.tvn"));
}

TEST_F(Scenario_list_test, keys_on_a_line_do_what_its_menu_offers) {
    const auto press_key = [&](Key_code code, bool control = false, bool alt = false) {
        EXPECT_TRUE(table().table.key({code, "", false, control, alt}));
    };
    const auto letter = [&](const char* text, bool shift = false) {
        EXPECT_TRUE(table().table.key({Key_code::character, text, shift, true}));
    };
    const auto cancels = [](TForm& asks) {
        EXPECT_TRUE(asks.find("ok_button") && asks.find("cancel_button"));
        static_cast<TEdit&>(*asks.find("new_scenario_name_edit")).key({Key_code::escape, ""});
    };
    EXPECT_TRUE(table().table.select_row(2));
    started();
    press_key(Key_code::enter);
    EXPECT_NE(started().find("scenario_editor.exe\"  \"C:\\projects\\study\\Scenarios\\plot 2.tvn\""),
              std::string::npos);
    desktop.expect_modal("new_name_form_check_used", cancels);
    press_key(Key_code::f2);
    desktop.expect_modal("new_name_form_check_used", cancels);
    letter("d");
    letter("c", true);
    EXPECT_EQ(desktop.clipboard_text(), "plot 2.tvn");
    press_key(Key_code::enter, false, true);
    EXPECT_EQ(form.project_pagecontrol.active_page(), &form.settings.settings_tabsheet);
    EXPECT_EQ(form.settings.settings_table.columns().back().caption, "plot 2");

    // It goes alone, whatever is ticked.
    created().bring_to_front();
    letter("t");
    desktop.expect_message("Delete files",
                           "Delete the selected files completely ([No] will move file to recycle bin)\n\n"
                           "Scenarios: 1\nFiles of their outputs: 0\nSize of all: 41 B\n\nplot 2.tvn",
                           Modal_result::yes);
    press_key(Key_code::del, true);
    EXPECT_FALSE(there("projects/study/Scenarios/plot 2.tvn"));
    EXPECT_EQ(created().checked_count(), 4);
}

TEST_F(Scenario_list_test, the_line_is_compared_with_what_is_ticked_or_else_selected_in_either_list) {
    TTable& lines = form.scenarios.lists.generated.table;
    for (const char* number : {"00001", "00002", "00003"}) {
        const std::string scenario = std::string("projects/study/Generated_scenarios/") + number;
        copy_data("base.tvn", scenario + ".tvn");
        if (number != std::string("00003"))
            drives.write(scenario + "/Output/season.xeb");
    }
    form.Update();
    lines.bring_to_front();
    const Key compares{Key_code::character, "m", false, true};
    EXPECT_TRUE(lines.select_row(0));
    EXPECT_TRUE(lines.key(compares)) << "says that nothing is ticked";
    EXPECT_EQ(started().find("compare.exe"), std::string::npos);
    for (const int row : {1, 2})
        EXPECT_TRUE(lines.toggle_tick(row));
    EXPECT_TRUE(lines.key(compares));
    const std::string commands = started();
    const std::size_t first = commands.find("compare.exe");
    ASSERT_NE(first, std::string::npos);
    EXPECT_EQ(commands.find("compare.exe", first + 1), std::string::npos);
    EXPECT_NE(commands.find("00001 vs 00002"), std::string::npos);
    EXPECT_EQ(form.scenarios.lists.generated.list.checked_count(), 2);
    EXPECT_EQ(form.project_pagecontrol.active_page(), &form.comparisons.tabsheet_scenario_comparison);
}

TEST_F(Scenario_list_test, each_list_remembers_its_columns_and_its_order) {
    struct Memory : Screen_memory {
        std::string recall(const std::string& name) const override {
            return texts.contains(name) ? texts.at(name) : "";
        }
        void remember(const std::string& name, const std::string& text) override { texts[name] = text; }
        std::map<std::string, std::string> texts;
    } memory;
    current_screen_memory = &memory;
    table().table.click_header(3);
    table().table.resize_column(0, 40);
    table().table.show_column(2, false);
    EXPECT_TRUE(table().table.move_column(4, 1));
    const auto layouts_of_new_form = [] {
        const TTilverra_project_form other;
        return std::pair(other.scenarios.lists.created.table.layout(),
                         other.scenarios.lists.generated.table.layout());
    };
    const std::string usual = layouts_of_new_form().second;
    EXPECT_EQ(layouts_of_new_form().first, table().table.layout());
    EXPECT_NE(table().table.layout(), usual);
    for (const char* damaged :
         {"99 up name 3", "-7 up", "x", "0 up name wide state 5 hidden", "0 up moon 5"}) {
        memory.texts["created_scenarios_filelistbox_table"] = damaged;
        EXPECT_EQ(layouts_of_new_form().first, usual) << damaged;
    }
    current_screen_memory = nullptr;
}

TEST_F(Scenario_list_test, what_other_programs_make_or_change_appears_by_itself) {
    copy_data("base.tvn", "projects/study/Scenarios/new.tvn");
    write_scenario("dry", "[scenario]\ndescription=Changed elsewhere\n");
    desktop.descriptors_ready();
    desktop.advance(300);
    desktop.advance(1000);
    desktop.advance(10);
    EXPECT_EQ(rows(), "base.tvn;dry.tvn;new.tvn;plot 2.tvn;plot 10.tvn;wet.tvn;");
    EXPECT_NE(rows(2).find("Changed elsewhere;"), std::string::npos);
    table().facts_changed();
    EXPECT_NE(rows(2).find("Changed elsewhere;"), std::string::npos) << "stays until it is read again";
}

} // namespace
