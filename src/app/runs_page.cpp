#include "app/runs_page.h"

#include "app/tilverra_project_form.h"
#include "operations/operation_outcome.h"
#include "operations/scenario_runs.h"
#include "platform/files.h"
#include "runs/run_folders.h"
#include "runs/run_repetition.h"
#include "runs/run_supervisor.h"
#include "runs/worker_files.h"
#include "toolkit/desktop.h"
#include "toolkit/screen_language.h"
#include "toolkit/screen_memory.h"
#include "toolkit/splitter.h"

namespace {

constexpr std::size_t most_on_view = 256 << 10; // of a log: its end
constexpr int lines_of_sets = 5;
constexpr int lines_of_log = 5;
constexpr int looks_at_new_sets = 10; // one a second
constexpr int share_of_sets = 250;    // of 1000, of the room for both tables

TTable& add_table(TControl& parent, const char* name, std::vector<Table_column> columns, const char* empty,
                  int height) {
    TTable& table = fill(parent.add<TTable>(name));
    Place place = table.place();
    place.height = height;
    table.set_place(place);
    table.set_columns(std::move(columns));
    table.set_text(empty);
    return table;
}

} // namespace

Runs_page::Runs_page(TTilverra_project_form& project_form)
    : Project_page(project_form),
      runs_tabsheet(form.project_pagecontrol.add<TTabSheet>("runs_tabsheet", "Runs")),
      run_sets_table(
          add_table(fill(runs_tabsheet.add<TSplitter>("runs_splitter", Layout::column,
                                                      "Moves the border between the sets and their runs.")),
                    "run_sets_table", Run_set_rows::columns(),
                    "Nothing has been run beside the editor yet. Tick scenarios, then press \"Run beside "
                    "the editor\" on the page Run.",
                    lines_of_sets)),
      run_set_progress_label(
          (run_sets_table.parent()->add<TPanel>("run_set_panel"),
           run_sets_table.parent()->children().back()->add<TLabel>("run_set_progress_label"))),
      run_set_progressbar(run_set_progress_label.parent()->add<TProgressBar>("run_set_progressbar")),
      runs_table(add_table(*run_set_progress_label.parent(), "runs_table", Run_rows::columns(), "", 0)),
      runs_stop_button(add_button(add_row(*run_set_progress_label.parent(), "runs_buttons"),
                                  "runs_stop_button", "Stop",
                                  "Stop the runs of this set. It can be continued later.")),
      runs_continue_button(add_button(*runs_stop_button.parent(), "runs_continue_button", "Continue",
                                      "Go on where this set ended. What is done is not run again.")),
      runs_failed_again_button(add_button(*runs_stop_button.parent(), "runs_failed_again_button",
                                          "Run failed again", "Run those once more that failed.")),
      runs_out_of_date_again_button(
          add_button(*runs_stop_button.parent(), "runs_out_of_date_again_button", "Run out of date again",
                     "Run those once more whose scenario or parameter files have changed since.")),
      runs_all_again_button(
          add_button(*runs_stop_button.parent(), "runs_all_again_button", "Run all again", "")),
      runs_view_output_button(add_button(add_row(*run_set_progress_label.parent(), "run_buttons"),
                                         "runs_view_output_button", "View output of run",
                                         "Show what the run under the cursor wrote.")),
      runs_view_tables_button(
          add_button(*runs_view_output_button.parent(), "runs_view_tables_button", "View output tables",
                     "Show the tables (.dbf) that the run under the cursor wrote, each in a window of its "
                     "own.")),
      runs_show_log_button(add_button(*runs_view_output_button.parent(), "runs_show_log_button", "Show log",
                                      "Show what the model printed during the run under the cursor.")),
      runs_delete_set_button(add_button(*runs_view_output_button.parent(), "runs_delete_set_button",
                                        "Delete set",
                                        "Forget this set of runs. The outputs of its scenarios stay.")),
      run_log_memo(run_set_progress_label.parent()->add<TMemo>("run_log_memo")) {
    Place place = run_log_memo.place();
    place.height = lines_of_log;
    run_log_memo.set_place(place);
    run_log_memo.set_read_only(true);
    run_log_memo.set_visible(false);
    run_set_progress_label.set_text_is_data(true);
    make_engine = [](const std::string& folder) { return std::make_unique<Supervised_engine>(folder); };
    run_sets_table.set_rows(&set_rows_);
    runs_table.set_rows(&run_rows_);
    keep_position(static_cast<TSplitter&>(*run_sets_table.parent()), share_of_sets);
    keep_columns(run_sets_table);
    keep_columns(runs_table);
    wire();
    show_progress();
}

void Runs_page::wire() {
    runs_tabsheet.on_show = [this] { Update(); };
    run_sets_table.on_change = [this] { set_chosen(); };
    runs_table.on_change = [this] {
        show_progress();
        show_log();
    };
    runs_table.on_double_click = [this](int, int) { view_output_of_run(); };
    runs_table.on_sort = [this](int column, bool down) {
        run_rows_.sort(column, down);
        runs_table.set_sort(column, down);
        runs_table.rows_changed();
    };
    runs_stop_button.on_click = [this] { stop_chosen(); };
    runs_continue_button.on_click = [this] { continue_chosen(); };
    runs_failed_again_button.on_click = [this] { run_again(static_cast<int>(Repetition::failed)); };
    runs_out_of_date_again_button.on_click = [this] { run_again(static_cast<int>(Repetition::out_of_date)); };
    runs_all_again_button.on_click = [this] { run_again(static_cast<int>(Repetition::all)); };
    runs_view_output_button.on_click = [this] { view_output_of_run(); };
    runs_view_tables_button.on_click = [this] {
        std::string failure;
        if (const std::string scenario = chosen_scenario(); !scenario.empty())
            show_tables(output_tables(workspace(), scenario, failure), failure,
                        "This run has left no tables (.dbf).");
    };
    runs_show_log_button.on_click = [this] {
        run_log_memo.set_visible(!run_log_memo.visible());
        show_log();
    };
    runs_delete_set_button.on_click = [this] { delete_chosen(); };
    timer_.on_timer = [this] { look(true); };
    follower_.on_change = [this] {
        follow();
        list_sets();
        looks_left_ = looks_at_new_sets;
        look(false);
        if (on_run_changed)
            on_run_changed();
    };
}

Known_run_set* Runs_page::chosen() const {
    const int row = run_sets_table.cursor_row();
    return row < 0 ? nullptr : set_rows_.sets[static_cast<std::size_t>(row)].get();
}

std::string Runs_page::chosen_scenario() const {
    Known_run_set* const set = chosen();
    const int row = runs_table.cursor_row();
    return set == nullptr || set->set() == nullptr || row < 0 ? ""
                                                              : set->set()->scenarios[run_rows_.run_of(row)];
}

void Runs_page::Update() {
    if (!has_project() || !workspace().ensure_project_directory())
        return;
    const std::string folder = workspace().project_directory->Runs;
    if (folder != runs_folder_ || !states_) {
        runs_folder_ = folder;
        states_ = std::make_unique<Scenario_states>(*workspace().project_directory, runs_folder_);
    }
    list_sets();
    look_after_jobs();
    look(false);
    follow();
}

// The folder may be missing until there is a set.
void Runs_page::follow() {
    follower_.follow({runs_folder_}, {runs_folder_});
}

// A job of a scheduler that has lost its watcher, as after a crash of the editor, gets another one: only so
// are tasks found that vanish.
void Runs_page::look_after_jobs() {
    for (const auto& set : set_rows_.sets)
        if (set->is_at_work() && !set->engine && set->journal()->job() && !set->journal()->owner())
            start(*set);
}

// Sets that are known stay as they are: they may be at work.
void Runs_page::list_sets() {
    const std::string before = chosen() == nullptr ? "" : chosen()->folder();
    std::vector<std::unique_ptr<Known_run_set>> sets;
    int cursor = 0;
    platform::Write_result failure;
    for (const std::string& folder : list_run_sets(runs_folder_, &failure)) {
        const auto known = std::find_if(set_rows_.sets.begin(), set_rows_.sets.end(),
                                        [&](const auto& set) { return set && set->folder() == folder; });
        if (folder == before)
            cursor = static_cast<int>(sets.size());
        sets.push_back(known == set_rows_.sets.end() ? std::make_unique<Known_run_set>(folder)
                                                     : std::move(*known));
    }
    if (!failure.ok())
        form.parameter_file_form().notice(worded("The folder of the runs cannot be read.") + ' ' +
                                          worded(screen_text(failure.reason)));
    run_rows_.show(nullptr);
    runs_table.rows_changed();
    set_rows_.sets = std::move(sets);
    run_sets_table.rows_changed();
    run_sets_table.set_cursor(set_rows_.sets.empty() ? -1 : cursor, 0);
    set_chosen();
}

void Runs_page::set_chosen() {
    run_rows_.show(chosen());
    runs_table.set_sort(-1, false);
    runs_table.rows_changed();
    runs_table.set_cursor(run_rows_.count() > 0 ? 0 : -1, 0);
    show_progress();
    show_log();
}

// ---- running

bool Runs_page::run_beside(Run_set set) {
    Update();
    states_->refresh();
    tell_busy(
        {.running = form.scenarios.run.run_ends().take_running(set.scenarios), .unknown = {}, .doubt = {}});
    const Busy_scenarios busy = states_->take_busy(set.scenarios);
    if (!busy.unknown.empty())
        tell_busy({.running = {}, .unknown = busy.unknown, .doubt = busy.doubt});
    else if (!busy.running.empty())
        form.parameter_file_form().notice(worded("Another set of runs has scenarios of these run: %1.",
                                                 std::to_string(busy.running.size())));
    if (const std::vector<Not_done> damaged = take_interrupted(set.scenarios); !damaged.empty())
        form.parameter_file_form().notice(
            worded("The program was not started. %1",
                   screen_text(damaged.front().file + ": " + damaged.front().reason)),
            Mark::exclamation);
    if (set.scenarios.empty())
        return false;
    const Made_run_set made = make_run_set(runs_folder_, set);
    if (!made.result.ok()) {
        form.parameter_file_form().notice(worded("The folder of the runs cannot be written.") + ' ' +
                                          worded(screen_text(made.result.reason)));
        return false;
    }
    list_sets();
    for (std::size_t row = 0; row < set_rows_.sets.size(); ++row)
        if (set_rows_.sets[row]->folder() == made.folder)
            run_sets_table.set_cursor(static_cast<int>(row), 0);
    set_chosen();
    if (chosen() != nullptr && start(*chosen()))
        return true;
    delete_run_set(made.folder, true); // nobody has taken it on
    list_sets();
    return false;
}

bool Runs_page::start(Known_run_set& set) {
    set.engine = make_engine(set.folder());
    if (const std::string reason = set.engine->start(); !reason.empty()) {
        set.engine.reset();
        form.parameter_file_form().notice(worded(screen_text(reason)));
        return false;
    }
    if (set.engine->descriptor() >= 0) {
        set.watch = std::make_unique<TDescriptor_watch>(set.engine->descriptor());
        set.watch->on_ready = [this] { look(false); };
        set.watch->set_enabled(true);
    }
    look(false);
    return true;
}

// Brings all that is at work up to date. The timer goes on as long as there is any.
void Runs_page::look(bool is_second_over) {
    bool any_at_work = false;
    for (int row = 0; row < set_rows_.count(); ++row) {
        Known_run_set& set = *set_rows_.sets[static_cast<std::size_t>(row)];
        look_at(set, row, is_second_over);
        any_at_work = any_at_work || set.engine || set.is_at_work() ||
                      (set.is_handed_out() && !set.progress().is_over());
    }
    looks_left_ -= is_second_over && looks_left_ > 0 ? 1 : 0;
    timer_.set_enabled(any_at_work || looks_left_ > 0);
    show_progress();
}

void Runs_page::look_at(Known_run_set& set, int row, bool is_second_over) {
    const bool has_ended = set.engine && !set.engine->poll();
    const bool has_news = set.refresh();
    if (has_ended) {
        if (const std::string trouble = set.engine->trouble(); !trouble.empty())
            form.parameter_file_form().notice(worded(screen_text(trouble)));
        if (set.watch)
            set.watch->set_enabled(false); // it may be telling this very news, and goes with the next start
        set.engine.reset();
        set.refresh();
        ended(set);
    }
    if (&set == chosen() && set.is_readable()) {
        if (run_rows_.count() == 0)
            set_chosen(); // its journal could not be read until now
        for (int shown = 0; is_second_over && shown < run_rows_.count(); ++shown)
            if (set.journal()->runs()[run_rows_.run_of(shown)].outcome == Run_record::Outcome::running)
                runs_table.row_changed(shown);
        if (has_news)
            for (const std::size_t run : set.journal()->changed())
                runs_table.row_changed(run_rows_.row_of(run));
        if (run_log_memo.visible() && has_news)
            show_log();
    }
    if (has_news || has_ended || set.may_change())
        run_sets_table.row_changed(row);
    if ((has_news || has_ended) && on_run_changed)
        on_run_changed();
}

// One notice for the whole set.
void Runs_page::ended(Known_run_set& set) {
    const Run_progress progress = set.progress();
    if (set.is_handed_out())
        return form.parameter_file_form().notice(
            worded("The command lines are in %1.", screen_text(run_list_file(set.folder()))));
    form.parameter_file_form().notice(worded(progress.failed > 0  ? "Runs have failed; see the page Runs:"
                                             : progress.is_over() ? "The runs have ended:"
                                                                  : "The runs have been stopped:") +
                                      ' ' + worded_lines(describe(progress), ", "));
}

bool Runs_page::may_change(const std::vector<std::string>& scenarios) {
    const Busy_scenarios refused = busy(scenarios);
    tell_busy(refused);
    return refused.empty();
}

Busy_scenarios Runs_page::busy(std::vector<std::string> scenarios) {
    Busy_scenarios found;
    found.running = form.scenarios.run.run_ends().take_running(scenarios);
    if (states_ && !scenarios.empty())
        found.add(busy_among(*states_, scenarios));
    return found;
}

void Runs_page::tell_busy(const Busy_scenarios& busy) {
    std::string text;
    if (!busy.running.empty())
        text = worded("Scenarios of these are being run: %1. Stop the runs first, or wait for their end.",
                      screen_text(enumerated(busy.running)));
    if (!busy.unknown.empty())
        text += (text.empty() ? "" : " ") +
                worded("Whether these scenarios are being run cannot be told: %1.",
                       screen_text(enumerated(busy.unknown))) +
                ' ' + worded(screen_text(busy.doubt)) + ' ' +
                worded("See to it that it can be read or, where a set of runs is damaged, delete that.");
    if (!text.empty())
        form.parameter_file_form().notice(text, Mark::exclamation);
}

bool Runs_page::may_close() {
    std::size_t at_work = 0;
    for (const auto& set : set_rows_.sets)
        at_work += set->engine ? 1 : 0;
    if (at_work == 0)
        return true;
    const Modal_result answer = message_box("Runs are still at work beside the editor. Stop them? ([No] lets "
                                            "them go on, and they are found again at the "
                                            "next start)",
                                            "Runs at work", Button_set::yes_no_cancel);
    if (answer != Modal_result::yes && answer != Modal_result::no)
        return false;
    for (const auto& set : set_rows_.sets) {
        if (!set->engine)
            continue;
        auto* const supervised = dynamic_cast<Supervised_engine*>(set->engine.get());
        if (answer == Modal_result::no && supervised != nullptr)
            supervised->go_on_alone();
        else
            set->engine->stop();
    }
    return true;
}

// ---- what is done about a set, or a run

void Runs_page::show_progress() {
    Known_run_set* const set = chosen();
    const bool is_readable = set != nullptr && set->is_readable();
    const Run_progress progress = is_readable ? set->progress() : Run_progress();
    const bool is_at_work = is_readable && set->is_at_work();
    const bool has_journal = set != nullptr && set->journal() != nullptr;
    run_set_progress_label.set_text(is_readable   ? worded_lines(describe(progress), ", ")
                                    : has_journal ? worded(screen_text(set->journal()->failure()))
                                                  : "");
    run_set_progressbar.set_maximum(static_cast<int>(progress.total));
    run_set_progressbar.set_position(static_cast<int>(progress.ended()));
    run_set_progressbar.set_visible(is_at_work);
    const auto enable = [this](TButton& button, bool is_enabled) {
        if (!is_enabled && button.focused())
            runs_table.focus(); // rather than whatever comes next
        button.set_enabled(is_enabled);
    };
    enable(runs_stop_button, is_at_work);
    enable(runs_continue_button, is_readable && !is_at_work && !progress.is_over());
    enable(runs_failed_again_button, is_readable && !is_at_work && progress.failed > 0);
    enable(runs_out_of_date_again_button, is_readable && !is_at_work);
    enable(runs_all_again_button, is_readable && !is_at_work);
    enable(runs_delete_set_button, set != nullptr && !is_at_work && (is_readable || !has_journal));
    const bool has_run = runs_table.cursor_row() >= 0;
    runs_view_output_button.set_enabled(has_run);
    runs_view_tables_button.set_enabled(has_run);
    runs_show_log_button.set_enabled(has_run);
    if (!has_run)
        run_log_memo.set_visible(false);
}

void Runs_page::show_log() {
    if (!run_log_memo.visible() || chosen() == nullptr || runs_table.cursor_row() < 0)
        return;
    const std::string file = printed_file(chosen()->folder(), run_rows_.run_of(runs_table.cursor_row()));
    std::string printed = platform::read_file(file).contents;
    if (printed.size() > most_on_view)
        printed.erase(0, printed.size() - most_on_view);
    run_log_memo.set_text(printed.empty() ? worded("The model has printed nothing.") : screen_text(printed));
}

void Runs_page::stop_chosen() {
    Known_run_set* const set = chosen();
    if (set == nullptr || set->journal() == nullptr)
        return;
    if (set->engine) {
        set->engine->stop();
    } else {
        std::string reason = reason_not_to_touch(set->folder(), *set->set());
        if (reason.empty())
            reason = stop_run_set(*set->journal());
        if (!reason.empty())
            form.parameter_file_form().notice(worded(screen_text(reason)));
    }
    look(false);
}

void Runs_page::continue_chosen() {
    if (chosen() == nullptr || chosen()->set() == nullptr)
        return;
    if (const std::string reason = reason_not_to_touch(chosen()->folder(), *chosen()->set()); !reason.empty())
        form.parameter_file_form().notice(worded(screen_text(reason)));
    else if (form.save() && chosen() != nullptr)
        start(*chosen());
}

void Runs_page::run_again(int which) {
    Known_run_set* const set = chosen();
    if (set == nullptr || set->set() == nullptr || !states_ || !form.save())
        return;
    states_->refresh();
    const Run_set again =
        repetition_of(*set->set(), *set->journal(), *states_, static_cast<Repetition>(which));
    if (again.scenarios.empty())
        form.parameter_file_form().notice(worded("There is nothing of this set to be run again."));
    else
        run_beside(again);
}

void Runs_page::view_output_of_run() {
    const std::string scenario = chosen_scenario();
    if (!scenario.empty() && form.scenarios.run.show_output(scenario) == View_outcome::no_output)
        form.parameter_file_form().notice(worded("This run has left no output."));
}

void Runs_page::delete_chosen() {
    Known_run_set* const set = chosen();
    if (set == nullptr || message_box("Delete this set of runs? The outputs of its scenarios stay.",
                                      "Delete set", Button_set::ok_cancel) != Modal_result::ok)
        return;
    if (!delete_run_set(set->folder(), false))
        form.parameter_file_form().notice(worded("The folder of the runs cannot be deleted."));
    list_sets();
}
