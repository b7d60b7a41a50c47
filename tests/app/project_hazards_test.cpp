#include "operations/scenario_catalogue.h"
#include "project_support.h"

#include <functional>

using Hazards = Project_test;

TEST_F(Hazards, a_new_scenario_lies_in_its_folder_under_its_whole_name_whatever_is_typed) {
    // What is typed, and the file that is made; none where the message says that a name is wanted.
    const std::pair<std::string, std::string> cases[] = {
        {"wheat 1.5", "wheat 1.5.tvn"},
        {"..\\ma\"i*ze", "..maize.tvn"},
        {"C:\\x/y", "Cxy.tvn"},
        {"\xD0\xBF 7", " 7.tvn"},
        {"\xD0\xBF", ""},
        {"..", ""},
        {" . ", ""},
    };
    open();
    record->active_scenario = "";
    for (const std::string& refused : {std::string("x."), std::string(210, 'x')}) {
        retype(form.scenarios.edit.edit_new_scenario_name, refused);
        desktop.expect_message("Scenario not created",
                               refused == "x." ? "No scenario can have this name." : "The name is too long.",
                               Modal_result::ok);
        EXPECT_TRUE(press(form.scenarios.edit.scenario_create_button));
        EXPECT_EQ(record->active_scenario, "");
    }
    TEdit& name_edit = form.scenarios.edit.edit_new_scenario_name;
    for (const char* active : {"Scenarios\\base.tvn", "<Currently not selected>", "", "Scenarios\\base"}) {
        for (const auto& [typed, made] : cases) {
            SCOPED_TRACE(std::string(active) + " and " + typed);
            record->active_scenario = active;
            retype(name_edit, typed);
            if (made.empty())
                expect_no_name();
            EXPECT_TRUE(press(form.scenarios.edit.scenario_create_button));
            EXPECT_EQ(record->active_scenario,
                      made.empty() ? active : "C:\\projects\\study\\Scenarios\\" + made);
        }
    }
    EXPECT_EQ(new_scenario_name("..\\..\\evil"), "evil");
    EXPECT_EQ(new_scenario_name("x\\.."), "");
}

TEST_F(Hazards, deleting_a_scenario_whose_name_is_of_points_takes_no_folder_with_it) {
    for (const char* file : {"..tvn", "...tvn", ". .tvn", " .tvn", ".tvn"})
        drives.write(std::string("projects/study/Scenarios/") + file, "x");
    write_output("dry");
    open();
    for (int i = 0; i < created().count() && created().line(i).text != "base.tvn"; ++i)
        created().set_checked(i, true);
    EXPECT_EQ(created().checked_count(), 5);
    expect_deletion(Modal_result::yes, "Scenarios: 5\nFiles of their outputs: 0\nSize of all: 5 B\n\n"
                                       " .tvn\n. .tvn\n...tvn\n..tvn\n.tvn");
    EXPECT_TRUE(press_delete());
    EXPECT_EQ(lines(created()), "base.tvn;dry.tvn;wet.tvn;");
    EXPECT_TRUE(there("projects/study/Scenarios/dry/Output/season.xeb"));
}

TEST_F(Hazards, without_an_active_scenario_nothing_is_made_and_what_needs_one_says_so) {
    for (const char* active : {"<Currently not selected>", ""}) {
        SCOPED_TRACE(active);
        open_with(active);
        EXPECT_FALSE(form.scenarios.run.senerios_run_button.usable());
        EXPECT_EQ(form.GIS.GIS_active_scenario_note.mark(), Mark::cross);
        form.scenarios.active_scenario_editbar_set_to_scenarios_dir();
        expect_no_output();
        EXPECT_TRUE(press(form.scenarios.run.view_output_button));
        expect_no_active();
        EXPECT_TRUE(press_compare());
        expect_deletion(Modal_result::yes, nothing_goes);
        EXPECT_TRUE(press_delete());
        EXPECT_EQ(record->active_scenario, active);
        EXPECT_EQ(lines(created()), "base.tvn;dry.tvn;wet.tvn;");
        EXPECT_FALSE(there("projects/study/Output") || there("projects/study/Scenarios/Output"));
    }
    // Nor does the outputs' folder of one that is gone go, in whatever way it is asked for.
    write_output("gone");
    activate("Scenarios\\gone.tvn");
    created().focus();
    expect_deletion(Modal_result::yes, nothing_goes);
    EXPECT_TRUE(created().key(key(Key_code::del)));
    EXPECT_TRUE(there("projects/study/Scenarios/gone/Output/season.xeb"));
    // What is checked runs all the same.
    EXPECT_TRUE(press(form.scenarios.lists.scenerios_select_all_button));
    form.scenarios.run.senerios_run_button.bring_to_front();
    EXPECT_TRUE(form.scenarios.run.senerios_run_button.usable());
}

TEST_F(Hazards, a_generated_scenario_is_run_by_its_check_mark) {
    copy_data("base.tvn", "projects/study/Generated_scenarios/00001.tvn");
    open();
    show_generated();
    EXPECT_TRUE(generated().select(0) && generated().check(0));
    EXPECT_TRUE(press_run());
    EXPECT_NE(started().find("\"C:\\projects\\study\\Generated_scenarios\\00001.tvn\""), std::string::npos);
}

TEST_F(Hazards, no_operation_on_a_project_that_was_not_saved_makes_anything_in_the_current_folder) {
    const std::pair<const char*, std::function<void()>> cases[] = {
        {"create",
         [this] {
             form.scenarios.edit.edit_new_scenario_name.set_text("first");
             form.scenarios.edit.scenario_create_button_onclick();
         }},
        {"open", [this] { form.scenarios.edit.scenario_open_active_button_onclick(); }},
        {"open other",
         [this] {
             desktop.expect_file_dialog("Simulation scenario", {"C:\\projects\\study\\Scenarios\\dry.tvn"});
             form.scenarios.edit.scenario_open_other_onclick();
         }},
        {"import",
         [this] {
             copy_data("version3.sim", "old/maize.sim");
             desktop.expect_file_dialog("Select version 3 simulation control file to import to this project.",
                                        {"C:\\old\\maize.sim"});
             form.scenarios.edit.scenario_open_SIM_onclick();
         }},
        {"delete",
         [this] {
             expect_deletion(Modal_result::yes, nothing_goes);
             form.scenarios.edit.scenario_delete_button_onclick();
         }},
        {"explore", [this] { form.scenarios.lists.explore_scenarios_buttonClick(); }},
        {"relist", [this] { form.scenarios.lists.relist_scenarios_button_onclick(); }},
        {"cursor", [this] { form.scenarios.lists.created_scenarios_listbox_onchange(); }},
        {"run", [this] { form.scenarios.run.senerios_run_button_onclick(); }},
        {"view comparison", [this] { form.comparisons.comparison_button_view_outputClick(); }},
        {"project database", [this] { form.scenarios.edit.open_project_database(); }},
        {"view results", [this] { form.optimization.opt_C_seq_view_results_buttonClick(); }},
        {"reset", [this] { form.scenarios.reset.reset_scenario_button_onclick(); }},
    };
    std::filesystem::create_directories(drives.host("elsewhere"));
    for (const auto& [what, operation] : cases) {
        SCOPED_TRACE(what);
        platform::change_directory("C:\\elsewhere");
        open(std::string("C:\\projects\\fresh ") + what + ".tvp");
        record->active_scenario = "Scenarios\\default.tvn";
        started();
        operation();
        EXPECT_TRUE(std::filesystem::is_empty(drives.host("elsewhere")));
        EXPECT_EQ(started().find("\"\""), std::string::npos);
    }
}

TEST_F(Hazards, where_the_folder_of_scenarios_cannot_be_made_nothing_is_lost_and_nothing_is_made) {
    std::filesystem::remove_all(drives.host("projects/study"));
    drives.write("projects/study", "not a folder");
    open_with("Scenarios\\base.tvn");
    form.scenarios.edit.edit_new_scenario_name.set_text("first");
    form.scenarios.edit.checkbox_copy_active_scenario.set_checked(true);
    form.scenarios.edit.scenario_create_button_onclick();
    form.scenarios.lists.relist_scenarios_button_onclick();
    form.scenarios.lists.explore_scenarios_buttonClick();
    expect_deletion(Modal_result::yes, nothing_goes);
    form.scenarios.edit.scenario_delete_button_onclick();
    form.scenarios.run.senerios_run_button_onclick();
    EXPECT_EQ(drives.read("projects/study"), "not a folder");
    EXPECT_FALSE(there("projects/Scenarios"));
}

TEST_F(Hazards, tables_that_a_run_left_meanwhile_are_seen_when_their_page_is_shown) {
    drives.write("projects/study/GIS/first.dbf");
    open("C:\\projects\\study.tvp", Tilverra_project_type::gis);
    EXPECT_EQ(lines(form.GIS.GIS_tally_shellistview), "first.dbf;");
    drives.write("projects/study/GIS/second.dbf");
    form.GIS.GIS_tally_shellistview.bring_to_front();
    EXPECT_EQ(lines(form.GIS.GIS_tally_shellistview), "first.dbf;second.dbf;");
}

TEST_F(Hazards, comparisons_stop_without_a_word_when_the_window_is_closed_and_not_for_an_earlier_save) {
    write_output("base");
    write_output("wet");
    open_with("Scenarios\\base.tvn");
    form.scenarios.lists.senerios_select_all_button_onclick();
    desktop.closing = true;
    form.scenarios.analysis.button_compare_project_scenariosClick();
    EXPECT_EQ(started(), "");
    EXPECT_EQ(lines(created()), "base.tvn;dry.tvn*;wet.tvn*;");
    EXPECT_FALSE(form.scenarios.sim_run_progressbar.visible());
    desktop.closing = false;

    allow_saves(false);
    expect_failed_save();
    form.scenarios.edit.scenario_open_active_button_onclick();
    expect_failed_save(); // once, at the first of them that has something to compare
    form.scenarios.analysis.button_compare_project_scenariosClick();
    EXPECT_EQ(started(), "");
    EXPECT_EQ(lines(created()), "base.tvn;dry.tvn;wet.tvn*;");
    allow_saves(true);
    form.scenarios.analysis.button_compare_project_scenariosClick();
    EXPECT_NE(started().find("base vs wet"), std::string::npos);
    EXPECT_EQ(lines(created()), "base.tvn;dry.tvn;wet.tvn;");
    expect_nothing_compared();
    form.scenarios.analysis.button_compare_project_scenariosClick();
}
