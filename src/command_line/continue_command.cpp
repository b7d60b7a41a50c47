#include "command_line/commands.h"
#include "command_line/run_options.h"
#include "command_line/run_sets.h"

#include <algorithm>
#include <memory>

namespace {

struct Continue_options {
    std::string project;
    std::string set;
    bool in_background = false;
};

void go_on(Session& session, const Continue_options& options) {
    Opened_project project(session, options.project);
    const Found_set found = find_set(project, options.set);
    must_be_own(found);
    const auto& runs = found.journal->runs();
    if (std::none_of(runs.begin(), runs.end(), [](const Run_record& run) { return run.is_left(); })) {
        session.console.say("Nothing of the set " + found.name() + " is left.");
        if (!session.as_json)
            return;
        if (options.in_background)
            report_background(session, found.name(), 0, {});
        else if (found.set.engine == Engine_kind::list)
            report_commands(session, {}, {});
        else
            report_runs(session, found.set, found.journal.get());
        return;
    }
    have_done(session, found.folder, found.set, options.in_background);
}

} // namespace

void add_continue_command(CLI::App& app, Session& session) {
    CLI::App* command = add_command(app, session, "continue",
                                    "Go on with a set of runs that was stopped, or whose process is gone",
                                    "  tvs_project continue study.tvp\n");
    auto options = std::make_shared<Continue_options>();
    add_project(*command, options->project);
    add_set(*command, options->set);
    command->add_flag("--background", options->in_background, "Leave the runs to a process of their own");
    command->callback([&session, options] { go_on(session, *options); });
}
