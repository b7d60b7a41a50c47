#include "command_line/commands.h"
#include "command_line/outcome_report.h"
#include "command_line/scenario_choice.h"
#include "operations/scenario_comparison.h"
#include "platform/files.h"
#include "trees/suite_directory.h"

#include <memory>

namespace {

struct Compare_options {
    std::string project;
    std::string first;
    Scenario_choice others;
};

std::string why_not_started() {
    const TESK::File_name& program = suite_directory->get_XEB_directory().get_compare_exe();
    if (platform::is_file(program))
        return "The comparing program could not be started.";
    return "There is no " + screen_text(program) +
           ". Say where the suite is installed, by --suite or TVS_SUITE.";
}

void compare(Session& session, Compare_options& options) {
    resolve_files(session, options.others);
    Scenario_choice first;
    first.patterns = {options.first};
    first.generated = options.others.generated;
    resolve_files(session, first);
    Opened_project project(session, options.project);
    const std::string first_name = choose_one(project, first);
    // Compared with is the active scenario, in the record that nobody saves.
    project.record().active_scenario = project.scenario_file(first_name, options.others.folder()).c_str();
    if (!active_scenario_has_output(project.workspace()))
        throw Command_failure(exit_found,
                              "The scenario '" + options.first + "' has no output. Run it first.");
    const std::vector<std::string> others = choose_scenarios(project, options.others, true);
    need_folder(project.directory().get_scenario_comparison_directory(false));
    Outcome_report report(session);
    for (const std::string& other : others) {
        const std::string name = screen_text(scenario_name(other));
        if (other == first_name) {
            report.add(name, "skipped", "It is the scenario itself.");
            continue;
        }
        const Comparison_outcome outcome =
            compare_scenarios(project.workspace(), project.scenario_file(other, options.others.folder()));
        const int exit_code = project.take_exit_code();
        if (outcome == Comparison_outcome::not_started)
            report.add(name, "failed", why_not_started(), exit_found);
        else if (outcome != Comparison_outcome::compared)
            report.add(name, "failed", "It has no output. Run it first.", exit_found);
        else if (exit_code != 0)
            report.add(name, "failed",
                       "The comparing program ended with exit code " + std::to_string(exit_code) + ".",
                       exit_found);
        else
            report.add(name, "done", screen_text(scenario_name(first_name)) + " vs " + name);
    }
    report.finish();
}

} // namespace

void add_compare_command(CLI::App& app, Session& session) {
    CLI::App* command =
        add_command(app, session, "compare", "Compare the outputs of a scenario with those of others",
                    "  tvs_project compare study.tvp base rainfed 'plot*'\n");
    auto options = std::make_shared<Compare_options>();
    add_project(*command, options->project);
    command->add_option("SCENARIO", options->first, "The scenario to compare with")
        ->required()
        ->type_name("");
    add_choice(*command, options->others);
    command->callback([&session, options] { compare(session, *options); });
}
