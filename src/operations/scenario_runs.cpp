#include "operations/scenario_runs.h"

#include "model/model_command.h"
#include "model/tilverra_scenario.h"
#include "operations/operation_outcome.h"
#include "platform/command_line.h"
#include "platform/listing.h"
#include "records/vv_file.h"
#include "trees/scenario_directory.h"
#include "trees/suite_directory.h"

#include <algorithm>
#include <memory>

namespace {

constexpr int maximised = 3;
constexpr int minimised = 6;

// The scenario's folder, where it has output. The project's folder is the current one afterwards.
std::unique_ptr<Tilverra_scenario_directory> folder_with_output(const Project_workspace& workspace,
                                                                const std::string& scenario_file) {
    workspace.enter_project_folder();
    if (scenario_file.empty() || scenario_file.starts_with('<'))
        return nullptr;
    TESK::File_name file(scenario_file.c_str());
    file.qualify();
    auto folder = std::make_unique<Tilverra_scenario_directory>(file);
    workspace.enter_project_folder();
    return folder->has_output() ? std::move(folder) : nullptr;
}

} // namespace

bool run_scenario(Project_workspace& workspace, const std::string& scenario_file, bool common_format,
                  bool wait) {
    const Tilverra_project_editor_parameters& project = workspace.project_parameters;
    const std::string option = common_format ? report_format_option(project.report_format) : "";
    workspace.host.run_on_file(project.cropping_system_model, option, scenario_file, wait,
                               project.run_minimized ? minimised : maximised);
    return !workspace.host.was_cancelled();
}

std::string outputs_of_scenario(const Project_workspace& workspace, const std::string& scenario_file) {
    const auto folder = folder_with_output(workspace, scenario_file);
    return folder ? platform::in_quotes(scenario_file) + ' ' + platform::in_quotes(folder->output_directory) +
                        ' ' + platform::in_quotes(folder->CPF)
                  : "";
}

std::vector<std::string> output_tables(const Project_workspace& workspace, const std::string& scenario_file,
                                       std::string& failure) {
    failure.clear();
    const auto folder = folder_with_output(workspace, scenario_file);
    if (!folder)
        return {};
    const TESK::Directory_name& holder = folder->output_directory;
    const platform::Folder_listing listing = platform::list_folder(holder, "*.dbf");
    failure = told_listing(holder, listing.result);
    std::vector<std::string> tables;
    for (const platform::Folder_entry& entry : listing)
        if ((entry.attributes & platform::attribute_directory) == 0)
            tables.push_back(holder + '\\' + entry.name);
    std::sort(tables.begin(), tables.end());
    return tables;
}

View_outcome view_output(Project_workspace& workspace, const std::string& scenario_file) {
    const std::string outputs = outputs_of_scenario(workspace, scenario_file);
    if (outputs.empty())
        return View_outcome::no_output;
    Tilverra_scenario scenario;
    const bool is_read = TESK::VV_file(scenario_file.c_str()).get(scenario);
    workspace.host.run_with_file(suite_directory->get_tilverra_directory().get_output_manager_advanced_exe(),
                                 scenario.model_options->report_format, outputs);
    return is_read ? View_outcome::shown : View_outcome::shown_by_usual_format;
}
