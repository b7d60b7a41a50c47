#include "command_line/commands.h"
#include "command_line/report.h"
#include "command_line/run_options.h"
#include "command_line/run_sets.h"
#include "runs/run_progress.h"

#include <memory>

namespace {

struct Status_options {
    std::string project;
    std::string set;
    bool shows_runs = false;
    bool shows_sets = false;
};

void list_sets(Session& session, Opened_project& project) {
    Report report(session, {{"set"}, {"state"}, {"runs"}, {"at_work"}, {"begun"}, {"reason", false}});
    for (const std::string& folder : folders_of_sets(project)) {
        const Found_set found = read_set(folder);
        if (const std::string reason = found.failure(); !reason.empty()) {
            session.console.say(screen_text(reason));
            session.note(exit_unreachable);
            report.add({found.name(), "unreadable", Json(), Json(), Json(), screen_text(reason)});
            continue;
        }
        const bool has_owner = is_owned(*found.journal);
        const Run_progress progress = progress_of(*found.journal, has_owner, moment_now());
        const Moment begun = found.journal->owned_since();
        if (!report.add({found.name(), word_for(state_of(progress)), describe(progress), has_owner,
                         begun == 0 ? Json() : Json(text_of_moment(begun)), Json()}))
            break;
    }
    report.finish();
}

void show_status(Session& session, const Status_options& options) {
    Opened_project project(session, options.project, If_interrupted::told);
    if (options.shows_sets) {
        list_sets(session, project);
        return;
    }
    const Found_set found = find_set(project, options.set, Newest::at_work);
    for (const auto& [machine, sign] : silent_machines(*found.journal))
        session.console.say(screen_text(machine) +
                            " has runs of the set and cannot be asked from here. Its last "
                            "sign: " +
                            text_of_moment(sign) + ". When it is gone for good, 'tvs_project stop " + '"' +
                            options.project + "\" --set \"" + found.name() +
                            "\" --gone' gives its runs free.");
    if (options.shows_runs) {
        report_runs(session, found.set, found.journal.get());
        return;
    }
    const bool has_owner = is_owned(*found.journal);
    const Run_progress progress = progress_of(*found.journal, has_owner, moment_now());
    print_object(session, {{"set", found.name()},
                           {"runs", describe(progress)},
                           {"at_work", has_owner},
                           {"total", progress.total},
                           {"done", progress.done},
                           {"failed", progress.failed},
                           {"stopped", progress.stopped},
                           {"running", progress.running},
                           {"waiting", progress.waiting}});
}

} // namespace

void add_status_command(CLI::App& app, Session& session) {
    CLI::App* command = add_command(app, session, "status", "Tell how far a set of runs is",
                                    "  tvs_project status study.tvp\n"
                                    "  tvs_project status study.tvp --runs --json\n"
                                    "  tvs_project status study.tvp --sets\n");
    auto options = std::make_shared<Status_options>();
    add_project(*command, options->project);
    add_set(*command, options->set);
    CLI::Option* runs = command->add_flag("--runs", options->shows_runs, "List its runs");
    command->add_flag("--sets", options->shows_sets, "List all sets, the newest first")->excludes(runs);
    command->callback([&session, options] { show_status(session, *options); });
}
