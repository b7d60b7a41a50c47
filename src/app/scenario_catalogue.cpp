#include "app/scenario_catalogue.h"

#include "model/tilverra_scenario.h"
#include "platform/files.h"
#include "records/vv_file.h"

namespace {

constexpr const char* scenario_extension = "tvn";

} // namespace

bool create_scenario(Project_workspace& workspace, const std::string& name, bool copies_active) {
    TVN_filename& active = workspace.project_parameters.active_scenario;
    if (!workspace.need_project_directory() || !workspace.enter_project_folder())
        return false;
    TESK::Smart_file_name template_file;
    if (copies_active)
        template_file = std::string(active);
    const TESK::Smart_directory_name& folder = workspace.scenarios_directory(Scenario_folder::created, true);
    active.set_name(name.c_str());
    active.set_ext(scenario_extension);
    active.set_path(folder);
    if (!active.exists() && !template_file.empty() && template_file.exists())
        platform::copy_file(template_file, active);
    return true;
}

void import_version_3_scenarios(Project_workspace& workspace, const std::vector<std::string>& files) {
    for (const std::string& file : files) {
        Tilverra_scenario scenario;
        TESK::VV_file(file.c_str()).get(scenario);
        if (!workspace.need_project_directory())
            return;
        TESK::Smart_file_name target(file.c_str());
        target.set_ext(scenario_extension);
        target.set_path(workspace.scenarios_directory(Scenario_folder::created, true));
        TESK::VV_file(target.c_str()).set(scenario);
    }
}

// A name that is all extension has no folder of its own: without the extension it would be the folder of all
// scenarios.
void delete_scenario(const TESK::Directory_name& folder, const std::string& file_name, bool permanently) {
    TESK::Smart_file_name file;
    folder.append_to(file_name.c_str(), file);
    file.recycle(permanently);
    if (file.get_name(false).empty())
        return;
    const TESK::Directory_name outputs(TESK::Directory_name(std::string(file)), true);
    if (platform::is_folder(outputs))
        outputs.recycle(permanently);
}

void complete_active_scenario(Project_workspace& workspace, Scenario_folder folder) {
    TVN_filename& active = workspace.project_parameters.active_scenario;
    if (active.starts_with('<') || active.empty() || !workspace.ensure_project_directory())
        return;
    workspace.enter_project_folder();
    if (active.exists())
        return;
    active.set_ext(scenario_extension);
    active.set_path(workspace.scenarios_directory(folder, true));
}
