#include "command_line/commands.h"
#include "command_line/outcome_report.h"
#include "command_line/scenario_choice.h"
#include "operations/scenario_catalogue.h"

#include <memory>

namespace {

struct Import_options {
    std::string project;
    std::vector<std::string> files;
    bool replaces = false;
    bool no_backup = false;
};

void import(Session& session, const Import_options& options) {
    std::vector<std::string> files;
    for (const std::string& file : options.files)
        files.push_back(session.file_of_argument(file));
    Opened_project project(session, options.project);
    std::optional<Change_backups> backups;
    if (!options.no_backup && project.workspace().need_project_directory())
        backups.emplace(project.directory());
    std::vector<std::string> kept;
    const auto ask = [&](const std::string& scenario) {
        if (options.replaces) {
            must_be_idle(project.states(), {project.scenario_file(scenario, Scenario_folder::created)});
            return Import_answer::replace;
        }
        kept.push_back(scenario);
        return Import_answer::keep;
    };
    const Operation_outcome outcome = import_version_3_scenarios(
        project.workspace(), files, ask, backups ? &*backups : nullptr, shown_progress(session, "importing"));
    std::erase_if(files, [&](const std::string& file) {
        TESK::File_name target(TESK::File_name(file.c_str()).get_name(true).c_str());
        target.set_ext("tvn");
        return std::find(kept.begin(), kept.end(), target) != kept.end();
    });
    Outcome_report report(session);
    report.add_all(files, outcome);
    for (const std::string& scenario : kept)
        report.add(screen_text(scenario_name(scenario)), "failed",
                   "There is a scenario of that name already. Say --replace to replace it.", exit_found);
    report.finish();
}

} // namespace

void add_import_command(CLI::App& app, Session& session) {
    CLI::App* command = add_command(
        app, session, "import", "Turn simulation control files of version 3 into scenarios of the project",
        "  tvs_project import study.tvp Import/*.sim\n");
    auto options = std::make_shared<Import_options>();
    add_project(*command, options->project);
    command->add_option("FILE", options->files, "The files (*.sim)")->required()->type_name("");
    command->add_flag("--replace", options->replaces, "Replace scenarios of the same name");
    add_no_backup(*command, options->no_backup);
    command->callback([&session, options] { import(session, *options); });
}
