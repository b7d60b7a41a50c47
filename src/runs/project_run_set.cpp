#include "runs/project_run_set.h"

#include <utility>

Run_set run_set_of(const Tilverra_project_editor_parameters& project,
                   const Tilverra_project_directory& directory, const std::string& project_file,
                   bool common_format, std::vector<std::string> scenarios) {
    Run_set set;
    set.project_file = project_file;
    set.folder = directory.substr(0, directory.find_last_not_of("\\/") + 1);
    set.model = project.cropping_system_model;
    if (common_format)
        set.report_format = project.report_format;
    set.scenarios = std::move(scenarios);
    return set;
}
