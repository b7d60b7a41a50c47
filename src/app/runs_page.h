// The page "Runs": the sets of runs that are done beside the editor, what becomes of each run, and what can
// be done about it.
#pragma once

#include "app/file_follower.h"
#include "app/project_page.h"
#include "app/run_set_rows.h"
#include "runs/scenario_states.h"
#include "toolkit/timer.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

class Runs_page : public Project_page {
public:
    explicit Runs_page(TTilverra_project_form& project_form);

    // Shows the run sets of the project: after loading, and whenever the page comes to the front.
    void Update();

    // Has the set run beside the editor and shows it. The project has been saved. False, and a notice says
    // why, when that could not be.
    bool run_beside(Run_set set);
    // Whether nothing runs any of the scenarios (full names), and no set at work has still to run it, as far
    // as can be told: else they are not to be changed, and a notice names them.
    bool may_change(const std::vector<std::string>& scenarios);
    // Those that may_change() refuses. tell_busy() has the notice.
    Busy_scenarios busy(std::vector<std::string> scenarios);
    void tell_busy(const Busy_scenarios& busy);
    // Asks what is to become of the sets that this program has run. False when the user stays.
    bool may_close();

    // The states of the project's scenarios; null without a project folder. What others see of it is brought
    // up to date by Scenario_states::refresh().
    Scenario_states* states() { return states_.get(); }
    // Called when a run began or ended.
    std::function<void()> on_run_changed;
    // Makes what has a set run; a process of its own, unless told otherwise.
    std::function<std::unique_ptr<Run_engine>(const std::string& folder)> make_engine;

    TTabSheet& runs_tabsheet;
    TTable& run_sets_table;
    TLabel& run_set_progress_label;
    TProgressBar& run_set_progressbar;
    TTable& runs_table;
    TButton& runs_stop_button;
    TButton& runs_continue_button;
    TButton& runs_failed_again_button;
    TButton& runs_out_of_date_again_button;
    TButton& runs_all_again_button;
    TButton& runs_view_output_button;
    TButton& runs_view_tables_button;
    TButton& runs_show_log_button;
    TButton& runs_delete_set_button;
    TMemo& run_log_memo;

private:
    void wire();
    Known_run_set* chosen() const;
    std::string chosen_scenario() const;
    void follow();
    void list_sets();
    void look_after_jobs();
    void set_chosen();
    bool start(Known_run_set& set);
    void look(bool is_second_over);
    void look_at(Known_run_set& set, int row, bool is_second_over);
    void ended(Known_run_set& set);
    void show_progress();
    void show_log();
    void stop_chosen();
    void continue_chosen();
    void run_again(int which);
    void view_output_of_run();
    void delete_chosen();

    Run_set_rows set_rows_;
    Run_rows run_rows_;
    std::unique_ptr<Scenario_states> states_;
    std::string runs_folder_;
    File_follower follower_; // of sets that others make or delete
    int looks_left_ = 0;     // at sets that others have made and may not have begun
    TTimer timer_{1000};     // for durations and for sets that others have run; only while there are any
};
