#include "operations/scenario_comparison.h"

#include "foundation/lists.h"
#include "operations/scenario_runs.h"
#include "platform/command_line.h"
#include "platform/process.h"
#include "trees/scenario_directory.h"
#include "trees/suite_directory.h"

namespace {

// The record that would stand for the comparison. A point in the name begins no extension: it is part of a
// scenario's name.
TESK::File_name comparison_file(const Project_workspace& workspace, const std::string& comparison) {
    TESK::File_name file;
    workspace.project_directory->get_scenario_comparison_directory(true).append_to(
        (comparison + ".tvn").c_str(), file);
    return file;
}

// The folder of a scenario. Making it moves the current folder, which is the project's before and after.
struct Scenario_folders {
    Scenario_folders(const Project_workspace& workspace, const TESK::File_name& file)
        : folder(full_name(workspace, file)) {
        workspace.enter_project_folder();
    }
    static TESK::File_name full_name(const Project_workspace& workspace, TESK::File_name file) {
        workspace.enter_project_folder();
        file.qualify();
        return file;
    }
    Tilverra_scenario_directory folder;
};

} // namespace

bool active_scenario_has_output(const Project_workspace& workspace) {
    return Scenario_folders(workspace, workspace.project_parameters.active_scenario).folder.has_output();
}

Comparison_outcome compare_scenarios(Project_workspace& workspace, const std::string& other_scenario) {
    return compare_scenarios(workspace, workspace.project_parameters.active_scenario, other_scenario);
}

Comparison_outcome compare_scenarios(Project_workspace& workspace, const std::string& scenario,
                                     const std::string& other_scenario) {
    const TESK::File_name file(scenario.c_str());
    const TESK::File_name other_file(other_scenario.c_str());
    const std::string name = file.get_name(false);
    const std::string other_name = other_file.get_name(false);
    const Scenario_folders first(workspace, file);
    if (!first.folder.has_output())
        return Comparison_outcome::no_output;
    const Scenario_folders other(workspace, other_file);
    if (!other.folder.has_output() || other_name == name)
        return Comparison_outcome::skipped;
    const Scenario_folders result(workspace, comparison_file(workspace, name + " vs " + other_name));
    bool all_started = true;
    for (const TESK::Smart_file_name Tilverra_scenario_directory::*output :
         {&Tilverra_scenario_directory::daily_xeb, &Tilverra_scenario_directory::season_xeb,
          &Tilverra_scenario_directory::annual_xeb, &Tilverra_scenario_directory::harvest_xeb}) {
        if (!(first.folder.*output).exists() || !(other.folder.*output).exists())
            continue;
        all_started &= workspace.host.run(suite_directory->get_XEB_directory().get_compare_exe(),
                                          platform::in_quotes(result.folder.*output), first.folder.*output,
                                          other.folder.*output, true, platform::normal_window);
        if (workspace.host.was_cancelled())
            break;
    }
    return all_started ? Comparison_outcome::compared : Comparison_outcome::not_started;
}

std::vector<std::string> list_comparisons(const Project_workspace& workspace, std::string& failure) {
    TESK::Bidirectional_list folders;
    const TESK::Smart_directory_name& holder =
        workspace.project_directory->get_scenario_comparison_directory(true);
    const bool is_whole = holder.list_entries(folders, false, false, true, false, true,
                                              TESK::list_directories, nullptr, nullptr);
    failure = is_whole || !holder.exists() ? "" : "The folder cannot be read: " + holder;
    std::vector<std::string> names;
    for (const auto& folder : TESK::Items_of<TESK::Directory_name>(folders))
        names.push_back(folder.get_name(true));
    return names;
}

std::vector<std::string> comparison_tables(const Project_workspace& workspace, const std::string& comparison,
                                           std::string& failure) {
    return output_tables(workspace, comparison_file(workspace, comparison), failure);
}

void view_comparison(Project_workspace& workspace, const std::string& comparison) {
    const TESK::File_name file = comparison_file(workspace, comparison);
    const std::string outputs = outputs_of_scenario(workspace, file);
    if (!outputs.empty())
        workspace.host.run_with_file(
            suite_directory->get_tilverra_directory().get_output_manager_advanced_exe(),
            workspace.project_parameters.output_options_file, outputs);
}
