// The page of a project's options: the template of generated scenarios, the model, and other sources of data.
#pragma once

#include "app/page_parts.h"
#include "editing/file_edit_bar.h"

// What stands below the template of a project, unless templates are all that the project is for.
inline constexpr const char* usual_template_note =
    "A scenario to be used as a template to generate scenarios.";

struct Options_page {
    explicit Options_page(TPageControl& pages);

    TTabSheet& options_tabsheet;
    TPageControl& options_pagecontrol;
    TTabSheet& generation_tabsheet;
    TTabSheet& model_tabsheet;
    TTabSheet& data_sources_tabsheet;

    TAutoFileEditBar& template_scenario_filebar;
    TLabel& label_template_scenario_notes;
    TGroupBox& panel_combinatorial_generation;
    TButton& combinatorial_scenario_generation_button;
    TButton& combinatorial_scenario_generation_help_button;

    TAutoFileEditBar& simulation_model_filebar;
    TSpeedButton& show_GIS_button;
    TSpeedButton& show_optimization_model_button;

    TGroupBox& statsgo_groupbox;
    TEdit& STATSGO_directory_edit;
};
