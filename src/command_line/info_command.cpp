#include "command_line/commands.h"
#include "command_line/opened_project.h"
#include "command_line/report.h"
#include "operations/project_summary.h"

#include <memory>

namespace {

// With a word for people when it is not there, which programs find in `lacking`.
void add_file(Session& session, Json& info, const char* key, const Project_summary::Named_file& file,
              Json& lacking) {
    const std::string word = file.is_out_of_reach ? "cannot be reached" : file.is_missing ? "missing" : "";
    info[key] = screen_text(file.name) + (session.as_json || word.empty() ? "" : " (" + word + ')');
    if (!word.empty())
        lacking[key] = word;
}

void show_info(Session& session, const std::string& argument) {
    Opened_project project(session, argument, If_interrupted::told);
    const Project_summary summary = summarize_project(project.workspace());
    Json info;
    info["file"] = screen_text(summary.file);
    info["folder"] = screen_text(summary.folder);
    info["type"] = screen_text(summary.type);
    info["description"] = screen_text(summary.description);
    Json lacking = Json::object();
    add_file(session, info, "model", summary.model, lacking);
    add_file(session, info, "template", summary.template_scenario, lacking);
    add_file(session, info, "active", summary.active_scenario, lacking);
    if (session.as_json)
        info["lacking"] = lacking;
    info["scenarios"] = summary.scenarios;
    info["generated"] = summary.generated;
    info["comparisons"] = summary.comparisons;
    info["bytes"] = summary.bytes;
    Json missing = Json::array();
    for (const Finding& finding : summary.findings)
        missing.push_back(screen_text(finding_text(finding)));
    if (session.as_json)
        info["findings"] = missing;
    else
        for (const Json& line : missing)
            info["finding " + std::to_string(&line - &missing.front() + 1)] = line;
    print_object(session, info);
    if (!summary.is_whole)
        session.note(exit_unreachable);
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
