// The page of the project's scenarios: the lists of them on the left, what is done with them on the right.
#pragma once

#include "app/page_parts.h"
#include "editing/auto_choices.h"
#include "editing/file_edit_bar.h"
#include "operations/scenario_reset.h"
#include "toolkit/file_list_box.h"

#include <array>

struct Scenarios_page {
    explicit Scenarios_page(TPageControl& pages);

    TTabSheet& scenarios_tabsheet;
    TAutoFileEditBar& active_scenario_editbar;
    TPanel& left;
    TPanel& right;

    TPageControl& pagecontrol_scenarios;
    TTabSheet& tabsheet_created_scenarios;
    TTabSheet& tabsheet_generated_scenarios;
    TFileCheckListBox& created_scenarios_filelistbox;
    TFileCheckListBox& generated_scenarios_filelistbox;
    TButton& scenerios_select_all_button;
    TButton& scenerios_select_none_button;
    TButton& relist_scenarios_button;
    TButton& explore_scenarios_button;

    TPageControl& edit_run_pagecontrol;
    TTabSheet& scenario_edit_tabsheet;
    TTabSheet& scenario_run_tabsheet;
    TTabSheet& scenario_reset_tabsheet;
    TTabSheet& scenario_analysis_tabsheet;

    TButton& scenario_create_button;
    TEdit& edit_new_scenario_name;
    TCheckBox& checkbox_copy_active_scenario;
    TButton& scenario_open_active_button;
    TButton& scenario_open_other;
    TButton& scenario_open_SIM;
    TButton& scenario_delete_button;
    TButton& parameter_database_button;
    TButton& button_launch_TVS_suite;

    TButton& senerios_run_button;
    TButton& view_output_button;
    TRadioGroup& format_groupbox;
    TAutoCheckBox& run_statistical_analysis_checkbox;
    TCheckBox& CPF_water_checkbox;
    TAutoFileEditBar& report_format_filebar; // below the pages, where there is room for it

    std::array<TCheckBox*, ::reset_boxes.size()> reset_checkboxes{}; // in the order of the table of boxes
    TButton& reset_scenario_button;

    TButton& button_compare_project_scenarios;
    TButton& button_compare_other_scenario;

    TProgressBar& sim_run_progressbar;
};

// What remains of a text that is typed as the name of a new scenario: the characters that a name can have.
std::string scenario_name_characters(const std::string& screen_text);
