#include "operations/scenario_catalogue.h"

#include "model/tilverra_scenario.h"
#include "platform/files.h"
#include "records/vv_file.h"

namespace {

constexpr const char* scenario_extension = "tvn";
constexpr const char* path_separators = "\\/:";

// Whether a scenario of that name, without its extension, has a folder of its own: a name of points alone
// stands for the folder of all scenarios or one above it, and blanks at the end do not count on every system.
bool has_own_folder(const std::string& name) {
    return name.find_first_not_of(". ") != std::string::npos;
}

} // namespace

std::string new_scenario_name(const std::string& typed) {
    const std::string name = typed.substr(typed.find_last_of(path_separators) + 1);
    return has_own_folder(name) ? name : std::string();
}

bool create_scenario(Project_workspace& workspace, const std::string& name, bool copies_active) {
    TVN_filename& active = workspace.project_parameters.active_scenario;
    if (!workspace.need_project_directory())
        return false;
    TESK::Smart_file_name template_file;
    if (copies_active)
        template_file = std::string(active);
    const TESK::Smart_directory_name& folder = workspace.scenarios_directory(Scenario_folder::created, true);
    // Behind the whole name: a point in it begins no extension, whatever the name before looked like.
    folder.append_to((name + '.' + scenario_extension).c_str(), active);
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

void delete_scenario(const TESK::Directory_name& folder, const std::string& file_name, bool permanently) {
    TESK::Smart_file_name file;
    folder.append_to(file_name.c_str(), file);
    file.recycle(permanently);
    if (!has_own_folder(file.get_name(false)))
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
