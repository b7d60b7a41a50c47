// The page of the project's scenarios: the active one above, the lists of them on the left, what is done with
// them on the right. Each of these has a room of its own.
#pragma once

#include "app/file_follower.h"
#include "app/scenario_analysis_page.h"
#include "app/scenario_edit_page.h"
#include "app/scenario_lists.h"
#include "app/scenario_reset_page.h"
#include "app/scenario_run_page.h"

class Scenarios_page : public Project_page {
public:
    explicit Scenarios_page(TTilverra_project_form& project_form);

    void bind();
    void Update();

    void active_scenario_editbar_set_to_scenarios_dir();
    // Shows which scenario is the active one, and whether it is there. To be called when the record has
    // another one, and when files have come or gone.
    void update_active_scenario();
    // The same, and the cursors of the lists go to its line.
    void show_active_scenario();
    // Files of scenarios have come, gone or changed on the disk: lists, lights and the run button follow.
    void files_changed();
    // The lines of the list in front came or went.
    void list_changed();
    void show_hide_scenario_buttons();

    TTabSheet& scenarios_tabsheet;
    TAutoFileEditBar& active_scenario_editbar;
    TLabel& active_scenario_outside_note;

private:
    void follow_files();

    File_follower follower_;
    TPanel& left_;
    TPanel& right_;

public:
    Scenario_lists lists;
    TPageControl& edit_run_pagecontrol;
    Scenario_edit_page edit;
    Scenario_run_page run;
    Scenario_reset_page reset;
    Scenario_analysis_page analysis;
    // Shown and filled by Line_progress.
    TLabel& sim_run_progress_note;
    TProgressBar& sim_run_progressbar;
};
