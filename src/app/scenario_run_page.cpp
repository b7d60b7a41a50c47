#include "app/scenario_run_page.h"

#include "app/tilverra_project_form.h"
#include "foundation/code_page_1252.h"
#include "operations/operation_outcome.h"
#include "platform/host_names.h"
#include "runs/project_run_set.h"
#include "toolkit/desktop.h"
#include "toolkit/screen_language.h"
#include "trees/suite_directory.h"

#include <vector>

namespace {

// An edit for a whole number of four digits, behind its caption.
TEdit& add_number(TControl& row, const char* name, const char* caption, const char* hint) {
    row.add<TLabel>(std::string(name) + "_label", caption).set_names_next(true);
    TEdit& edit = row.add<TEdit>(name);
    Place narrow = edit.place();
    narrow.width = 12; // of the prompt, in all languages
    edit.set_place(narrow);
    edit.set_hint(hint);
    edit.input_filter = [](const std::string& text) {
        std::string digits;
        for (const char c : text)
            if (TESK::is_digit(c) && digits.size() < 4)
                digits += c;
        return digits;
    };
    return edit;
}

std::size_t number_in(const TEdit& edit) {
    return static_cast<std::size_t>(std::atoi(edit.text().c_str()));
}

} // namespace

Scenario_run_page::Scenario_run_page(TTilverra_project_form& project_form, TPageControl& pages,
                                     TTabSheet& scenarios_tabsheet)
    : Project_page(project_form), scenario_run_tabsheet(pages.add<TTabSheet>("scenario_run_tabsheet", "Run")),
      senerios_run_button(
          add_button(scenario_run_tabsheet, "senerios_run_button", "Run active/checked scenarios",
                     "Run the checked scenarios or, without check marks, the active scenario.")),
      view_output_button(add_button(scenario_run_tabsheet, "view_output_button", "View output",
                                    "Show what the last run of the active scenario wrote.")),
      view_tables_button(add_button(scenario_run_tabsheet, "view_tables_button", "View output tables",
                                    "Show the tables (.dbf) that the last run of the active scenario wrote, "
                                    "each in a window of its own.")),
      run_beside_button(add_button(scenario_run_tabsheet, "run_beside_button", "Run beside the editor",
                                   "Run the checked scenarios or, without check marks, the highlighted or "
                                   "else the active one, several at a time, while you work on. See the page "
                                   "Runs.")),
      runs_at_once_edit(add_number(
          add_row(scenario_run_tabsheet, "runs_at_once_panel"), "runs_at_once_edit", "Runs at a time",
          "How many scenarios are run at the same time; usually as many as there are "
          "cores.")),
      longest_run_edit(add_number(add_row(scenario_run_tabsheet, "longest_run_panel"), "longest_run_edit",
                                  "Longest run, minutes",
                                  "A run that takes longer is ended and counts as failed. Empty for no "
                                  "limit.")),
      stop_at_failure_checkbox(
          scenario_run_tabsheet.add<TCheckBox>("stop_at_failure_checkbox", "Stop at the first failure")),
      engine(scenario_run_tabsheet),
      write_run_list_button(add_button(scenario_run_tabsheet, "write_run_list_button",
                                       "Write a list of command lines",
                                       "A line for each run, for whoever runs such lists on this or other "
                                       "machines. What comes of them is told on the page Runs.")),
      format_groupbox(scenario_run_tabsheet.add<TRadioGroup>(
          "format_groupbox", "Report format",
          std::vector<std::string>{"specified in each scenario", "specified below for all runs"})),
      run_statistical_analysis_checkbox(scenario_run_tabsheet.add<TAutoCheckBox>(
          "run_statistical_analysis_checkbox", "Perform statistical analysis")),
      CPF_water_checkbox(scenario_run_tabsheet
                             .add<TGroupBox>("crop_production_function_groupbox", "Crop production function")
                             .add<TCheckBox>("CPF_water_checkbox", "Water")),
      report_format_filebar(scenarios_tabsheet.add<TAutoFileEditBar>("report_format_filebar")),
      run_end_note(scenario_run_tabsheet.add<TLabel>("run_end_note", "", true)), run_ends_(run_end_note) {
    run_ends_.on_end = [this] {
        form.scenarios.files_changed();
        form.parameter_file_form().notice(run_end_note.text());
    };
    format_groupbox.set_item_index(0);
    report_format_filebar.set_visible(false);
    scenario_run_tabsheet.on_enter = [this] { report_format_filebar.set_visible(true); };
    senerios_run_button.on_click = [this] { senerios_run_button_onclick(); };
    run_beside_button.on_click = [this] { run_beside_button_onclick(); };
    write_run_list_button.on_click = [this] { write_run_list_button_onclick(); };
    longest_run_edit.set_prompt("no limit");
    engine.on_change = [this] { engine_changed(); };
    engine_changed();
    runs_at_once_edit.set_text(std::to_string(Run_set().number_at_once()));
    view_output_button.on_click = [this] { view_output_button_onclick(); };
    view_tables_button.on_click = [this] { view_tables_button_onclick(); };
    run_statistical_analysis_checkbox.on_click = [this] { run_statistical_analysis_checkbox_onclick(); };
}

void Scenario_run_page::engine_changed() {
    const bool is_here = !engine.slurm_checkbox.checked();
    stop_at_failure_checkbox.set_enabled(is_here);
    stop_at_failure_checkbox.set_hint(
        is_here ? "Start nothing more once a run has failed. A list of command lines cannot heed it."
                : "A job of Slurm runs all that it was given: only runs on this machine can be stopped at a "
                  "failure.");
}

void Scenario_run_page::bind() {
    forget_bound_controls();
    TVS::Tilverra_Directory* const programs = suite_programs();
    bind_file(report_format_filebar, record().report_format, nullptr,
              programs == nullptr ? nullptr : &programs->get_format_editor_exe());
    bind_control(run_statistical_analysis_checkbox, record().statistical_analysis);
}

void Scenario_run_page::show_hide_run_button() {
    if (!has_project())
        return;
    TFileCheckListBox& list = form.scenarios.lists.current();
    workspace().enter_project_folder();
    const bool can_run = form.scenarios.lists.has_chosen();
    senerios_run_button.set_visible(can_run || list.count() > 0);
    senerios_run_button.set_enabled(can_run);
}

std::string Scenario_run_page::full_name(const std::string& scenario_file) const {
    TESK::File_name file(scenario_file.c_str());
    workspace().enter_project_folder();
    file.qualify();
    return file;
}

// Two runs of a scenario would write into the same outputs.
bool Scenario_run_page::may_run(const std::string& scenario_file) {
    if (form.runs.may_change({full_name(scenario_file)})) {
        const std::string interruption = told_interruption(full_name(scenario_file));
        if (interruption.empty())
            return true;
        form.parameter_file_form().notice(screen_text(interruption), Mark::exclamation);
    }
    form.parameter_file_form().programs.command_history_memo.append_line(
        worded("The program was not started. %1", form.parameter_file_form().status_line.text()));
    return false;
}

// The end of the run is waited for, and `failure` told, when that is not null; else it is noticed. False when
// the user gave up the save before it.
bool Scenario_run_page::run_one(const std::string& scenario_file, std::string* failure) {
    bool goes_on = true;
    const auto run = [&] {
        goes_on = run_scenario(workspace(), scenario_file, common_format(), failure != nullptr);
    };
    if (failure != nullptr)
        *failure = Run_ends::wait_for(full_name(scenario_file), run);
    else
        run_ends_.watch(full_name(scenario_file), run);
    return goes_on;
}

void Scenario_run_page::run_active() {
    if (may_run(record().active_scenario))
        run_one(record().active_scenario, nullptr);
}

// Runs the checked lines; the mark of each goes once its run has been started or has ended. False when the
// user gave up a save, or stopped the batch: the marks that are left then stand. `batch`: null for a run that
// is not waited for.
bool Scenario_run_page::run_checked(Line_progress& progress, Batch* batch) {
    Scenario_lists& lists = form.scenarios.lists;
    TFileCheckListBox& list = lists.current();
    const auto total = static_cast<std::size_t>(list.checked_count());
    std::size_t number = 0;
    for (int i = 0; i < list.count(); ++i) {
        if (list.checked(i)) {
            list.set_item_index(i);
            progress.show(++number, total, record_text(list.line(i).text));
            const std::string scenario = lists.scenario_of_line(i);
            std::string failure;
            if (!may_run(scenario)) {
                failure = worded("Not started: %1; see Commands", list.line(i).text);
            } else {
                if (!run_one(scenario, batch == nullptr ? nullptr : &failure))
                    return false;
                list.set_checked(i, false);
            }
            if (batch != nullptr) {
                ++(failure.empty() ? batch->progress.done : batch->progress.failed);
                if (!failure.empty())
                    batch->failures.push_back(failure);
            }
        }
        progress.step();
        if (!progress.goes_on())
            return batch != nullptr && number == total;
    }
    return true;
}

void Scenario_run_page::tell_batch(const Batch& batch, bool is_stopped) {
    constexpr std::size_t most_told = 5;
    if (batch.progress.ended() == 0)
        return;
    std::string text = worded(is_stopped ? "The runs have been stopped:" : "The runs have ended:") + ' ' +
                       worded_lines(describe(batch.progress), ", ") + '.';
    for (std::size_t i = 0; i < batch.failures.size() && i < most_told; ++i)
        text += ' ' + batch.failures[i];
    if (batch.failures.size() > most_told)
        text += " ...";
    const Mark mark = batch.failures.empty() && !is_stopped ? Mark::tick : Mark::cross;
    run_ends_.tell(text, mark);
    form.parameter_file_form().notice(text);
}

void Scenario_run_page::senerios_run_button_onclick() {
    if (!has_project())
        return;
    TFileCheckListBox& list = form.scenarios.lists.current();
    const int checked = list.checked_count();
    const bool batch = checked > 1;
    if (batch) {
        if (message_box(
                "Multiple scenarios were selected, these will need to be run sequentially. the project "
                "editor will be suspended during the runs. Continue?",
                "Sequential batch run", Button_set::ok_cancel) != Modal_result::ok)
            return;
        if (current_desktop != nullptr)
            current_desktop->minimise();
    }
    Batch told;
    bool goes_on = false;
    {
        Line_progress progress(form.scenarios, static_cast<std::size_t>(list.count()),
                               batch ? Line_progress::Closing::asks : Line_progress::Closing::stops);
        told.progress.total = static_cast<std::size_t>(checked);
        if (workspace().need_project_directory())
            goes_on = run_checked(progress, batch ? &told : nullptr);
        if (goes_on && checked == 0)
            run_active();
    }
    tell_batch(told, !goes_on);
    form.scenarios.show_active_scenario();
    form.scenarios.lists.states_changed();
    if (batch && current_desktop != nullptr)
        current_desktop->restore();
}

// A line of the generated list that is under the cursor goes before the active scenario, which it cannot be.
std::vector<std::string> Scenario_run_page::chosen_scenarios() const {
    Scenario_lists& lists = form.scenarios.lists;
    const TFileCheckListBox& list = lists.current();
    const bool takes_line = lists.current_folder() == Scenario_folder::generated && list.item_index() >= 0 &&
                            list.checked_count() == 0;
    return takes_line ? std::vector{lists.scenario_of_line(list.item_index())} : lists.chosen();
}

// The marks stay: what became of each run is told on the page Runs.
void Scenario_run_page::run_beside_button_onclick() {
    if (has_project() && workspace().need_project_directory())
        run_beside(chosen_scenarios());
}

// Nothing, and the user knows why, where there is no scenario or the project could not be saved.
std::optional<Run_set> Scenario_run_page::make_set(std::vector<std::string> scenarios) {
    if (scenarios.empty())
        form.parameter_file_form().notice(worded("There is no scenario to be run."));
    if (scenarios.empty() || !form.save())
        return std::nullopt;
    Run_set set = run_set_of(record(), *workspace().project_directory, form.project_file(), common_format(),
                             std::move(scenarios));
    set.longest = std::chrono::minutes(number_in(longest_run_edit));
    return set;
}

void Scenario_run_page::run_beside(std::vector<std::string> scenarios) {
    std::optional<Run_set> set = make_set(std::move(scenarios));
    if (!set)
        return;
    set->at_once = number_in(runs_at_once_edit);
    set->stops_at_first_failure = stop_at_failure_checkbox.enabled() && stop_at_failure_checkbox.checked();
    engine.give_to(*set);
    if (form.runs.run_beside(*set))
        form.project_pagecontrol.set_active_page(form.runs.runs_tabsheet);
}

void Scenario_run_page::write_run_list_button_onclick() {
    if (!has_project() || !workspace().need_project_directory())
        return;
    std::optional<Run_set> set = make_set(chosen_scenarios());
    if (!set)
        return;
    set->engine = Engine_kind::list;
    if (form.runs.run_beside(*set))
        form.project_pagecontrol.set_active_page(form.runs.runs_tabsheet);
}

View_outcome Scenario_run_page::show_output(const std::string& scenario_file) {
    const View_outcome outcome = view_output(workspace(), scenario_file);
    if (outcome == View_outcome::shown_by_usual_format)
        form.parameter_file_form().notice(
            worded("The scenario cannot be read: its output is shown by the usual report format."),
            Mark::exclamation);
    return outcome;
}

void Scenario_run_page::view_output_button_onclick() {
    if (!has_project() || !workspace().need_project_directory())
        return;
    if (show_output(record().active_scenario) == View_outcome::no_output)
        show_message("This scenario does not have any output.  First run the simulation");
}

void Scenario_run_page::view_tables_button_onclick() {
    std::string failure;
    if (has_project() && workspace().need_project_directory())
        show_tables(output_tables(workspace(), record().active_scenario, failure), failure,
                    "The active scenario has no output tables (.dbf).");
}

void Scenario_run_page::run_statistical_analysis_checkbox_onclick() {
    if (!has_project())
        return;
    if (record().statistical_analysis)
        message_box(
            "Select the variables to be tallied and the statistics to be calculated on the /Statistical "
            "tallies\\ page.",
            "Select variable", Button_set::ok);
    form.show_hide();
}
