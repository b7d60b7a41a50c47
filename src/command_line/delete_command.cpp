#include "command_line/commands.h"
#include "command_line/outcome_report.h"
#include "command_line/scenario_choice.h"
#include "operations/scenario_catalogue.h"

#include <memory>

namespace {

struct Delete_options {
    std::string project;
    Scenario_choice choice;
    bool permanently = false;
    bool no_backup = false;
    bool only_shows = false;
};

void remove(Session& session, Delete_options& options) {
    resolve_files(session, options.choice);
    Opened_project project(session, options.project);
    const std::vector<std::string> scenarios = choose_scenarios(project, options.choice, true);
    const TESK::Smart_directory_name& folder = project.folder_of(options.choice.folder());
    Outcome_report report(session);
    std::vector<std::string> files;
    std::vector<std::string> all;
    for (const std::string& scenario : scenarios) {
        if (options.only_shows)
            report.add(screen_text(scenario_name(scenario)), "would be deleted");
        files.push_back(project.scenario_file(scenario, options.choice.folder()));
        for (std::string& file : files_of_scenario(folder, scenario))
            all.push_back(std::move(file));
    }
    must_be_idle(project.states(), files);
    Operation_outcome outcome;
    if (!options.only_shows) {
        std::optional<Change_backups> backups;
        if (options.permanently)
            backups = backups_for(project, all, options.no_backup);
        outcome = delete_scenarios(folder, scenarios, options.permanently, backups ? &*backups : nullptr,
                                   shown_progress(session, "deleting"));
        // A scenario whose outputs stay has not been deleted.
        for (Not_done& one : outcome.not_done)
            for (const std::string& file : files)
                if (one.file == TESK::Directory_name(TESK::Directory_name(file), true))
                    one.file = file;
        report.add_all(files, outcome);
    }
    report.finish();
    if (std::any_of(outcome.not_done.begin(), outcome.not_done.end(),
                    [](const Not_done& one) { return one.reason == no_trash; }))
        session.console.say("There is no trash for them. Say --permanently to delete them all the same.");
}

} // namespace

void add_delete_command(CLI::App& app, Session& session) {
    CLI::App* command = add_command(
        app, session, "delete", "Delete scenarios and their outputs, into the trash unless told otherwise",
        "  tvs_project delete study.tvp 'plot 7'\n"
        "  tvs_project delete study.tvp --all --generated --dry-run\n"
        "  tvs_project delete study.tvp 'test*' --permanently\n");
    auto options = std::make_shared<Delete_options>();
    add_project(*command, options->project);
    add_choice(*command, options->choice);
    command->add_flag("--permanently", options->permanently,
                      "Not into the trash; the last such change can be undone");
    add_no_backup(*command, options->no_backup);
    command->add_flag("--dry-run", options->only_shows, "Only tell what would be deleted");
    command->callback([&session, options] { remove(session, *options); });
}
