// The page of a project's options: the template of generated scenarios, the model, and other sources of data.
#pragma once

#include "app/project_page.h"
#include "operations/table_reader.h"
#include "toolkit/edit.h"

class Options_page : public Project_page {
public:
    explicit Options_page(TTilverra_project_form& project_form);

    // What reads tables; null for none, and there is no button for them. Outlives the page.
    void set_table_reader(Table_reader* reader);
    void bind();
    void Update();
    void show_hide();
    // What the template is for: templates may be all that the project is for.
    void show_template(bool is_template_project);

    void combinatorial_scenario_generation_buttonClick();
    void combinatorial_scenario_generation_help_buttonClick();
    void table_scenario_generation_buttonClick();
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
    TButton& table_scenario_generation_button;

    TAutoFileEditBar& simulation_model_filebar;
    TSpeedButton& show_GIS_button;
    TSpeedButton& show_optimization_model_button;

    TGroupBox& statsgo_groupbox;
    TEdit& STATSGO_directory_edit;

private:
    void wire();
    void show_hide_type_buttons();
    void show_generated();
    void tell_outcome(const Operation_outcome& outcome);

    Table_reader* table_reader_ = nullptr;
};
