// The page "Run": running the model on the checked lines or the active scenario, and viewing what it wrote.
#pragma once

#include "app/line_progress.h"
#include "app/project_page.h"
#include "app/run_ends.h"
#include "app/run_engine_choice.h"
#include "editing/auto_choices.h"
#include "operations/scenario_runs.h"
#include "runs/run_progress.h"

#include <optional>
#include <string>
#include <vector>

class Scenario_run_page : public Project_page {
public:
    // The bar of the report format stands on the page of the scenarios, below these pages, where there is
    // room for it.
    Scenario_run_page(TTilverra_project_form& project_form, TPageControl& pages,
                      TTabSheet& scenarios_tabsheet);

    void bind();
    void Update() { update_bound_controls(); }

    void senerios_run_button_onclick();
    void run_beside_button_onclick();
    void write_run_list_button_onclick();
    void view_output_button_onclick();
    void view_tables_button_onclick();
    void run_statistical_analysis_checkbox_onclick();
    // There is something to run when a line is checked or the active scenario exists. The button is on view
    // as long as there are lines, too.
    void show_hide_run_button();

    // Runs the scenarios (full names of their files) as a set beside the editor, and shows the page Runs.
    void run_beside(std::vector<std::string> scenarios);
    // Shows the output of a scenario (the full name of its file), and tells by which format where that is not
    // the scenario's own.
    View_outcome show_output(const std::string& scenario_file);
    // Runs the active scenario, as the record names it, without waiting.
    void run_active();
    // The scenarios that run_active() and the button of the page run at present.
    const Run_ends& run_ends() const { return run_ends_; }

    TTabSheet& scenario_run_tabsheet;
    TButton& senerios_run_button;
    TButton& view_output_button;
    TButton& view_tables_button;
    TButton& run_beside_button;
    TEdit& runs_at_once_edit;
    TEdit& longest_run_edit; // minutes
    TCheckBox& stop_at_failure_checkbox;
    Run_engine_choice engine;
    TButton& write_run_list_button;
    TRadioGroup& format_groupbox;
    TAutoCheckBox& run_statistical_analysis_checkbox;
    TCheckBox& CPF_water_checkbox;
    TAutoFileEditBar& report_format_filebar;
    TLabel& run_end_note; // how the last run beside the editor ended

private:
    // What became of the runs that were waited for one after the other.
    struct Batch {
        Run_progress progress;
        std::vector<std::string> failures;
    };

    void engine_changed();
    bool common_format() const { return format_groupbox.item_index() == 1; }
    std::vector<std::string> chosen_scenarios() const;
    std::optional<Run_set> make_set(std::vector<std::string> scenarios);
    std::string full_name(const std::string& scenario_file) const;
    bool may_run(const std::string& scenario_file);
    bool run_one(const std::string& scenario_file, std::string* failure);
    bool run_checked(Line_progress& progress, Batch* batch);
    void tell_batch(const Batch& batch, bool is_stopped);

    Run_ends run_ends_;
};
