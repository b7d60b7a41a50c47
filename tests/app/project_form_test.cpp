#include "project_support.h"

using Workspace = Project_test;

TEST_F(Workspace, what_is_visible_follows_the_type_and_the_state_of_the_project) {
    // Scenarios, GIS, tallies, optimization, and the two buttons to the models.
    const std::pair<Tilverra_project_type, std::vector<bool>> cases[] = {
        {Tilverra_project_type::tilverra, {true, false, false, false, true, true}},
        {Tilverra_project_type::gis, {false, true, true, false, false, false}},
        {Tilverra_project_type::watershed, {true, true, true, false, false, false}},
        {Tilverra_project_type::grazing, {true, false, false, true, false, false}},
        {Tilverra_project_type::morka, {true, false, false, false, false, false}},
    };
    const TControl* const parts[] = {&form.scenarios.scenarios_tabsheet,
                                     &form.GIS.GIS_tabsheet,
                                     &form.tallies.tabsheet_statistical_tally,
                                     &form.optimization.tabsheet_optimization,
                                     &form.options.show_GIS_button,
                                     &form.options.show_optimization_model_button};
    open();
    record->statistical_analysis = false;
    for (const auto& [type, visible] : cases) {
        form.workspace()->requested_project_type = type;
        record->project_type = Tilverra_project_type::morka; // yields to the one that was asked for
        form.show_hide();
        EXPECT_EQ(record->project_type, type);
        for (std::size_t part = 0; part < visible.size(); ++part)
            EXPECT_EQ(parts[part]->visible(), visible[part])
                << parts[part]->name() << " of type " << static_cast<int>(type);
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

TEST_F(Workspace,
       a_map_is_run_when_both_its_table_and_the_template_are_there_and_attributes_by_their_checks) {
    copy_data("fields.dbf", "projects/study/fields.dbf");
    open("C:\\projects\\study.tvp", Tilverra_project_type::gis);
    record->active_scenario = "Scenarios\\base.tvn";
    record->GIS_parameters.coverage_PAT_filename = "fields.dbf";
    record->GIS_parameters.uniform_soil_proile_mapped = false;
    form.Update();
    EXPECT_FALSE(form.GIS.GIS_soil_sand_combo.visible());
    EXPECT_TRUE(press(form.GIS.uniform_soil_profile_mapped_check));
    for (TControl* combo :
         {&form.GIS.GIS_soil_sand_combo, &form.GIS.GIS_soil_clay_combo, &form.GIS.GIS_soil_depth_combo})
        EXPECT_TRUE(combo->visible());
    EXPECT_TRUE(record->GIS_parameters.uniform_soil_proile_mapped);
    EXPECT_TRUE(form.GIS.GIS_PAT_fields_pagecontrol.visible());
    EXPECT_GT(form.GIS.GIS_soil_combo.items().size(), 1u);
    EXPECT_EQ(form.GIS.MUID_found_note.visible(),
              form.GIS.get_PAT_attributes().find("MUID", true) != nullptr);
    EXPECT_EQ(form.GIS.GIS_active_scenario_note.mark(), Mark::tick);
    EXPECT_EQ(form.GIS.GIS_active_scenario_note.colour(), 0x00ff00);
    EXPECT_EQ(parameter_form.run_button.text(), "Run GIS");
    EXPECT_TRUE(parameter_form.run_button.visible());
    EXPECT_TRUE(parameter_form.run_button.click());
    EXPECT_EQ(started(), "\"C:\\Suite\\Tilverra\\GIS_runner.exe\"  \"C:\\projects\\study.tvp\"  [1]\n");
    EXPECT_TRUE(press(form.GIS.explore_GIS_button));
    EXPECT_NE(started().find("\"C:\\projects\\study\\GIS\""), std::string::npos);
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
