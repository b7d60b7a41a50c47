// The working surface of a project: the frame of its pages. It is shown inside the parameter file form, which
// loads and saves the project. Each page has its controls, what they are bound to and what they do in files
// of its own; here stands what concerns them all.
#pragma once

#include "app/comparison_page.h"
#include "app/gis_page.h"
#include "app/main_menu.h"
#include "app/map_page.h"
#include "app/optimization_page.h"
#include "app/options_page.h"
#include "app/runs_page.h"
#include "app/scenarios_page.h"
#include "app/settings_page.h"
#include "app/table_window.h"
#include "app/tally_page.h"
#include "editing/parameter_file_form.h"
#include "operations/project_workspace.h"
#include "toolkit/dialogs.h"
#include "toolkit/form.h"

#include <memory>
#include <optional>

class TTilverra_project_form : public TForm, public Program_host {
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
    // The button of the parameter file form that starts a program on the project.
    void show_hide_run_buttons();
    virtual TPageControl& top_page_control() { return project_pagecontrol; }

    // Null before a project is bound.
    Project_workspace* workspace() { return workspace_.get(); }
    Tparameter_file_form& parameter_file_form() { return *parameter_form; }

    // What the operations ask of the form that holds the project: it hands it on to that form.
    std::string project_file() const override;
    bool save() override;
    bool run(const std::string& program, const std::string& options, const std::string& file,
             const std::string& extra, bool wait, int show_state) override;
    bool was_cancelled() const override;
    // What was given up before counts no more for was_cancelled().
    void forget_cancellation() { last_save_ = Save_outcome::saved; }
    // Shows a folder in the suite's explorer.
    void explore(const std::string& folder);

    TPageControl& project_pagecontrol;
    TFileDialog TVN_filedialog; // asks for a scenario of any project
    Table_windows tables;
    Scenarios_page scenarios;
    Runs_page runs;
    Settings_page settings;
    Options_page options;
    Optimization_page optimization;
    GIS_page GIS;
    Map_page map;
    Tally_page tallies;
    Comparison_page comparisons;
    Main_menu menu;

private:
    void show_template();
    void show_hide_pages();

    Tparameter_file_form* parameter_form = nullptr;
    std::unique_ptr<Project_workspace> workspace_;
    std::optional<bool> shown_as_template_; // nothing before the first Update of what is bound
    bool in_update = false;
    bool in_show_hide = false;
    Save_outcome last_save_ = Save_outcome::saved;
};
