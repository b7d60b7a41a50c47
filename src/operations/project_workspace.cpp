#include "operations/project_workspace.h"

#include "foundation/code_page_1252.h"
#include "platform/files.h"
#include "tables/dbase_data_source.h"
#include "trees/suite_directory.h"

TVP_filename project_file_of(const std::string& name) {
    TVP_filename file(name.c_str());
    if (file.get_name(false).empty())
        file = name;
    return file;
}

bool Project_workspace::ensure_project_directory() {
    const TESK::File_name file(host.project_file().c_str());
    if (project_directory && !project_directory->is_directory_of(file))
        project_directory.reset();
    if (file.empty() || !file.exists()) {
        project_directory.reset();
        return false;
    }
    if (!project_directory) {
        project_directory = std::make_unique<Tilverra_project_directory>(
            file, static_cast<std::uint8_t>(requested_project_type));
        project_directory->create();
        if (project_directory->exists())
            project_directory->write_folder_icon();
    }
    return true;
}

bool Project_workspace::need_project_directory() {
    if (!ensure_project_directory() && !(host.save() && ensure_project_directory()))
        return false;
    enter_project_folder();
    return true;
}

bool Project_workspace::enter_project_folder() const {
    return project_directory && project_directory->set_as_current();
}

const TESK::Smart_directory_name& Project_workspace::scenarios_directory(Scenario_folder folder,
                                                                         bool create) const {
    return folder == Scenario_folder::generated ? project_directory->get_generated_scenarios_directory(create)
                                                : project_directory->get_scenarios_directory(create);
}

bool Project_workspace::is_template_project() const {
    return TESK::File_name(host.project_file().c_str()).get_name(true) == ".TVS_project";
}

bool Project_workspace::coverage_exists() const {
    return platform::is_file(project_parameters.GIS_parameters.coverage_PAT_filename);
}

bool Project_workspace::active_scenario_exists() const {
    return platform::is_file(project_parameters.active_scenario);
}

bool Project_workspace::active_scenario_is_outside() const {
    TVN_filename scenario = project_parameters.active_scenario;
    if (!project_directory || scenario.empty() || scenario.starts_with('<'))
        return false;
    enter_project_folder();
    scenario.qualify();
    std::string folder = *project_directory;
    if (!folder.ends_with('\\'))
        folder += '\\';
    return TESK::compare_ignoring_case(scenario.substr(0, folder.size()), folder) != 0;
}

Project_workspace::Run_choice Project_workspace::choose_run(bool on_optimization_page) const {
    TVN_filename scenario =
        is_template_project() ? project_parameters.template_scenario : project_parameters.active_scenario;
    scenario.qualify();
    Run_choice choice;
    choice.template_ok = platform::is_file(scenario); // an empty name is that of a folder
    if (suite_directory == nullptr)
        return choice;
    if (on_optimization_page) {
        choice.program = suite_directory->get_tilverra_directory().get_carbon_sequestration_optimizer_exe();
        choice.caption = "Run optimization";
    }
    if (project_parameters.project_type == Tilverra_project_type::gis && choice.template_ok &&
        coverage_exists()) {
        choice.program = suite_directory->get_tilverra_directory().get_GIS_runner_exe();
        choice.caption = "Run GIS";
    }
    return choice;
}

std::vector<std::string> polygon_attributes(const TESK::File_name& table) {
    std::vector<std::string> names;
    if (!platform::is_file(table))
        return names;
    TESK::Binary_file_fstream file(table.c_str(), false);
    TESK::dBase_data_source source(file);
    if (!source.read_structure())
        return names;
    for (const auto& field : TESK::Items_of<TESK::dBase_data_source::Field_item>(source.fields))
        names.push_back(field.name);
    return names;
}
