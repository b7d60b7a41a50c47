// The working surface of a project: its pages, bound to the project's record, and the operations on its
// scenarios. It is shown inside the parameter file form, which loads and saves the project.
#pragma once

#include "app/comparison_page.h"
#include "app/gis_page.h"
#include "app/optimization_page.h"
#include "app/options_page.h"
#include "app/scenarios_page.h"
#include "app/tally_page.h"
#include "editing/parameter_file_form.h"
#include "foundation/text_list.h"
#include "operations/project_workspace.h"
#include "toolkit/dialogs.h"
#include "toolkit/form.h"

#include <memory>
#include <vector>

class TTilverra_project_form : public TForm, private Program_host {
public:
    TTilverra_project_form();
    ~TTilverra_project_form() override;

    // Binds the controls to the record. All three outlive the form; the process's current folder stays.
    void bind(Tilverra_project_editor_parameters& record, Tilverra_project_type requested_type,
              Tparameter_file_form& parameter_form);

    // Brings all controls in line with the record: after loading, and on request.
    void Update() override;
    // What is visible for the type and the state of the project.
    void show_hide();
    virtual TPageControl& top_page_control() { return project_pagecontrol; }

    // The operations that the controls start.
    void scenario_create_button_onclick();
    void scenario_open_active_button_onclick();
    void scenario_open_other_onclick();
    void scenario_open_SIM_onclick();
    void scenario_delete_button_onclick();
    void explore_scenarios_buttonClick();
    void relist_scenarios_button_onclick();
    void senerios_select_all_button_onclick();
    void scenerios_select_none_button_onclick();
    void created_scenarios_listbox_onchange();
    void active_scenario_editbar_set_to_scenarios_dir();

    void senerios_run_button_onclick();
    void view_output_button_onclick();
    void opt_C_seq_view_results_buttonClick();
    void reset_scenario_button_onclick();
    void button_compare_project_scenariosClick();
    void button_compare_other_scenarioClick();
    void comparison_button_view_outputClick();
    void tabsheet_scenario_comparisonEnter();
    void combinatorial_scenario_generation_buttonClick();
    void combinatorial_scenario_generation_help_buttonClick();
    void carbon_seq_update_scenarios_count();

    void show_GIS_buttonClick();
    void show_optimization_model_buttonClick();
    void attribute_option_checked() { show_hide(); }
    void STATSGO_directory_edit_onchange();
    void STATSGO_tabsheetShow();
    void run_statistical_analysis_checkbox_onclick();
    void parameter_database_onclick();
    void open_master_database();
    void open_project_database();
    void button_launch_TVS_suiteClick();
    void GIS_coverage_filebar_onchange();
    void GIS_GS_variable_listbox_onclick();
    void GIS_annl_variable_listbox_onclick();
    void show_hide_run_button();
    void show_hide_scenario_buttons();
    void show_hide_run_buttons();

    Project_workspace* workspace() { return workspace_.get(); }
    const TESK::Text_list& get_PAT_attributes() const { return *PAT_attributes; }

    TPageControl& project_pagecontrol;
    Scenarios_page scenarios;
    Options_page options;
    Optimization_page optimization;
    GIS_page GIS;
    Tally_page tallies;
    Comparison_page comparisons;

    TFileCheckListBox* current_scenarios_listbox;
    TFileDialog TVN_filedialog;
    TFileDialog SIM_dialog;
    TPopupMenu database_popup;
    std::int16_t scenario_count = 0;

private:
    // Program_host
    std::string project_file() const override;
    bool save() override;
    bool run(const std::string& program, const std::string& options, const std::string& file,
             const std::string& extra, bool wait, int show_state) override;
    bool was_cancelled() const override;

    void wire_scenarios();
    void wire_pages();
    void wire_lists();

    void bind_file_bars();
    void bind_optimization();
    void fill_tally_lists();
    void bind_GIS();
    void reload_PAT_attributes();
    void update_bound_controls();
    void set_lists_to_project();
    void set_comparison_database();
    void set_current_list();
    void list_changed();
    void checks_changed();

    void show_template_page();
    void show_hide_pages();
    void show_hide_attributes();
    void show_hide_GIS_outputs();
    void show_hide_type_buttons();
    void show_hide_generated();

    bool has_project() const { return project_parameters != nullptr && workspace_ != nullptr; }
    Scenario_folder current_folder() const;
    std::string scenario_of_line(int index) const;
    void update_active_scenario();
    bool common_format() const { return scenarios.format_groupbox.item_index() == 1; }
    void begin_progress();
    bool run_checked(bool batch, int& checked);
    Ticked_reset_boxes ticked_reset_boxes() const;
    bool active_scenario_is_there();
    bool ask_for_output_of_active();
    bool compare_with(const std::string& other, bool& active_has_output);
    void list_comparisons_again();
    void explore(const std::string& folder);

    Tilverra_project_editor_parameters* project_parameters = nullptr;
    Tparameter_file_form* parameter_form = nullptr;
    std::unique_ptr<Project_workspace> workspace_;
    std::unique_ptr<TESK::Text_list> PAT_attributes;
    std::vector<TControl*> bound_controls_;
    TESK::Smart_directory_name master_output_{""};
    TESK::Smart_directory_name project_output_{""};
    bool in_update = false;
    bool in_show_hide = false;
    Save_outcome last_save_ = Save_outcome::saved;
};
