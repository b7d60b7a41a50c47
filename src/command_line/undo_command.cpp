#include "command_line/commands.h"
#include "command_line/outcome_report.h"

#include <memory>

namespace {

struct Options {
    std::string project;
    std::string change;
    bool only_lists = false;
};

void undo(Session& session, const Options& options) {
    Opened_project project(session, options.project);
    Change_backups backups(project.directory());
    if (options.only_lists) {
        Report report(session, {{"change"}, {"operation"}, {"time"}, {"files"}});
        for (const Change_backups::Change& change : backups.list())
            report.add({screen_text(change.set), screen_text(change.operation), change.time, change.entries});
        report.finish();
        return;
    }
    const Operation_progress progress = shown_progress(session, "bringing back");
    const Operation_outcome outcome = options.change.empty()
                                          ? backups.undo_last(progress)
                                          : backups.undo(record_text(options.change), progress);
    session.console.end_progress();
    if (!outcome.ok()) {
        session.console.say(screen_text(describe_failures(outcome)));
        session.note(outcome.refused.empty() ? exit_unreachable : exit_found);
    }
    if (outcome.refused.empty())
        print_object(session, {{"brought_back", outcome.done}, {"failed", outcome.not_done.size()}});
}

} // namespace

void add_undo_command(CLI::App& app, Session& session) {
    CLI::App* command =
        add_command(app, session, "undo", "Undo the last change to scenarios, which can itself be undone",
                    "  tvs_project undo study.tvp --list\n"
                    "  tvs_project undo study.tvp\n");
    auto options = std::make_shared<Options>();
    add_project(*command, options->project);
    command->add_option("--change", options->change, "A change by the name that the list gives it")
        ->type_name("NAME");
    command->add_flag("--list", options->only_lists, "List the changes that can be undone");
    command->callback([&session, options] { undo(session, *options); });
}
