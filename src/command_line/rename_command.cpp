#include "command_line/commands.h"
#include "command_line/outcome_report.h"
#include "command_line/scenario_choice.h"
#include "operations/scenario_renaming.h"

#include <memory>

namespace {

struct Rename_options {
    std::string project;
    std::string name;
    Scenario_choice source; // one, of either list
};

void rename(Session& session, Rename_options& options) {
    resolve_files(session, options.source);
    Opened_project project(session, options.project);
    const std::string old_name = choose_one(project, options.source);
    const TESK::File_name file = project.scenario_file(old_name, options.source.folder());
    const std::string new_name = record_text(options.name);
    if (screen_text(new_name) != options.name)
        throw Command_failure(exit_found, "The name has a character that records cannot hold.");
    must_be_idle(project.states(), {file});
    need_folder(project.folder_of(options.source.folder()));
    const Operation_outcome outcome = rename_scenario(
        project.workspace(), file, new_name.ends_with(".tvn") ? scenario_name(new_name) : new_name);
    must_be_begun(outcome);
    Outcome_report report(session);
    report.add(screen_text(scenario_name(old_name)), "done");
    // The places that still have the old name.
    for (const Not_done& one : outcome.not_done)
        report.add(screen_text(one.file), "failed", screen_text(one.reason), exit_unreachable);
    report.finish();
}

} // namespace

void add_rename_command(CLI::App& app, Session& session) {
    CLI::App* command =
        add_command(app, session, "rename", "Give a scenario another name, wherever the project has it",
                    "  tvs_project rename study.tvp base 'base, early sowing'\n");
    auto options = std::make_shared<Rename_options>();
    options->source.patterns.resize(1);
    add_project(*command, options->project);
    command->add_option("SCENARIO", options->source.patterns.front(), "The scenario")
        ->required()
        ->type_name("");
    command->add_option("NAME", options->name, "Its new name")->required()->type_name("");
    command->add_flag("--generated", options->source.generated, "One of the generated scenarios");
    command->callback([&session, options] { rename(session, *options); });
}
