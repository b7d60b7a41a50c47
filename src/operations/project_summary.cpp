#include "operations/project_summary.h"

#include "operations/scenario_comparison.h"
#include "operations/scenario_overview.h"
#include "platform/moving.h"

namespace {

Project_summary::Named_file named_file(const TESK::File_name& file) {
    return {file, !platform::is_file(file), platform::is_out_of_reach(file)};
}

} // namespace

Project_summary summarize_project(Project_workspace& workspace) {
    const Tilverra_project_editor_parameters& record = workspace.project_parameters;
    const TESK::File_name file(workspace.host.project_file().c_str());
    Project_summary summary;
    summary.file = file;
    summary.folder = *workspace.project_directory;
    summary.type = record.project_type.get_label();
    summary.description = record.description;
    summary.model = named_file(record.cropping_system_model);
    summary.template_scenario = named_file(record.template_scenario);
    summary.active_scenario = named_file(record.active_scenario);
    std::vector<Finding> unreadable;
    std::string failure;
    const auto count_of = [&](const std::vector<std::string>& found) {
        if (!failure.empty())
            unreadable.push_back({Finding_weight::error, "", "", failure});
        return found.size();
    };
    const auto count = [&](Scenario_folder folder) {
        return count_of(list_scenarios(workspace.scenarios_directory(folder, false), &failure));
    };
    summary.scenarios = count(Scenario_folder::created);
    summary.generated = count(Scenario_folder::generated);
    // A list of them would make their folder.
    if (platform::is_folder(workspace.project_directory->get_scenario_comparison_directory(false)))
        summary.comparisons = count_of(list_comparisons(workspace, failure));
    summary.bytes = platform::file_size(file) + platform::bytes_below(*workspace.project_directory);
    summary.changed = platform::file_time(file);
    summary.findings = Project_check().check_project(file);
    summary.is_whole = unreadable.empty();
    summary.findings.insert(summary.findings.begin(), unreadable.begin(), unreadable.end());
    return summary;
}

std::string finding_text(const Finding& finding) {
    if (finding.section.empty())
        return finding.message;
    return finding.section + (finding.key.empty() ? "" : '.' + finding.key) + ": " + finding.message;
}
