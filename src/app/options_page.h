// The page of a project's options: the template of generated scenarios, the model, and other sources of data.
#pragma once

#include "app/project_page.h"
#include "toolkit/edit.h"

class Options_page : public Project_page {
public:
    explicit Options_page(TTilverra_project_form& project_form);

    void bind();
    void Update();
    void show_hide();
    // What the template is for: templates may be all that the project is for.
    void show_template(bool is_template_project);

    void combinatorial_scenario_generation_buttonClick();
    void combinatorial_scenario_generation_help_buttonClick();
    void show_GIS_buttonClick();
    void show_optimization_model_buttonClick();
    void STATSGO_directory_edit_onchange();

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

private:
    void wire();
    void show_hide_type_buttons();
};
