#include "project_support.h"

#include <chrono>
#include <functional>
#include <thread>

namespace {

class Runs : public Project_test {
protected:
    static constexpr const char* model = "\"C:\\Suite\\Tilverra\\tilverra_5.exe\" ";
    static std::string run_of(const std::string& scenario) {
        return std::string(model) + " \"C:\\projects\\study.tvp\" \"C:\\projects\\study\\Scenarios\\" +
               scenario + "\"  [3]\n";
    }
    void open_with_base() {
        open_with("Scenarios\\base.tvn");
        record->cropping_system_model = "C:\\Suite\\Tilverra\\tilverra_5.exe";
    }
};

TEST_F(Runs, without_checks_the_active_scenario_runs_as_its_record_names_it) {
    open_with_base();
    EXPECT_TRUE(press_run());
    EXPECT_EQ(started(), std::string(model) + " \"C:\\projects\\study.tvp\" \"Scenarios\\base.tvn\"  [3]\n");
    EXPECT_EQ(platform::current_directory(), "C:\\projects\\study");
    EXPECT_FALSE(form.scenarios.sim_run_progressbar.visible());
    record->report_format = "C:\\Formats\\all runs.fmt";
    EXPECT_TRUE(form.scenarios.run.format_groupbox.select(1));
    EXPECT_TRUE(press_run());
    EXPECT_EQ(started(), std::string(model) + " \"C:\\Formats\\all runs.fmt\"  \"C:\\projects\\study.tvp\" "
                                              "\"Scenarios\\base.tvn\"  [3]\n");
}

TEST_F(Runs, the_end_of_a_run_beside_the_editor_is_noticed_and_the_lists_follow) {
    const std::pair<const char*, const char*> cases[] = {
        {"mkdir -p Scenarios/base/Output; echo x > Scenarios/base/Output/season.xeb; echo > "
         "Scenarios/new.tvn",
         "base has been run."},
        {"exit 0", "base has been run and has left no output."},
        {"exit 3", "base has failed. Exit code: 3"},
    };
    open_with_base();
    copy_data("version3.sim", "old/base.sim");
    platform::Process_launcher host;
    const platform::Launcher_guard real(host);
    TLabel& note = form.scenarios.run.run_end_note;
    for (const auto& [script, told] : cases) {
        const std::string model_file = "Suite/Tilverra/tilverra_5.exe";
        drives.write(model_file, std::string("#!/bin/sh\nPATH=/bin:/usr/bin\n") + script + "\n");
        std::filesystem::permissions(drives.host(model_file), std::filesystem::perms::owner_all);
        EXPECT_TRUE(press_run());
        EXPECT_EQ(note.text(), "base is running.");
        EXPECT_TRUE(press_run());
        EXPECT_FALSE(form.runs.may_change({"C:\\projects\\study\\Scenarios\\Base.tvn"}));
        parameter_form.status_line.set_text("");
        desktop.expect_file_dialog("Select version 3 simulation control file to import to this project.",
                                   {"C:\\old\\base.sim"});
        EXPECT_TRUE(press(form.scenarios.edit.scenario_open_SIM));
        EXPECT_EQ(form.parameter_file_form().status_line.text(),
                  "Scenarios of these are being run: base. Stop the runs first, or wait for their end.");
        for (int i = 0; i < 1000 && note.text() == "base is running."; ++i) {
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
            desktop.advance(500);
        }
        EXPECT_EQ(note.text(), told);
    }
    EXPECT_EQ(lines(created()), "base.tvn;dry.tvn;new.tvn;wet.tvn;");
    created().check(0);
    created().check(1);
    expect_batch(Modal_result::ok);
    EXPECT_TRUE(press_run());
    EXPECT_EQ(note.text(), "The runs have ended: 0 of 2 done, 2 failed. base has failed. Exit code: 3 dry "
                           "has failed. Exit code: 3");
}

TEST_F(Runs, one_checked_scenario_runs_beside_the_editor_and_more_run_one_after_the_other) {
    open_with_base();
    created().check(2);
    EXPECT_TRUE(press_run());
    EXPECT_EQ(started(), run_of("wet.tvn"));
    EXPECT_EQ(lines(created()), "base.tvn;dry.tvn;wet.tvn;");
    created().check(0);
    created().check(2);
    expect_batch(Modal_result::cancel);
    EXPECT_TRUE(press_run());
    EXPECT_EQ(started(), "");
    EXPECT_EQ(lines(created()), "base.tvn*;dry.tvn;wet.tvn*;");
    expect_batch(Modal_result::ok);
    EXPECT_TRUE(press_run());
    EXPECT_EQ(started(), run_of("base.tvn") + run_of("wet.tvn"));
    EXPECT_EQ(lines(created()), "base.tvn;dry.tvn;wet.tvn;");
    EXPECT_EQ(form.scenarios.sim_run_progressbar.maximum(), 3);
    EXPECT_EQ(desktop.minimised_count(), 1);
    EXPECT_FALSE(desktop.minimised());
}

TEST_F(Runs, a_model_that_is_missing_stops_no_batch_but_a_save_given_up_and_a_closed_window_do) {
    open_with_base();
    launcher.result = platform::result_file_not_found;
    EXPECT_TRUE(press(form.scenarios.lists.scenerios_select_all_button));
    EXPECT_EQ(lines(created()), "base.tvn*;dry.tvn*;wet.tvn*;");
    expect_batch(Modal_result::ok);
    EXPECT_TRUE(press_run());
    EXPECT_EQ(lines(created()), "base.tvn;dry.tvn;wet.tvn;");
    EXPECT_NE(parameter_form.programs.command_history_memo.text().find(
                  "The program could not be started. Looked for: C:\\Suite\\Tilverra\\tilverra_5.exe\n"),
              std::string::npos);
    launcher.result = platform::result_started;
    started();

    form.scenarios.lists.senerios_select_all_button_onclick();
    allow_saves(false);
    expect_batch(Modal_result::ok);
    expect_failed_save();
    EXPECT_TRUE(press_run());
    EXPECT_EQ(started(), "");
    EXPECT_EQ(lines(created()), "base.tvn*;dry.tvn*;wet.tvn*;");
    allow_saves(true);

    // Who closes the window is asked, and the marks of what has not run stay.
    const auto close_and_answer = [this](Modal_result answer) {
        expect_batch(Modal_result::ok);
        desktop.closing = true;
        desktop.expect_message("Stop the runs",
                               "Stop after the scenario that runs now? The others keep their check marks.",
                               answer);
        EXPECT_TRUE(press_run());
    };
    close_and_answer(Modal_result::yes);
    EXPECT_FALSE(desktop.closing) << "the marks would go with the window";
    EXPECT_EQ(started(), run_of("base.tvn"));
    EXPECT_EQ(lines(created()), "base.tvn;dry.tvn*;wet.tvn*;");
    std::string shown;
    desktop.on_process_messages = [&] { shown += form.scenarios.sim_run_progress_note.text() + ";"; };
    close_and_answer(Modal_result::no);
    EXPECT_EQ(started(), run_of("dry.tvn") + run_of("wet.tvn"));
    EXPECT_EQ(lines(created()), "base.tvn;dry.tvn;wet.tvn;");
    EXPECT_EQ(shown, ";1 of 2, dry;2 of 2, wet;");
    EXPECT_FALSE(form.scenarios.sim_run_progress_note.visible());
}

TEST_F(Runs, there_is_something_to_run_when_a_line_is_checked_or_the_active_scenario_is_there) {
    open_with_base();
    TButton& run = form.scenarios.run.senerios_run_button;
    created().check(2);
    for (const char* active : {"Scenarios\\gone.tvn", "Scenarios\\base.tvn", "<Currently not selected>"}) {
        record->active_scenario = active;
        for (const auto& event : std::initializer_list<std::function<void()>>{
                 [this] { form.show_hide(); }, [this] { form.Update(); },
                 [this] { form.scenarios.active_scenario_editbar.on_after_change(); }}) {
            event();
            EXPECT_TRUE(run.visible() && run.enabled()) << active;
        }
    }
    form.scenarios.lists.scenerios_select_none_button_onclick();
    EXPECT_FALSE(run.enabled());
}

TEST_F(Runs, output_is_shown_by_the_format_of_the_scenario_once_there_is_some) {
    open_with_base();
    expect_no_output();
    EXPECT_TRUE(press(form.scenarios.run.view_output_button));
    EXPECT_EQ(started(), "");
    write_output("base", "season.xls");
    EXPECT_TRUE(press(form.scenarios.run.view_output_button));
    const std::string command = started();
    EXPECT_EQ(
        command.substr(0, command.rfind(" \"") + 1),
        "\"C:\\Suite\\Tilverra\\output_manager_advanced.exe\" \"Scenarios\\base.tvn\" "
        "\"C:\\projects\\study\\Scenarios\\base\\Output\" \"C:\\projects\\study\\Scenarios\\base\\CPF\" ");
}

using Comparisons = Runs;

TEST_F(Comparisons, the_checked_scenarios_are_compared_with_the_active_one_file_by_file) {
    copy_data("base.tvn", "projects/study/Scenarios/wheat 1.5.tvn");
    for (const char* file : {"daily.xeb", "season.xeb"})
        write_output("base", file);
    for (const char* file : {"season.xeb", "annual.xeb"})
        write_output("wheat 1.5", file);
    open_with_base();
    form.scenarios.lists.senerios_select_all_button_onclick();
    EXPECT_TRUE(press_compare());
    EXPECT_EQ(started(),
              "\"C:\\Suite\\XEB\\compare.exe\" \"C:\\projects\\study\\scenario_comparison\\base vs wheat "
              "1.5\\Output\\season.xeb\" \"C:\\projects\\study\\Scenarios\\base\\Output\\season.xeb\" "
              "\"C:\\projects\\study\\Scenarios\\wheat 1.5\\Output\\season.xeb\"  [1]\n");
    EXPECT_EQ(lines(created()), "base.tvn;dry.tvn;wet.tvn;wheat 1.5.tvn;");
    EXPECT_EQ(form.project_pagecontrol.active_page(), &form.comparisons.tabsheet_scenario_comparison);
    EXPECT_EQ(lines(form.comparisons.comparisons_checklistbox), "base vs wheat 1.5;");

    EXPECT_TRUE(form.comparisons.comparisons_checklistbox.check(0));
    EXPECT_TRUE(press(form.comparisons.comparison_button_view_output));
    EXPECT_EQ(started(), ""); // nothing was written
    drives.write("projects/study/scenario_comparison/base vs wheat 1.5/Output/season.xeb", "x");
    EXPECT_TRUE(press(form.comparisons.comparison_button_view_output));
    const std::string folder = "\"C:\\projects\\study\\scenario_comparison\\base vs wheat 1.5";
    EXPECT_EQ(started(), "\"C:\\Suite\\Tilverra\\output_manager_advanced.exe\" " + folder + ".tvn\" " +
                             folder + "\\Output\" " + folder +
                             "\\CPF\" \"\\Simulation\\Database\\Output\\default.tvs_output_options\"  [1]\n");
    for (const char* other : {"base vs wheat 1.5", "wet vs base"})
        copy_data("fields.dbf",
                  "projects/study/scenario_comparison/" + std::string(other) + "/Output/yields.dbf");
    form.comparisons.list_again();
    form.comparisons.comparisons_checklistbox.set_all_checked(true);
    desktop.expect_menu("wet vs base\\Output\\yields.dbf");
    EXPECT_TRUE(press(form.comparisons.comparison_view_tables_button));
    ASSERT_EQ(form.tables.windows().size(), 1U);
}

TEST_F(Comparisons, what_cannot_be_compared_is_told) {
    open_with_base();
    record->active_scenario = "Scenarios\\gone.tvn";
    expect_no_active();
    EXPECT_TRUE(press_compare());
    record->active_scenario = "Scenarios\\base.tvn";
    expect_nothing_compared();
    EXPECT_TRUE(press_compare());

    // Without output of the active scenario the question is asked once for all lines.
    const char* const title = "Active scenario has no outputs to compare";
    form.scenarios.lists.senerios_select_all_button_onclick();
    desktop.expect_message(
        title, "The active scenario does not appear to have been run. Run the active scenario now?",
        Modal_result::yes);
    desktop.expect_message(title, "It is not possible to perform the comparison because there is no output "
                                  "folder for the active scenario.");
    expect_nothing_compared();
    EXPECT_TRUE(press_compare());
    EXPECT_NE(started().find("tilverra_5.exe"), std::string::npos);
    EXPECT_EQ(lines(created()), "base.tvn;dry.tvn*;wet.tvn*;");

    // The other one has not been run: no word but the last.
    write_output("base");
    desktop.expect_file_dialog("Simulation scenario", {"C:\\projects\\study\\Scenarios\\dry.tvn"});
    EXPECT_TRUE(press(form.scenarios.analysis.button_compare_other_scenario));
    EXPECT_EQ(started(), "");
    EXPECT_EQ(form.project_pagecontrol.active_page(), &form.comparisons.tabsheet_scenario_comparison);
}

} // namespace
