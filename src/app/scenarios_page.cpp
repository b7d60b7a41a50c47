#include "app/scenarios_page.h"

#include <cstring>

Scenarios_page::Scenarios_page(TPageControl& pages)
    : scenarios_tabsheet(pages.add<TTabSheet>("scenarios_tabsheet", "Simulation scenarios")),
      active_scenario_editbar(scenarios_tabsheet.add<TAutoFileEditBar>("active_scenario_editbar")),
      left(fill(fill(scenarios_tabsheet.add<TPanel>("panel_halves", Layout::row)).add<TPanel>("panel_left"))),
      right(left.parent()->add<TPanel>("panel_right")),
      pagecontrol_scenarios(fill(left.add<TPageControl>("pagecontrol_scenarios"))),
      tabsheet_created_scenarios(pagecontrol_scenarios.add<TTabSheet>("tabsheet_created_scenarios",
                                                                      "Scenarios created for this project")),
      tabsheet_generated_scenarios(
          pagecontrol_scenarios.add<TTabSheet>("tabsheet_generated_scenarios", "Generated scenarios")),
      created_scenarios_filelistbox(
          fill(tabsheet_created_scenarios.add<TFileCheckListBox>("created_scenarios_filelistbox"))),
      generated_scenarios_filelistbox(
          fill(tabsheet_generated_scenarios.add<TFileCheckListBox>("generated_scenarios_filelistbox"))),
      scenerios_select_all_button(add_button(left.add<TPanel>("panel_select", Layout::grid, 2),
                                             "scenerios_select_all_button", "Select all scenarios")),
      scenerios_select_none_button(
          add_button(*scenerios_select_all_button.parent(), "scenerios_select_none_button", "Deselect all")),
      relist_scenarios_button(add_button(*scenerios_select_all_button.parent(), "relist_scenarios_button",
                                         "Relist any added scenarios",
                                         "Read the folders of scenarios again.")),
      explore_scenarios_button(add_button(*scenerios_select_all_button.parent(), "explore_scenarios_button",
                                          "Explore scenarios",
                                          "Show the folder of the page in front in the suite's explorer.")),
      edit_run_pagecontrol(fill(right.add<TPageControl>("edit_run_pagecontrol"))),
      scenario_edit_tabsheet(edit_run_pagecontrol.add<TTabSheet>("scenario_edit_tabsheet", "Edit")),
      scenario_run_tabsheet(edit_run_pagecontrol.add<TTabSheet>("scenario_run_tabsheet", "Run")),
      scenario_reset_tabsheet(edit_run_pagecontrol.add<TTabSheet>("scenario_reset_tabsheet", "Reset")),
      scenario_analysis_tabsheet(
          edit_run_pagecontrol.add<TTabSheet>("scenario_analysis_tabsheet", "Analysis")),
      scenario_create_button(add_button(add_row(scenario_edit_tabsheet, "panel_new_scenario"),
                                        "scenario_create_button", "<- New",
                                        "Create a scenario of this name, and edit it.")),
      edit_new_scenario_name(fill(scenario_create_button.parent()->add<TEdit>("edit_new_scenario_name"))),
      checkbox_copy_active_scenario(scenario_edit_tabsheet.add<TCheckBox>(
          "checkbox_copy_active_scenario", "The new scenario is a copy of the active scenario")),
      scenario_open_active_button(add_button(scenario_edit_tabsheet, "scenario_open_active_button",
                                             "Open active scenario", "Edit the active scenario.")),
      scenario_open_other(
          add_button(scenario_edit_tabsheet, "scenario_open_other", "Open another project scenario",
                     "Select a scenario of any project, make it the active one and edit it where it is.")),
      scenario_open_SIM(
          add_button(scenario_edit_tabsheet, "scenario_open_SIM", "Import version 3 (.SIM) file",
                     "Make scenarios of files of version 3. A scenario of the same name is replaced.")),
      scenario_delete_button(add_button(
          scenario_edit_tabsheet, "scenario_delete_button", "Delete scenario(s)",
          "Delete the checked scenarios with their outputs or, without check marks, the file of the "
          "active scenario alone.")),
      parameter_database_button(add_button(scenario_edit_tabsheet, "parameter_database_button",
                                           "Parameter database manager",
                                           "Show the parameter files of the suite or of this project.")),
      button_launch_TVS_suite(add_button(scenario_edit_tabsheet, "button_launch_TVS_suite", "Suite launcher",
                                         "Start the launcher of the suite.")),
      senerios_run_button(
          add_button(scenario_run_tabsheet, "senerios_run_button", "Run active/checked scenarios",
                     "Run the checked scenarios or, without check marks, the active scenario.")),
      view_output_button(add_button(scenario_run_tabsheet, "view_output_button", "View output",
                                    "Show what the last run of the active scenario wrote.")),
      format_groupbox(scenario_run_tabsheet.add<TRadioGroup>(
          "format_groupbox", "Report format",
          std::vector<std::string>{"specified in each scenario", "specified below for all runs"})),
      run_statistical_analysis_checkbox(scenario_run_tabsheet.add<TAutoCheckBox>(
          "run_statistical_analysis_checkbox", "Perform statistical analysis")),
      CPF_water_checkbox(scenario_run_tabsheet
                             .add<TGroupBox>("crop_production_function_groupbox", "Crop production function")
                             .add<TCheckBox>("CPF_water_checkbox", "Water")),
      report_format_filebar(scenarios_tabsheet.add<TAutoFileEditBar>("report_format_filebar")),
      reset_scenario_button([this]() -> TButton& {
          TGroupBox& initial =
              scenario_reset_tabsheet.add<TGroupBox>("reset_initial_groupbox", "Initial:", Layout::grid, 2);
          TGroupBox& files = scenario_reset_tabsheet.add<TGroupBox>("reset_files_groupbox",
                                                                    "Parameter files:", Layout::grid, 2);
          for (std::size_t i = 0; i < reset_boxes.size(); ++i) {
              const Reset_box& box = reset_boxes[i];
              TGroupBox& group = box.sections[0] == nullptr ? files : initial;
              reset_checkboxes[i] = &group.add<TCheckBox>(box.control, box.caption);
          }
          return add_button(scenario_reset_tabsheet, "reset_scenario_button", "Copy from active scenario",
                            "Copy selected options and parameters from the active scenario to the selected "
                            "scenarios.");
      }()),
      button_compare_project_scenarios(
          add_button(scenario_analysis_tabsheet, "button_compare_project_scenarios",
                     "Compare project scenarios", "Compare each checked scenario with the active scenario.")),
      button_compare_other_scenario(add_button(scenario_analysis_tabsheet, "button_compare_other_scenario",
                                               "Compare to another scenario",
                                               "Select a scenario of any project to compare with the active "
                                               "scenario.")),
      sim_run_progressbar(scenarios_tabsheet.add<TProgressBar>("sim_run_progressbar")) {
    created_scenarios_filelistbox.set_mask("*.tvn");
    generated_scenarios_filelistbox.set_mask("*.tvn");
    edit_new_scenario_name.set_hint("The name of a new scenario");
    format_groupbox.set_item_index(0);
    report_format_filebar.set_visible(false);
    sim_run_progressbar.set_visible(false);
    tabsheet_generated_scenarios.set_visible(false);
}

std::string scenario_name_characters(const std::string& screen_text) {
    std::string characters = typable_text(screen_text);
    std::erase_if(characters, [](char c) { return std::strchr("\\/:*?\"<>|", c) != nullptr; });
    return characters;
}
