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

void stop(Session& session, const Stop_options& options) {
    Opened_project project(session, options.project);
    const Found_set found = find_set(project, options.set, Newest::at_work);
    must_be_own(found);
    if (!is_owned(*found.journal))
        throw Command_failure(exit_found, "No process has the set " + found.name() + " run.");
    if (found.journal->job() && found.journal->job()->is_list())
        throw Command_failure(exit_found,
                              "The set " + found.name() +
                                  " was handed out as a list of command lines. Stop whoever runs them.");
    if (const std::string reason = stop_run_set(*found.journal); !reason.empty())
        throw Command_failure(exit_found, "The set " + found.name() + " is not stopped. " + reason);
    if (!has_stopped(*found.journal))
        throw Command_failure(exit_found,
                              "The set " + found.name() + " has been asked to stop and has not yet.");
    const Run_progress progress = progress_of(*found.journal, false, moment_now());
    print_object(session, {{"set", found.name()}, {"runs", describe(progress)}});
}

} // namespace

void add_stop_command(CLI::App& app, Session& session) {
    CLI::App* command =
        add_command(app, session, "stop", "Stop a set of runs, wherever on this machine it was started",
                    "  tvs_project stop study.tvp\n");
    auto options = std::make_shared<Stop_options>();
    add_project(*command, options->project);
    add_set(*command, options->set);
    command->callback([&session, options] { stop(session, *options); });
}
