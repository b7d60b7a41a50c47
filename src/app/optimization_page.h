// The page of the optimization models: what is varied, and how many scenarios that gives.
#pragma once

#include "app/project_page.h"
#include "editing/auto_choices.h"
#include "editing/number_edit_bars.h"

class Optimization_page : public Project_page {
public:
    explicit Optimization_page(TTilverra_project_form& project_form);

    // Binding once more is what brings these controls up to date: the address of their help depends on where
    // the documentation lies, which is learnt after the first time.
    void bind();
    void Update();
    // Whether the scenario that is to serve as template exists.
    void show_template_ok(bool is_ok);

    void carbon_seq_update_scenarios_count();
    void opt_C_seq_view_results_buttonClick();

    std::int16_t scenario_count = 0;

    TTabSheet& tabsheet_optimization;
    TPageControl& optimization_pagecontrol;
    TTabSheet& opt_C_seq_tabsheet;
    TPageControl& opt_C_seq_pagecontrol;
    TTabSheet& acreage_tabsheet;
    TTabSheet& herd_tabsheet;
    TTabSheet& grazing_tabsheet;
    TTabSheet& management_tabsheet;

    TAutoFloat32EditBar& opt_C_seq_pasture_size_editbar;
    TAutoInt16EditBar& opt_C_seq_max_plot_count_editbar;
    TAutoInt16EditBar& opt_C_seq_step_plot_count_editbar;
    TAutoInt16EditBar& opt_C_seq_min_herd_size_editbar;
    TAutoInt16EditBar& opt_C_seq_max_herd_size_editbar;
    TAutoInt16EditBar& opt_C_seq_step_herdsize_editbar;
    TAutoInt16EditBar& opt_C_seq_begin_grazing_after_emergence_editbar;
    TAutoInt16EditBar& opt_C_seq_duration_editbar;
    TAutoInt16EditBar& opt_C_seq_step_duration_editbar;
    TAutoInt16EditBar& opt_C_seq_grazing_season_duration_editbar;
    TAutoInt16EditBar& opt_C_seq_max_recovery_days_edit;
    TAutoFloat32EditBar& opt_C_seq_dry_matter_req_editbar;
    TAutoFloat32EditBar& opt_C_seq_reserve_biomass_editbar;
    TAutoInt16EditBar& opt_C_seq_biomatter_return_to_field_editbar;
    TAutoRadioGroup& opt_C_seq_contingency_radiogroup;
    TAutoCheckBox& opt_C_seq_trampling_checkbox;

    TLabel& opt_template_note;
    TAutoInt16Edit& carbon_seq_scenario_count_output;
    TButton& opt_C_seq_view_results;
    TButton& explore_optimization_button;
    TButton& optimization_run_button; // without a use: the optimizer is started by the form's run button
};
