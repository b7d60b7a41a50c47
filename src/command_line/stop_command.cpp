#include "command_line/commands.h"
#include "command_line/report.h"
#include "command_line/run_sets.h"
#include "runs/run_progress.h"
#include "runs/run_supervisor.h"

#include <chrono>
#include <memory>
#include <thread>

namespace {

struct Stop_options {
    std::string project;
    std::string set;
    bool is_gone = false; // the machine that has runs
};

// Waits until nobody has the set run any more. False when that takes too long.
bool has_stopped(Run_journal& journal) {
    constexpr std::chrono::milliseconds pause(50);
    constexpr int most_pauses = 400; // longer than a run has to end after the polite signal
    for (int i = 0; i < most_pauses; ++i) {
        journal.update();
        if (!is_owned(journal))
            return true;
        std::this_thread::sleep_for(pause);
    }
    return false;
}

// Counts the runs as stopped that are on a machine which cannot be asked.
void give_up(const Found_set& found) {
    Run_journal& journal = *found.journal;
    Journal_writer writer(found.folder);
    const std::map<std::string, Moment> machines = silent_machines(journal);
    if (machines.empty())
        throw Command_failure(exit_found, "No run of the set " + found.name() +
                                              " is on a machine that cannot be asked from here.");
    if (journal.owner() && machines.contains(journal.owner()->host))
        writer.leave("gone", *journal.owner());
    Run_record stopped;
    stopped.outcome = Run_record::Outcome::stopped;
    for (std::size_t run = 0; run < journal.runs().size(); ++run)
        if (!journal.elsewhere(run).empty())
            writer.end(run, stopped);
    if (!writer.state().ok())
        throw Command_failure(exit_unreachable, screen_text(writer.state().reason));
    journal.update();
}

void tell(Session& session, const Found_set& found) {
    const Run_progress progress = progress_of(*found.journal, is_owned(*found.journal), moment_now());
    print_object(session, {{"set", found.name()}, {"runs", describe(progress)}});
}

void stop(Session& session, const Stop_options& options) {
    Opened_project project(session, options.project, If_interrupted::told);
    const Found_set found = find_set(project, options.set, Newest::at_work);
    must_be_own(found);
    if (options.is_gone) {
        give_up(found);
        tell(session, found);
        return;
    }
    if (!is_owned(*found.journal))
        throw Command_failure(exit_found, "No process has the set " + found.name() + " run.");
    const std::string hint =
        silent_machines(*found.journal).empty() ? "" : " When their machine is gone for good, say --gone.";
    if (found.journal->job() && found.journal->job()->is_list())
        throw Command_failure(
            exit_found, "The set " + found.name() +
                            " was handed out as a list of command lines. Stop whoever runs them." + hint);
    if (const std::string reason = stop_run_set(*found.journal); !reason.empty())
        throw Command_failure(exit_found, "The set " + found.name() + " is not stopped. " + reason + hint);
    if (!has_stopped(*found.journal))
        throw Command_failure(exit_found,
                              "The set " + found.name() + " has been asked to stop and has not yet.");
    tell(session, found);
}

} // namespace

void add_stop_command(CLI::App& app, Session& session) {
    CLI::App* command =
        add_command(app, session, "stop", "Stop a set of runs, wherever on this machine it was started",
                    "  tvs_project stop study.tvp\n"
                    "  tvs_project stop study.tvp --set '2026-03-01 12-00-00' --gone\n");
    auto options = std::make_shared<Stop_options>();
    add_project(*command, options->project);
    add_set(*command, options->set);
    command->add_flag(
        "--gone", options->is_gone,
        "Count as stopped what runs on another machine: only when that is gone for good, or the "
        "same is run twice");
    command->callback([&session, options] { stop(session, *options); });
}
