#include "command_line/commands.h"
#include "command_line/outcome_report.h"
#include "command_line/scenario_choice.h"
#include "model/tilverra_scenario.h"
#include "operations/scenario_catalogue.h"
#include "platform/files.h"
#include "records/vv_file.h"

#include <memory>

namespace {

struct New_options {
    std::string project;
    std::string from; // empty for the defaults of every scenario
    std::vector<std::string> names;
    bool activates = false;
};

// Makes a scenario with the defaults of every one. Gives why it could not; nothing when it could.
std::string make_scenario(Opened_project& project, const TESK::File_name& file) {
    project.workspace().need_project_directory();
    project.directory().get_scenarios_directory(true);
    Tilverra_scenario scenario;
    TESK::VV_file target(file.c_str());
    target.set(scenario);
    return target.get_last_write().reason;
}

std::string copy_active_scenario(Opened_project& project, const std::string& name) {
    const Operation_outcome outcome = create_scenario(project.workspace(), name, true);
    if (!outcome.ok())
        return outcome.not_done.empty() ? outcome.refused : outcome.not_done.front().reason;
    return outcome.done > 0 ? "" : "The scenario to copy is not there.";
}

// Why no scenario can have the name that was typed, of which `name` is left; nothing when one can.
std::string refuse_name(const std::string& typed, const std::string& name) {
    const std::string text = record_text(typed);
    return screen_text(text) == typed ? refuse_scenario_name(name.empty() ? text : name)
                                      : "The name has a character that records cannot hold.";
}

void make(Session& session, const New_options& options) {
    Scenario_choice source;
    source.patterns = {options.from};
    resolve_files(session, source);
    Opened_project project(session, options.project);
    const TVN_filename active = project.record().active_scenario;
    std::string from;
    if (!options.from.empty())
        from = project.scenario_file(choose_one(project, source), Scenario_folder::created);
    need_folder(project.folder_of(Scenario_folder::created));
    Outcome_report report(session);
    for (const std::string& typed : options.names) {
        std::string name = new_scenario_name(record_text(typed));
        if (name.ends_with(".tvn"))
            name = scenario_name(name);
        const TESK::File_name file = project.scenario_file(name + ".tvn", Scenario_folder::created);
        if (const std::string refusal = refuse_name(typed, name); !refusal.empty()) {
            report.add(typed, "failed", refusal, exit_found);
            continue;
        }
        if (platform::exists(file)) {
            report.add(screen_text(name), "failed", "There is a scenario of that name already.", exit_found);
            continue;
        }
        project.record().active_scenario = from;
        const std::string reason =
            from.empty() ? make_scenario(project, file) : copy_active_scenario(project, name);
        project.record().active_scenario =
            options.activates && reason.empty() ? std::string(file) : std::string(active);
        if (reason.empty())
            report.add(screen_text(name), "done");
        else
            report.add(screen_text(name), "failed", screen_text(reason), exit_unreachable);
    }
    if (options.activates)
        project.save();
    report.finish();
}

} // namespace

void add_new_command(CLI::App& app, Session& session) {
    CLI::App* command =
        add_command(app, session, "new", "Make scenarios with the values that every new one has",
                    "  tvs_project new study.tvp 'plot 7'\n"
                    "  tvs_project new study.tvp 'plot 8' --activate\n");
    auto options = std::make_shared<New_options>();
    add_project(*command, options->project);
    command->add_option("NAME", options->names, "The scenarios' names")->required()->type_name("");
    command->add_flag("--activate", options->activates, "Make it the project's active scenario");
    command->callback([&session, options] { make(session, *options); });
}

void add_copy_command(CLI::App& app, Session& session) {
    CLI::App* command = add_command(app, session, "copy", "Make scenarios that are copies of another one",
                                    "  tvs_project copy study.tvp base 'base, late sowing'\n");
    auto options = std::make_shared<New_options>();
    add_project(*command, options->project);
    command->add_option("SCENARIO", options->from, "The scenario to copy")->required()->type_name("");
    command->add_option("NAME", options->names, "The copies' names")->required()->type_name("");
    command->add_flag("--activate", options->activates, "Make the copy the project's active scenario");
    command->callback([&session, options] { make(session, *options); });
}
