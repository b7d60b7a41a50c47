#include "command_line/commands.h"
#include "command_line/opened_project.h"
#include "command_line/report.h"
#include "operations/project_check.h"
#include "operations/scenario_comparison.h"
#include "operations/scenario_overview.h"
#include "platform/files.h"

#include <memory>

namespace {

// A file that the record names, with a word when it is not there.
std::string named_file(const TESK::File_name& file) {
    return screen_text(file) + (platform::is_file(file) ? "" : " (missing)");
}

std::size_t comparisons_in(Opened_project& project) {
    // A list of them would make their folder.
    return platform::is_folder(project.directory().get_scenario_comparison_directory(false))
               ? list_comparisons(project.workspace()).size()
               : 0;
}

void show_info(Session& session, const std::string& argument) {
    Opened_project project(session, argument);
    const Tilverra_project_editor_parameters& record = project.record();
    Json info;
    info["file"] = screen_text(project.file());
    info["folder"] = screen_text(project.directory());
    info["type"] = screen_text(record.project_type.get_label());
    info["description"] = screen_text(record.description);
    info["model"] = named_file(record.cropping_system_model);
    info["template"] = named_file(record.template_scenario);
    info["active"] = named_file(record.active_scenario);
    info["scenarios"] = list_scenarios(project.folder_of(Scenario_folder::created)).size();
    info["generated"] = list_scenarios(project.folder_of(Scenario_folder::generated)).size();
    info["comparisons"] = comparisons_in(project);
    Json missing = Json::array();
    for (const Finding& finding : Project_check().check_project(project.file()))
        missing.push_back(finding.section + (finding.key.empty() ? "" : '.' + finding.key) + ": " +
                          screen_text(finding.message));
    if (session.as_json)
        info["findings"] = missing;
    else
        for (const Json& line : missing)
            info["finding " + std::to_string(&line - &missing.front() + 1)] = line;
    print_object(session, info);
}

} // namespace

void add_info_command(CLI::App& app, Session& session) {
    CLI::App* command = add_command(app, session, "info", "Tell what a project is and what it lacks",
                                    "  tvs_project info study.tvp\n"
                                    "  tvs_project info study.tvp --json | jq .scenarios\n");
    auto project = std::make_shared<std::string>();
    add_project(*command, *project);
    command->callback([&session, project] { show_info(session, *project); });
}
