#include "project_support.h"

#include <chrono>
#include <functional>
#include <thread>

namespace {

class Workspace : public Project_test {};

TEST_F(Workspace, what_is_visible_follows_the_type_and_the_state_of_the_project) {
    struct Case {
        Tilverra_project_type type;
        bool scenarios, GIS, tallies, optimization, buttons;
    };
    const Case cases[] = {
        {Tilverra_project_type::tilverra, true, false, false, false, true},
        {Tilverra_project_type::gis, false, true, true, false, false},
        {Tilverra_project_type::watershed, true, true, true, false, false},
        {Tilverra_project_type::grazing, true, false, false, true, false},
        {Tilverra_project_type::morka, true, false, false, false, false},
    };
    open();
    record->statistical_analysis = false;
    for (const Case& c : cases) {
        form.workspace()->requested_project_type = c.type;
        record->project_type = Tilverra_project_type::morka; // yields to the one that was asked for
        form.show_hide();
        EXPECT_EQ(record->project_type, c.type);
        EXPECT_EQ(form.scenarios.scenarios_tabsheet.visible(), c.scenarios);
        EXPECT_EQ(form.GIS.GIS_tabsheet.visible(), c.GIS);
        EXPECT_EQ(form.tallies.tabsheet_statistical_tally.visible(), c.tallies);
        EXPECT_EQ(form.optimization.tabsheet_optimization.visible(), c.optimization);
        EXPECT_EQ(form.options.show_GIS_button.visible(), c.buttons);
        EXPECT_EQ(form.options.show_optimization_model_button.visible(), c.buttons);
    }
}

TEST_F(Workspace, the_project_of_templates_has_no_scenarios_and_asks_for_a_template) {
    copy_data("irrigation_study.tvp", "projects/study/.TVS_project");
    open("C:\\projects\\study\\.TVS_project");
    EXPECT_FALSE(form.scenarios.scenarios_tabsheet.visible());
    EXPECT_EQ(form.project_pagecontrol.active_page(), &form.options.options_tabsheet);
    EXPECT_FALSE(form.options.panel_combinatorial_generation.visible());
    TLabel& caption = form.options.template_scenario_filebar.panel_caption;
    EXPECT_EQ(caption.text(), "Template scenario file (required)");
    // Under an ordinary name it is an ordinary project.
    desktop.expect_file_dialog("Save Tilverra project as", {"C:\\projects\\usual.tvp"});
    EXPECT_TRUE(parameter_form.save_as_button.click());
    EXPECT_TRUE(form.scenarios.scenarios_tabsheet.visible());
    EXPECT_EQ(caption.text(), "Template scenario");
}

TEST_F(Workspace, a_new_project_touches_nothing_before_an_operation_saves_it) {
    platform::change_directory("C:\\projects");
    open("C:\\projects\\fresh.tvp");
    EXPECT_TRUE(form.scenarios.lists.no_scenarios_note.visible());
    // It has no database of its own yet, in which files could be made.
    EXPECT_EQ(form.comparisons.comparison_output_generation_filebar.database_radiogroup.items(),
              (std::vector<std::string>{"Arbitrary", "Master"}));
    EXPECT_FALSE(there("projects/fresh.tvp") || there("projects/fresh") || there("projects/Scenarios"));
    EXPECT_TRUE(press(form.scenarios.lists.relist_scenarios_button));
    EXPECT_TRUE(there("projects/fresh.tvp") && there("projects/fresh/Scenarios"));
    EXPECT_FALSE(there("projects/Scenarios"));
}

TEST_F(Workspace, the_optimizer_starts_on_a_project_that_has_to_be_saved_first) {
    open("C:\\projects\\fresh.tvp");
    EXPECT_TRUE(press(form.options.show_optimization_model_button));
    EXPECT_TRUE(parameter_form.run_button.click());
    EXPECT_EQ(started(), "\"C:\\Suite\\Tilverra\\carbon_sequestration_optimizer.exe\"  "
                         "\"C:\\projects\\fresh.tvp\"  [1]\n");
    EXPECT_EQ(form.project_pagecontrol.active_page(), &form.optimization.tabsheet_optimization);
    EXPECT_TRUE(press(form.optimization.explore_optimization_button));
    EXPECT_NE(started().find("fresh\\Carbon_sequestration_optimization\""), std::string::npos);
}

TEST_F(Workspace, statistics_show_their_page_with_a_word_and_the_model_type_buttons_do_as_told) {
    open();
    record->statistical_analysis = false;
    form.scenarios.run.run_statistical_analysis_checkbox.Update();
    form.show_hide();
    desktop.expect_message("Select variable",
                           "Select the variables to be tallied and the statistics to be calculated on the "
                           "/Statistical tallies\\ page.");
    EXPECT_TRUE(press(form.scenarios.run.run_statistical_analysis_checkbox));
    EXPECT_TRUE(form.tallies.tabsheet_statistical_tally.visible());
    EXPECT_TRUE(press(form.options.show_optimization_model_button));
    EXPECT_EQ(form.project_pagecontrol.active_page(), &form.optimization.tabsheet_optimization);
    EXPECT_EQ(record->project_type, Tilverra_project_type::tilverra);
    EXPECT_EQ(parameter_form.run_button.text(), "Run optimization");
    EXPECT_TRUE(press(form.options.show_GIS_button));
    EXPECT_EQ(record->project_type, Tilverra_project_type::gis);
    EXPECT_FALSE(form.options.show_GIS_button.visible());
}

TEST_F(Workspace, a_map_is_run_when_both_its_table_and_the_template_are_there) {
    copy_data("fields.dbf", "projects/study/fields.dbf");
    open("C:\\projects\\study.tvp", Tilverra_project_type::gis);
    record->active_scenario = "Scenarios\\base.tvn";
    record->GIS_parameters.coverage_PAT_filename = "fields.dbf";
    form.Update();
    EXPECT_TRUE(form.GIS.GIS_PAT_fields_pagecontrol.visible());
    EXPECT_GT(form.GIS.GIS_soil_combo.items().size(), 1u);
    EXPECT_EQ(form.GIS.MUID_found_note.visible(),
              form.GIS.get_PAT_attributes().find("MUID", true) != nullptr);
    EXPECT_EQ(form.GIS.GIS_active_scenario_note.colour(), 0x00ff00);
    EXPECT_EQ(form.GIS.GIS_active_scenario_note.mark(), Mark::tick);
    EXPECT_EQ(parameter_form.run_button.text(), "Run GIS");
    EXPECT_TRUE(parameter_form.run_button.visible());
    EXPECT_TRUE(parameter_form.run_button.click());
    EXPECT_EQ(started(), "\"C:\\Suite\\Tilverra\\GIS_runner.exe\"  \"C:\\projects\\study.tvp\"  [1]\n");
    record->active_scenario = "Scenarios\\gone.tvn";
    form.show_hide();
    EXPECT_EQ(form.GIS.GIS_active_scenario_note.colour(), 0x0000ff);
    EXPECT_EQ(form.GIS.GIS_active_scenario_note.mark(), Mark::cross);
    EXPECT_FALSE(parameter_form.run_button.visible());
    record->GIS_parameters.coverage_PAT_filename = "gone.dbf";
    form.GIS.GIS_coverage_filebar_onchange();
    EXPECT_FALSE(form.GIS.GIS_PAT_fields_pagecontrol.visible());
    EXPECT_TRUE(form.GIS.GIS_soil_combo.items().empty());
}

TEST_F(Workspace, an_attribute_is_offered_while_its_check_is_on) {
    copy_data("fields.dbf", "projects/study/fields.dbf");
    open("C:\\projects\\study.tvp", Tilverra_project_type::gis);
    record->GIS_parameters.coverage_PAT_filename = "fields.dbf";
    record->GIS_parameters.uniform_soil_proile_mapped = false;
    form.Update();
    EXPECT_FALSE(form.GIS.GIS_soil_sand_combo.visible());
    EXPECT_TRUE(press(form.GIS.uniform_soil_profile_mapped_check));
    for (TControl* combo :
         {&form.GIS.GIS_soil_sand_combo, &form.GIS.GIS_soil_clay_combo, &form.GIS.GIS_soil_depth_combo})
        EXPECT_TRUE(combo->visible());
    EXPECT_TRUE(record->GIS_parameters.uniform_soil_proile_mapped);
}

TEST_F(Workspace, the_tally_lists_bind_the_words_of_the_line_chosen) {
    open("C:\\projects\\study.tvp", Tilverra_project_type::watershed);
    auto& lists = form.tallies.growing_season;
    EXPECT_EQ(lists.variables.count(), 90);
    EXPECT_EQ(form.tallies.annual.variables.count(), 42);
    EXPECT_TRUE(lists.choose_note.visible());
    lists.variables.bring_to_front();
    EXPECT_TRUE(lists.variables.select(7));
    EXPECT_FALSE(lists.choose_note.visible());
    EXPECT_EQ(lists.statistics.count(), 10);
    EXPECT_TRUE(lists.statistics.check(9));
    EXPECT_TRUE(lists.prob_5.check(0));
    EXPECT_EQ(record->growing_season_tally.statistics[7] & 0x200U, 0x200U);
    EXPECT_EQ(record->growing_season_tally.prob5[7] & 1U, 1U);
    auto& annual = form.tallies.annual;
    annual.variables.bring_to_front();
    EXPECT_TRUE(annual.variables.select(41));
    EXPECT_TRUE(annual.prob_10.check(1));
    EXPECT_EQ(record->annual_tally.prob10[41] & 2U, 2U);
    EXPECT_EQ(lists.variables.line(7).text, "<This variable is not talliable>");
    EXPECT_TRUE(lists.variables.line(7).faint);
    EXPECT_FALSE(annual.variables.line(41).faint);
}

TEST_F(Workspace, saving_under_another_name_moves_lists_and_active_scenario_and_leaves_the_page_in_front) {
    open();
    EXPECT_EQ(created().folder(), "C:\\projects\\study\\Scenarios");
    created().bring_to_front();
    EXPECT_TRUE(created().select(1));
    TTabSheet& page = form.comparisons.tabsheet_scenario_comparison;
    form.project_pagecontrol.set_active_page(page);
    desktop.expect_file_dialog("Save Tilverra project as", {"C:\\projects\\second.tvp"});
    EXPECT_TRUE(parameter_form.save_as_button.click());
    EXPECT_EQ(created().folder(), "C:\\projects\\second\\Scenarios");
    EXPECT_EQ(lines(created()), "base.tvn;dry.tvn;wet.tvn;");
    EXPECT_EQ(created().item_index(), 1);
    EXPECT_EQ(record->active_scenario, "C:\\projects\\second\\Scenarios\\dry.tvn");
    EXPECT_EQ(platform::current_directory(), "C:\\projects\\second");
    EXPECT_EQ(form.project_pagecontrol.active_page(), &page);
}

class Catalogue : public Project_test {};

TEST_F(Catalogue, a_new_scenario_is_made_active_copied_listed_and_opened) {
    open();
    record->active_scenario = "Scenarios\\base.tvn";
    TEdit& new_name = form.scenarios.edit.edit_new_scenario_name;
    desktop.expect_message("", "To create a new scenario, first enter the new scenario name");
    EXPECT_TRUE(press(form.scenarios.edit.scenario_create_button));
    EXPECT_TRUE(form.scenarios.edit.checkbox_copy_active_scenario.check());
    EXPECT_TRUE(new_name.type_text("wheat 1.5"));
    EXPECT_TRUE(new_name.key(key(Key_code::enter)));
    EXPECT_EQ(record->active_scenario, "C:\\projects\\study\\Scenarios\\wheat 1.5.tvn");
    EXPECT_EQ(drives.read("projects/study/Scenarios/wheat 1.5.tvn"),
              drives.read("projects/study/Scenarios/base.tvn"));
    EXPECT_EQ(lines(created()), "base.tvn;dry.tvn;wet.tvn;wheat 1.5.tvn;");
    EXPECT_EQ(started(), "\"C:\\Suite\\Tilverra\\scenario_editor.exe\"  "
                         "\"C:\\projects\\study\\Scenarios\\wheat 1.5.tvn\"  [1]\n");
    EXPECT_EQ(new_name.text(), "");
    // An existing file stays, and the line comes a second time until the list is read again.
    drives.write("projects/study/Scenarios/dry.tvn", "mine");
    EXPECT_TRUE(new_name.type_text("dry"));
    EXPECT_TRUE(press(form.scenarios.edit.scenario_create_button));
    EXPECT_EQ(drives.read("projects/study/Scenarios/dry.tvn"), "mine");
    EXPECT_EQ(lines(created()), "base.tvn;dry.tvn;dry.tvn;wet.tvn;wheat 1.5.tvn;");
    // Without the copy box there is no file before the scenario editor saves one.
    EXPECT_TRUE(form.scenarios.edit.checkbox_copy_active_scenario.check(false));
    EXPECT_TRUE(new_name.type_text("later"));
    EXPECT_TRUE(press(form.scenarios.edit.scenario_create_button));
    EXPECT_FALSE(there("projects/study/Scenarios/later.tvn"));
    EXPECT_TRUE(press(form.scenarios.lists.relist_scenarios_button));
    EXPECT_EQ(lines(created()), "base.tvn;dry.tvn;wet.tvn;wheat 1.5.tvn;");
}

TEST_F(Catalogue, deleting_takes_the_checked_scenarios_with_their_outputs_or_the_active_file_alone) {
    for (const char* name_of_one : {"base", "dry", "wet", "wet.2"}) {
        drives.write(std::string("projects/study/Scenarios/") + name_of_one + ".tvn", "four");
        drives.write(std::string("projects/study/Scenarios/") + name_of_one + "/Output/season.xls", "x");
    }
    drives.write("projects/study/Scenarios/.tvn", "x");
    drives.write("elsewhere/far.tvn", std::string(5000, 'x'));
    open();
    record->active_scenario = "Scenarios\\base.tvn";
    form.Update();
    EXPECT_EQ(lines(created()), ".tvn;base.tvn;dry.tvn;wet.2.tvn;wet.tvn;");
    TButton& delete_button = form.scenarios.edit.scenario_delete_button;
    const std::string base_goes = std::string(active_goes) + "Scenarios\\base.tvn, 4 B";
    expect_deletion(Modal_result::cancel, base_goes);
    EXPECT_TRUE(press(delete_button));
    EXPECT_EQ(created().count(), 5);

    created().check(0);
    created().check(3);
    expect_deletion(Modal_result::yes, "Scenarios: 2\nFiles of their outputs: 1\nSize of all: 6 B\n\n"
                                       ".tvn\nwet.2.tvn (outputs: 1)");
    std::string shown;
    desktop.on_process_messages = [&] { shown += form.scenarios.sim_run_progress_note.text() + ";"; };
    created().focus();
    EXPECT_TRUE(created().key(key(Key_code::del)));
    EXPECT_EQ(shown, "1 of 2, ;2 of 2, wet.2;");
    EXPECT_EQ(lines(created()), "base.tvn;dry.tvn;wet.tvn;");
    EXPECT_EQ(created().item_text(), "base.tvn");
    EXPECT_FALSE(there("projects/study/Scenarios/wet.2"));
    EXPECT_TRUE(there("projects/study/Scenarios/wet/Output/season.xls"));

    created().check(1);
    expect_deletion(Modal_result::no, "Scenarios: 1\nFiles of their outputs: 1\nSize of all: 5 B\n\n"
                                      "dry.tvn (outputs: 1)");
    EXPECT_TRUE(press(delete_button));
    EXPECT_FALSE(there("projects/study/Scenarios/dry.tvn") || there("projects/study/Scenarios/dry"));
    EXPECT_TRUE(std::filesystem::exists(user.home(".local/share/Trash/files/dry.tvn")) ||
                std::filesystem::exists(drives.user_data() + "/Trash/files/dry.tvn"));

    const auto light = [this] { return form.scenarios.active_scenario_editbar.panel_caption.colour(); };
    const auto light_before = light();
    expect_deletion(Modal_result::yes, base_goes);
    EXPECT_TRUE(press(delete_button));
    EXPECT_FALSE(there("projects/study/Scenarios/base.tvn"));
    EXPECT_TRUE(there("projects/study/Scenarios/base/Output/season.xls"));
    EXPECT_EQ(record->active_scenario, "Scenarios\\base.tvn");
    EXPECT_NE(light(), light_before);

    // A file of another place is asked for once more.
    record->active_scenario = "C:\\elsewhere\\far.tvn";
    for (const Modal_result answer : {Modal_result::no, Modal_result::yes}) {
        EXPECT_TRUE(there("elsewhere/far.tvn"));
        expect_deletion(Modal_result::yes, std::string(active_goes) + "C:\\elsewhere\\far.tvn, 4.9 KB");
        desktop.expect_message("Scenario outside the project",
                               "This file lies outside the folder of this project. Delete it all the same?\n"
                               "C:\\elsewhere\\far.tvn",
                               answer);
        EXPECT_TRUE(press(delete_button));
    }
    EXPECT_FALSE(there("elsewhere/far.tvn"));
}

TEST_F(Catalogue, a_user_who_closes_the_window_stops_a_deletion) {
    open();
    form.scenarios.lists.senerios_select_all_button_onclick();
    drives.write("projects/study/Scenarios/base.tvn", "x");
    for (const char* file : {"dry", "wet"})
        std::filesystem::resize_file(drives.host(std::string("projects/study/Scenarios/") + file + ".tvn"),
                                     1);
    expect_deletion(Modal_result::yes, "Scenarios: 3\nFiles of their outputs: 0\nSize of all: 3 B\n\n"
                                       "base.tvn\ndry.tvn\nwet.tvn");
    desktop.on_process_messages = [this] { desktop.closing = desktop.messages_processed() >= 2; };
    desktop.expect_message("Deletion stopped", "The deletion was stopped. Scenarios deleted until then: 1");
    EXPECT_TRUE(press(form.scenarios.edit.scenario_delete_button));
    EXPECT_EQ(lines(created()), "dry.tvn*;wet.tvn*;");
}

TEST_F(Catalogue, files_of_version_3_become_scenarios_in_the_order_of_the_dialog) {
    copy_data("version3.sim", "old/a/maize.sim");
    copy_data("version3_unix_ends.sim", "old/b/maize.sim");
    drives.write("old/b/other.sim", "no scenario at all");
    open();
    desktop.expect_file_dialog("Select version 3 simulation control file to import to this project.",
                               {"C:\\old\\a\\maize.sim", "C:\\old\\b\\other.sim"});
    EXPECT_TRUE(press(form.scenarios.edit.scenario_open_SIM));
    EXPECT_EQ(lines(created()), "base.tvn;dry.tvn;maize.tvn;other.tvn;wet.tvn;");
    EXPECT_NE(drives.read("projects/study/Scenarios/maize.tvn").find("[simulation]"), std::string::npos);
    EXPECT_NE(drives.read("projects/study/Scenarios/other.tvn").find("[simulation]"), std::string::npos);
}

TEST_F(Catalogue, a_line_of_either_list_points_the_active_scenario_into_the_created_ones) {
    drives.write("projects/study/Generated_scenarios/00001.tvn", "");
    open();
    EXPECT_TRUE(form.scenarios.lists.tabsheet_generated_scenarios.visible());
    created().bring_to_front();
    EXPECT_TRUE(created().select(1));
    EXPECT_EQ(record->active_scenario, "C:\\projects\\study\\Scenarios\\dry.tvn");
    EXPECT_EQ(form.scenarios.active_scenario_editbar.filename_edit.text(), record->active_scenario);
    form.scenarios.run.senerios_run_button.bring_to_front();
    EXPECT_TRUE(form.scenarios.run.senerios_run_button.usable());
    TFileCheckListBox& generated = form.scenarios.lists.generated_scenarios_filelistbox;
    EXPECT_TRUE(form.scenarios.lists.pagecontrol_scenarios.select_page(
        form.scenarios.lists.tabsheet_generated_scenarios));
    EXPECT_EQ(form.scenarios.lists.current_scenarios_listbox, &generated);
    EXPECT_TRUE(generated.select(0));
    EXPECT_EQ(record->active_scenario, "C:\\projects\\study\\Scenarios\\00001.tvn");
    EXPECT_FALSE(form.scenarios.run.senerios_run_button.usable());
}

TEST_F(Catalogue, a_typed_name_is_completed_and_a_scenario_of_elsewhere_is_opened_where_it_is) {
    copy_data("base.tvn", "elsewhere/far.tvn");
    open();
    record->active_scenario = "Scenarios\\base.tvn";
    form.Update();
    TAutoFileEditBar& bar = form.scenarios.active_scenario_editbar;
    bar.filename_edit.bring_to_front();
    bar.filename_edit.focus();
    bar.filename_edit.select_all();
    EXPECT_TRUE(bar.filename_edit.type_text("new one"));
    form.scenarios.edit.scenario_open_active_button.focus();
    EXPECT_EQ(record->active_scenario, "C:\\projects\\study\\Scenarios\\new one.tvn");
    desktop.expect_file_dialog("Simulation scenario", {"C:\\elsewhere\\far.tvn"});
    EXPECT_TRUE(press(form.scenarios.edit.scenario_open_other));
    EXPECT_EQ(desktop.last_file_dialog()->initial_folder, "C:\\projects\\study\\Scenarios");
    EXPECT_EQ(record->active_scenario, "C:\\elsewhere\\far.tvn");
    EXPECT_NE(started().find("scenario_editor.exe\"  \"C:\\elsewhere\\far.tvn\""), std::string::npos);
}

TEST_F(Catalogue, exploring_shows_the_folder_of_the_page_in_front) {
    open();
    const auto explored = [this] {
        form.scenarios.lists.explore_scenarios_buttonClick();
        const std::string command = started();
        const std::string start = "\"C:\\Suite\\TVS_explorer.exe\"  \"C:\\projects\\study";
        EXPECT_EQ(command.substr(0, start.size()), start);
        return command.substr(start.size(), command.rfind('"') - start.size());
    };
    EXPECT_EQ(explored(), "\\Scenarios");
    form.project_pagecontrol.set_active_page(form.options.options_tabsheet);
    EXPECT_EQ(explored(), "");
    form.options.show_optimization_model_buttonClick();
    EXPECT_EQ(explored(), "\\Carbon_sequestration_optimization");
    desktop.expect_menu("Project database");
    EXPECT_TRUE(press(form.scenarios.edit.parameter_database_button));
    EXPECT_NE(started().find("\"C:\\projects\\study\\Database\""), std::string::npos);
}

// The line under the cursor is that of the active scenario, whatever has been done; where that is not in the
// list, no line is highlighted.
TEST_F(Catalogue, the_cursor_stands_on_the_active_scenario_always) {
    drives.write("projects/study/Generated_scenarios/00001.tvn", "");
    copy_data("base.tvn", "elsewhere/wet.tvn");
    desktop.closing = false;
    open();
    const auto activate = [this](const char* file) {
        record->active_scenario = file;
        form.Update();
    };
    const auto under_cursor = [this] { return created().item_text(); };
    TLabel& outside = form.scenarios.active_scenario_outside_note;
    activate("Scenarios\\DRY.tvn"); // at the start; case does not count
    EXPECT_EQ(under_cursor(), "dry.tvn");
    EXPECT_FALSE(outside.visible());
    activate("Scenarios\\dry.tvn");

    form.scenarios.lists.senerios_select_all_button_onclick();
    desktop.expect_message("Sequential batch run",
                           "Multiple scenarios were selected, these will need to be run sequentially. the "
                           "project editor will be suspended during the runs. Continue?",
                           Modal_result::ok);
    form.scenarios.run.senerios_run_button_onclick();
    EXPECT_EQ(under_cursor(), "dry.tvn");
    drives.write("projects/study/Scenarios/dry/Output/season.xeb");
    form.scenarios.lists.senerios_select_all_button_onclick();
    desktop.expect_message("No scenarios selected to compare",
                           "To compare scenarios, you must select scenarios to compare (click check boxes)");
    form.scenarios.analysis.button_compare_project_scenariosClick();
    EXPECT_EQ(under_cursor(), "dry.tvn");

    form.scenarios.edit.edit_new_scenario_name.set_text("cold");
    form.scenarios.edit.scenario_create_button_onclick();
    EXPECT_EQ(lines(created()), "base.tvn;cold.tvn;dry.tvn;wet.tvn;");
    EXPECT_EQ(under_cursor(), "cold.tvn");

    TAutoFileEditBar& bar = form.scenarios.active_scenario_editbar;
    bar.bring_to_front();
    const auto light = [&bar] { return bar.panel_caption.colour(); };
    desktop.expect_file_dialog("", {"C:\\projects\\study\\Scenarios\\base.tvn"});
    EXPECT_TRUE(press(bar.filename_button));
    EXPECT_EQ(under_cursor(), "base.tvn");
    const auto there_light = light();
    desktop.expect_file_dialog("", {"C:\\elsewhere\\wet.tvn"});
    EXPECT_TRUE(press(bar.filename_button));
    EXPECT_EQ(under_cursor(), "");
    EXPECT_TRUE(outside.visible());
    EXPECT_EQ(light(), there_light);

    // A file that is gone is not green, and no line of the list is it.
    activate("Scenarios\\base.tvn");
    std::filesystem::remove(drives.host("projects/study/Scenarios/base.tvn"));
    EXPECT_TRUE(press(form.scenarios.lists.relist_scenarios_button));
    EXPECT_EQ(under_cursor(), "");
    EXPECT_NE(light(), there_light);

    // A line of the generated list keeps the cursor that was put on it.
    TFileCheckListBox& generated = form.scenarios.lists.generated_scenarios_filelistbox;
    generated.bring_to_front();
    EXPECT_TRUE(generated.select(0));
    EXPECT_EQ(generated.item_index(), 0);
    EXPECT_EQ(record->active_scenario, "C:\\projects\\study\\Scenarios\\00001.tvn");
    EXPECT_EQ(under_cursor(), "");
}

// Whoever writes them: the scenario editor, another editor, a colleague.
TEST_F(Catalogue, lists_lights_and_the_run_button_follow_the_files) {
    open();
    record->active_scenario = "C:\\elsewhere\\later.tvn";
    std::filesystem::create_directories(drives.host("elsewhere"));
    form.Update();
    TButton& run = form.scenarios.run.senerios_run_button;
    EXPECT_FALSE(run.enabled());
    const auto light = [this] { return form.scenarios.active_scenario_editbar.panel_caption.colour(); };
    const auto light_before = light();
    drives.write("elsewhere/later.tvn", "x");
    drives.write("projects/study/Scenarios/cold.tvn", "x");
    desktop.descriptors_ready();
    EXPECT_FALSE(run.enabled()) << "not for each change at once";
    desktop.advance(500);
    EXPECT_TRUE(run.enabled());
    EXPECT_NE(light(), light_before);
    EXPECT_EQ(lines(created()), "base.tvn;cold.tvn;dry.tvn;wet.tvn;");
}

class Runs : public Project_test {
protected:
    static constexpr const char* model = "\"C:\\Suite\\Tilverra\\tilverra_5.exe\" ";
    static std::string run_of(const std::string& scenario) {
        return std::string(model) + " \"C:\\projects\\study.tvp\" \"C:\\projects\\study\\Scenarios\\" +
               scenario + "\"  [3]\n";
    }
    void open_with_base() {
        open();
        record->active_scenario = "Scenarios\\base.tvn";
        record->cropping_system_model = "C:\\Suite\\Tilverra\\tilverra_5.exe";
        form.Update();
        form.scenarios.run.senerios_run_button.bring_to_front();
    }
    void expect_batch(Modal_result answer) {
        desktop.expect_message(
            "Sequential batch run",
            "Multiple scenarios were selected, these will need to be run sequentially. the "
            "project editor will be suspended during the runs. Continue?",
            answer);
    }
};

TEST_F(Runs, without_checks_the_active_scenario_runs_as_its_record_names_it) {
    open_with_base();
    EXPECT_TRUE(form.scenarios.run.senerios_run_button.click());
    EXPECT_EQ(started(), std::string(model) + " \"C:\\projects\\study.tvp\" \"Scenarios\\base.tvn\"  [3]\n");
    EXPECT_EQ(platform::current_directory(), "C:\\projects\\study");
    EXPECT_FALSE(form.scenarios.sim_run_progressbar.visible());
    record->report_format = "C:\\Formats\\all runs.fmt";
    EXPECT_TRUE(form.scenarios.run.format_groupbox.select(1));
    EXPECT_TRUE(form.scenarios.run.senerios_run_button.click());
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
    platform::Process_launcher host;
    const platform::Launcher_guard real(host);
    TLabel& note = form.scenarios.run.run_end_note;
    for (const auto& [script, told] : cases) {
        const std::string model_file = "Suite/Tilverra/tilverra_5.exe";
        drives.write(model_file, std::string("#!/bin/sh\nPATH=/bin:/usr/bin\n") + script + "\n");
        std::filesystem::permissions(drives.host(model_file), std::filesystem::perms::owner_all);
        EXPECT_TRUE(form.scenarios.run.senerios_run_button.click());
        EXPECT_EQ(note.text(), "base is running.");
        for (int i = 0; i < 1000 && note.text() == "base is running."; ++i) {
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
            desktop.advance(500);
        }
        EXPECT_EQ(note.text(), told);
    }
    EXPECT_EQ(lines(created()), "base.tvn;dry.tvn;new.tvn;wet.tvn;");
}

TEST_F(Runs, one_checked_scenario_runs_beside_the_editor_and_more_run_one_after_the_other) {
    open_with_base();
    created().check(2);
    EXPECT_TRUE(form.scenarios.run.senerios_run_button.click());
    EXPECT_EQ(started(), run_of("wet.tvn"));
    EXPECT_EQ(lines(created()), "base.tvn;dry.tvn;wet.tvn;");
    created().check(0);
    created().check(2);
    expect_batch(Modal_result::cancel);
    EXPECT_TRUE(form.scenarios.run.senerios_run_button.click());
    EXPECT_EQ(started(), "");
    EXPECT_EQ(lines(created()), "base.tvn*;dry.tvn;wet.tvn*;");
    expect_batch(Modal_result::ok);
    EXPECT_TRUE(form.scenarios.run.senerios_run_button.click());
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
    form.scenarios.run.senerios_run_button.bring_to_front();
    EXPECT_TRUE(form.scenarios.run.senerios_run_button.click());
    EXPECT_EQ(lines(created()), "base.tvn;dry.tvn;wet.tvn;");
    EXPECT_NE(parameter_form.programs.command_history_memo.text().find(
                  "The program could not be started. Looked for: C:\\Suite\\Tilverra\\tilverra_5.exe\n"),
              std::string::npos);
    launcher.result = platform::result_started;
    started();

    form.scenarios.lists.senerios_select_all_button_onclick();
    std::filesystem::permissions(drives.host("projects/study.tvp"), std::filesystem::perms::owner_read);
    record->STATSGO_path = "C:\\soils"; // something to save
    expect_batch(Modal_result::ok);
    desktop.expect_message(
        "Unable to save", "Unable to save to parameter file (check that the file is not marked as read only)",
        Modal_result::abort);
    EXPECT_TRUE(form.scenarios.run.senerios_run_button.click());
    EXPECT_EQ(started(), "");
    EXPECT_EQ(lines(created()), "base.tvn*;dry.tvn*;wet.tvn*;");
    std::filesystem::permissions(drives.host("projects/study.tvp"), std::filesystem::perms::owner_all);

    // Who closes the window is asked, and the marks of what has not run stay.
    const auto close_and_answer = [this](Modal_result answer) {
        expect_batch(Modal_result::ok);
        desktop.closing = true;
        desktop.expect_message("Stop the runs",
                               "Stop after the scenario that runs now? The others keep their check marks.",
                               answer);
        EXPECT_TRUE(form.scenarios.run.senerios_run_button.click());
    };
    close_and_answer(Modal_result::yes);
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
    desktop.expect_message("", "This scenario does not have any output.  First run the simulation");
    EXPECT_TRUE(press(form.scenarios.run.view_output_button));
    EXPECT_EQ(started(), "");
    drives.write("projects/study/Scenarios/base/Output/season.xls", "x");
    EXPECT_TRUE(press(form.scenarios.run.view_output_button));
    const std::string command = started();
    EXPECT_EQ(
        command.substr(0, command.rfind(" \"") + 1),
        "\"C:\\Suite\\Tilverra\\output_manager_advanced.exe\" \"Scenarios\\base.tvn\" "
        "\"C:\\projects\\study\\Scenarios\\base\\Output\" \"C:\\projects\\study\\Scenarios\\base\\CPF\" ");
}

class Comparisons : public Runs {
protected:
    static constexpr const char* title = "Active scenario has no outputs to compare";
    void give_output(const std::string& scenario, std::initializer_list<const char*> files) {
        for (const char* file : files)
            drives.write("projects/study/Scenarios/" + scenario + "/Output/" + file, "x");
    }
};

TEST_F(Comparisons, the_checked_scenarios_are_compared_with_the_active_one_file_by_file) {
    copy_data("base.tvn", "projects/study/Scenarios/wheat 1.5.tvn");
    give_output("base", {"daily.xeb", "season.xeb"});
    give_output("wheat 1.5", {"season.xeb", "annual.xeb"});
    open_with_base();
    form.scenarios.lists.senerios_select_all_button_onclick();
    EXPECT_TRUE(press(form.scenarios.analysis.button_compare_project_scenarios));
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
}

TEST_F(Comparisons, what_cannot_be_compared_is_told) {
    open_with_base();
    record->active_scenario = "Scenarios\\gone.tvn";
    desktop.expect_message("Active scenario not found",
                           "The active scenario has not been selected or does not exist");
    EXPECT_TRUE(press(form.scenarios.analysis.button_compare_project_scenarios));
    record->active_scenario = "Scenarios\\base.tvn";
    const std::string none = "To compare scenarios, you must select scenarios to compare (click check boxes)";
    desktop.expect_message("No scenarios selected to compare", none);
    EXPECT_TRUE(press(form.scenarios.analysis.button_compare_project_scenarios));

    // Without output of the active scenario the question is asked once for all lines.
    form.scenarios.lists.senerios_select_all_button_onclick();
    desktop.expect_message(
        title, "The active scenario does not appear to have been run. Run the active scenario now?",
        Modal_result::yes);
    desktop.expect_message(
        title, "It is not possible to perform the comparison because there is no output folder for "
               "the active scenario.");
    desktop.expect_message("No scenarios selected to compare", none);
    EXPECT_TRUE(press(form.scenarios.analysis.button_compare_project_scenarios));
    EXPECT_NE(started().find("tilverra_5.exe"), std::string::npos);
    EXPECT_EQ(lines(created()), "base.tvn;dry.tvn*;wet.tvn*;");

    // The other one has not been run: no word but the last.
    give_output("base", {"season.xeb"});
    desktop.expect_file_dialog("Simulation scenario", {"C:\\projects\\study\\Scenarios\\dry.tvn"});
    EXPECT_TRUE(press(form.scenarios.analysis.button_compare_other_scenario));
    EXPECT_EQ(started(), "");
    EXPECT_EQ(form.project_pagecontrol.active_page(), &form.comparisons.tabsheet_scenario_comparison);
}

} // namespace
