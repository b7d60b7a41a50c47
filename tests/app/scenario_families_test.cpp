#include "app/scenario_table_form.h"
#include "project_support.h"

#include <sstream>

namespace {

TEST_F(Project_test, a_reset_of_generated_scenarios_stays_in_their_folder_and_passes_over_the_actives_name) {
    const char* const untouched = "[H2O]\n1=0.5\n";
    write_scenario("00001", untouched);
    write_scenario("00002", "[H2O]\nfrom the source=1\n");
    for (const char* number : {"00001", "00002"})
        drives.write(std::string("projects/study/Generated_scenarios/") + number + ".tvn", untouched);
    open_with("Scenarios\\00002.tvn");
    form.scenarios.reset.reset_checkboxes[3]->bring_to_front();
    EXPECT_TRUE(form.scenarios.reset.reset_checkboxes[3]->check());
    show_generated();
    form.scenarios.lists.senerios_select_all_button_onclick();
    EXPECT_TRUE(press(form.scenarios.reset.reset_scenario_button));
    EXPECT_NE(drives.read("projects/study/Generated_scenarios/00001.tvn").find("from the source=1\r\n"),
              std::string::npos);
    EXPECT_EQ(drives.read("projects/study/Generated_scenarios/00002.tvn"), untouched);
    EXPECT_EQ(scenario("00001"), untouched);
    EXPECT_EQ(lines(generated()), "00001.tvn*;00002.tvn*;");
    EXPECT_FALSE(form.scenarios.sim_run_progressbar.visible());
}

class Generation : public Project_test {
protected:
    Generation() {
        for (const char* file : {"clay.sil", "loam.sil"})
            drives.write(std::string("projects/study/Database/Soil/") + file);
        drives.write("projects/study/Generated_scenarios/00009.tvn");
    }
    void
    generate(const char* title = "Scenarios have been generated",
             const char* text =
                 "The generated scenarios are found under /Simulation scenarios\\ [Generated scenarios]") {
        open();
        record->template_scenario = "Scenarios\\base.tvn";
        form.Update();
        desktop.expect_message(question, "Scenarios that will be generated: 2\n"
                                         "Scenarios that will be replaced: 0");
        desktop.expect_message(title, text);
        EXPECT_TRUE(press(form.options.combinatorial_scenario_generation_button));
        EXPECT_TRUE(desktop.script_done());
        EXPECT_EQ(form.scenarios.lists.pagecontrol_scenarios.active_page(),
                  &form.scenarios.lists.tabsheet_generated_scenarios);
        EXPECT_EQ(form.project_pagecontrol.active_page(), &form.scenarios.scenarios_tabsheet);
    }
    static constexpr const char* question = "Combinatorial scenario generation";
};

TEST_F(Generation, the_list_grows_while_it_works_and_is_listed_anew_afterwards) {
    std::vector<std::string> seen;
    desktop.on_process_messages = [&] { seen.push_back(lines(generated())); };
    generate();
    EXPECT_EQ(seen, (std::vector<std::string>{"00009.tvn;00001.tvn;", "00009.tvn;00001.tvn;00002.tvn;"}));
    EXPECT_EQ(lines(generated()), "00001.tvn;00002.tvn;00009.tvn;");
}

TEST_F(Generation, says_before_it_starts_what_it_will_make_and_replace_and_leaves_all_alone_when_refused) {
    drives.write("projects/study/Generated_scenarios/00002.tvn", "old");
    open();
    record->template_scenario = "Scenarios\\base.tvn";
    desktop.expect_message(question,
                           "Scenarios that will be generated: 2\nScenarios that will be replaced: 1",
                           Modal_result::cancel);
    EXPECT_TRUE(press(form.options.combinatorial_scenario_generation_button));
    EXPECT_EQ(drives.read("projects/study/Generated_scenarios/00002.tvn"), "old");
    EXPECT_FALSE(there("projects/study/Generated_scenarios/00001.tvn"));
}

TEST_F(Generation, a_user_who_closes_the_window_stops_it) {
    desktop.closing = true;
    generate("Generation stopped", "The generation was stopped. Scenarios generated until then: 0");
    EXPECT_EQ(lines(generated()), "00009.tvn;");
}

// Cells between "|".
class Bar_reader : public Table_reader {
public:
    Text_table read(std::string_view text) override {
        Text_table table;
        std::istringstream lines{std::string(text)};
        for (std::string line; std::getline(lines, line);) {
            table.rows.push_back({table.rows.size() + 1, {}});
            std::istringstream cells(line);
            for (std::string cell; std::getline(cells, cell, '|');)
                table.rows.back().cells.push_back(cell);
        }
        return table;
    }
};

class Table_of_scenarios : public Generation {
protected:
    Table_of_scenarios() {
        form.options.set_table_reader(&reader);
        drives.write("projects/study/Generated_scenarios/dry.tvn", "old");
        drives.write("design.csv", "name|scenario.description|H2O.1\ndry|Dry|0.1\nwet||0.3\n");
        open();
        record->template_scenario = "Scenarios\\base.tvn";
    }
    // What the user does in the dialog.
    void in_dialog(const std::function<void(Tscenario_table_form&)>& work) {
        desktop.expect_modal("scenario_table_form",
                             [work](TForm& asks) { work(static_cast<Tscenario_table_form&>(asks)); });
        EXPECT_TRUE(press(form.options.table_scenario_generation_button));
        EXPECT_TRUE(desktop.script_done());
    }
    void choose(Tscenario_table_form& asks) {
        desktop.expect_file_dialog("Table of scenarios", {"C:\\design.csv"});
        EXPECT_TRUE(asks.choose_table_button.click());
    }
    static std::string findings(const Tscenario_table_form& asks) {
        std::string text;
        const Table_rows& rows = *asks.findings_table.rows();
        for (int row = 0; row < rows.count(); ++row)
            for (int column = 0; column < asks.findings_table.column_count(); ++column)
                text += rows.cell(row, column).text + (column < 3 ? "|" : "\n");
        return text;
    }
    bool is_there(const char* scenario) const {
        return there(std::string("projects/study/Generated_scenarios/") + scenario + ".tvn");
    }
    Bar_reader reader;
};

TEST_F(Table_of_scenarios, is_checked_before_it_is_written_and_what_it_replaces_can_be_brought_back) {
    desktop.set_clipboard_text("name|H2O.1|moon.phase\ndry|much|\nd/ry|0.1|\n");
    in_dialog([&](Tscenario_table_form& asks) {
        EXPECT_FALSE(asks.write_scenarios_button.enabled());
        EXPECT_TRUE(asks.findings_table.key({Key_code::character, "v", false, true}));
        EXPECT_FALSE(asks.write_scenarios_button.enabled());
        EXPECT_EQ(asks.table_verdict_label.text(),
                  "Scenarios in the table: 2; there already, to be replaced: 1; faults: 3. Nothing is "
                  "written as long as there are faults.");
        EXPECT_EQ(findings(asks), "fault|1|moon.phase|No section and key of that name are known.\n"
                                  "fault|2|H2O.1|The value must be a number such as 12 or 0.25.\n"
                                  "fault|3|name|No scenario can have this name.\n"
                                  "replaced|||The scenario dry.tvn is there already.\n");
        choose(asks);
        EXPECT_EQ(asks.table_verdict_label.text(),
                  "Scenarios in the table: 2; there already, to be replaced: 1");
        EXPECT_EQ(findings(asks), "replaced|||The scenario dry.tvn is there already.\n");
        EXPECT_TRUE(asks.write_scenarios_button.click());
    });
    EXPECT_EQ(parameter_form.status_line.text(), "Scenarios generated: 2");
    EXPECT_EQ(lines(generated()), "00009.tvn;dry.tvn;wet.tvn;");
    EXPECT_TRUE(form.menu.bar->choose("Edit|Undo the last change to scenarios"));
    EXPECT_EQ(drives.read("projects/study/Generated_scenarios/dry.tvn"), "old");
    EXPECT_FALSE(is_there("wet"));
}

TEST_F(Table_of_scenarios, is_looked_at_again_when_the_folder_has_changed_and_can_be_stopped) {
    in_dialog([&](Tscenario_table_form& asks) {
        choose(asks);
        drives.write("projects/study/Generated_scenarios/wet.tvn", "another program's");
        desktop.expect_message(
            "Scenarios from a table",
            "The folder of generated scenarios has changed meanwhile. Look once more at what is found.");
        EXPECT_TRUE(asks.write_scenarios_button.click());
        EXPECT_EQ(asks.findings_table.count(), 2);
        desktop.closing = true;
        desktop.expect_message("Generation stopped",
                               "The generation was stopped. Scenarios generated until then: 0");
        EXPECT_TRUE(asks.write_scenarios_button.click());
    });
    EXPECT_EQ(drives.read("projects/study/Generated_scenarios/wet.tvn"), "another program's");
}

TEST_F(Project_test, the_number_of_scenarios_of_an_optimization_follows_the_bar_that_is_left) {
    open();
    Optimization_page& page = form.optimization;
    const auto shown = [&] { return page.carbon_seq_scenario_count_output.text(); };
    record->carbon_sequestration.max_plots = 1;
    record->carbon_sequestration.min_stocking_rate = 100;
    record->carbon_sequestration.max_stocking_rate = 500;
    record->carbon_sequestration.step_stocking_rate = 100;
    form.Update();
    EXPECT_EQ(shown(), "5");
    EXPECT_TRUE(press(form.options.show_optimization_model_button));
    retype(page.opt_C_seq_step_herdsize_editbar.edit_field, "200");
    EXPECT_EQ(shown(), "5");
    parameter_form.leave_focus();
    EXPECT_EQ(shown(), "3");
}

} // namespace
