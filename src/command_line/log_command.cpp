#include "command_line/commands.h"
#include "command_line/report.h"
#include "command_line/run_sets.h"
#include "command_line/scenario_choice.h"
#include "foundation/code_page_1252.h"
#include "platform/files.h"
#include "runs/run_folders.h"
#include "runs/run_progress.h"

#include <memory>

namespace {

struct Log_options {
    std::string project;
    std::string scenario;
    std::string set;
};

// The number of the scenario's run in the set; nothing when the set does not have it.
std::optional<std::size_t> run_in(const Run_set& set, const std::string& name) {
    for (std::size_t run = 0; run < set.scenarios.size(); ++run) {
        const TESK::File_name file(set.scenarios[run].c_str());
        if (TESK::equal_ignoring_case(file.get_name(false), name) ||
            TESK::equal_ignoring_case(file.get_name(true), name))
            return run;
    }
    return std::nullopt;
}

void show(Session& session, const Found_set& found, std::size_t run) {
    const std::string printed = platform::read_file(printed_file(found.folder, run)).contents;
    const bool has_owner = is_owned(*found.journal);
    const std::string reason = describe_run(*found.journal, run, has_owner);
    if (!session.as_json) {
        session.console.out() << printed;
        if (printed.empty())
            session.console.say("The model has printed nothing" +
                                (reason.empty() ? "" : " (" + screen_text(reason) + ')') + '.');
        return;
    }
    const TESK::File_name file(found.set.scenarios[run].c_str());
    print_object(session, {{"set", found.name()},
                           {"scenario", screen_text(file.get_name(false))},
                           {"state", word_for(state_of(found.journal->runs()[run], has_owner))},
                           {"reason", reason.empty() ? Json() : Json(screen_text(reason))},
                           {"printed", screen_text(printed)}});
}

// Of the set that is named, else of the newest in which the run has begun.
void show_log(Session& session, const Log_options& options) {
    Opened_project project(session, options.project, If_interrupted::told);
    const std::string name = record_text(options.scenario);
    std::vector<std::string> folders;
    if (options.set.empty())
        folders = folders_of_sets(project);
    else
        folders.push_back(find_set(project, options.set).folder);
    for (const std::string& folder : folders) {
        const Found_set found = read_set(folder);
        if (const std::string failure = found.failure(); !failure.empty())
            throw Command_failure(exit_unreachable, screen_text(failure) + " Say another one by --set.");
        const auto run = run_in(found.set, name);
        if (run && found.journal->runs()[*run].started != 0) {
            show(session, found, *run);
            return;
        }
    }
    throw Command_failure(exit_found, options.set.empty()
                                          ? "No set of runs has begun a run of '" + options.scenario + "'."
                                          : "The set " + options.set + " has begun no run of '" +
                                                options.scenario + "'.");
}

} // namespace

void add_log_command(CLI::App& app, Session& session) {
    CLI::App* command =
        add_command(app, session, "log", "Print what the model printed in a scenario's last run",
                    "  tvs_project log study.tvp 'plot 7'\n"
                    "  tvs_project log study.tvp 'plot 7' --set '2026-03-01 12-00-00'\n");
    auto options = std::make_shared<Log_options>();
    add_project(*command, options->project);
    command->add_option("SCENARIO", options->scenario, "The scenario")->required()->type_name("");
    command->add_option("--set", options->set, "The set of runs; without it the newest that has run it")
        ->type_name("NAME");
    command->callback([&session, options] { show_log(session, *options); });
}
