// The working state of the project that is edited, apart from the screen: its record, its folders, and what
// is offered for which type of project.
#pragma once

#include "model/project_editor_parameters.h"
#include "operations/program_host.h"
#include "trees/database_directory.h"
#include "trees/project_directory.h"

#include <cstdint>
#include <memory>
#include <vector>

// The project file that a name means. One that is all extension keeps it; a file that is not there gets the
// extension of projects.
TVP_filename project_file_of(const std::string& name);

// Which of the two folders of scenarios is worked on.
enum class Scenario_folder { created, generated };

class Project_workspace {
public:
    // Both outlive the workspace. `project_type` is the type that the program was started for.
    Project_workspace(Tilverra_project_editor_parameters& record, Program_host& program_host,
                      Tilverra_project_type project_type)
        : project_parameters(record), host(program_host), requested_project_type(project_type) {}

    // Brings project_directory in step with the project's file, and makes the folder. False, with no
    // directory, as long as the project has not been saved.
    bool ensure_project_directory();
    // The same for what cannot do without: saves an unsaved project first, and makes the folder the current
    // one. False when there still is no directory.
    bool need_project_directory();
    // Makes the project's folder the current one, for the relative names of the record. False without one.
    bool enter_project_folder() const;

    // The folder of scenarios; needs a project directory.
    const TESK::Smart_directory_name& scenarios_directory(Scenario_folder folder, bool create) const;

    // Whether the project's file has no name but its extension: it is the one in which templates are kept.
    bool is_template_project() const;
    bool is_GIS() const { return requested_project_type == Tilverra_project_type::gis; }
    bool coverage_exists() const;
    bool active_scenario_exists() const;
    // Whether an active scenario is chosen that lies neither in the project's folder nor below it. False
    // without a project directory.
    bool active_scenario_is_outside() const;

    // The program that the form's run button starts on a page, and its caption; both empty for none.
    struct Run_choice {
        std::string program;
        std::string caption;
        bool template_ok = false; // whether the scenario that serves as template exists
    };
    Run_choice choose_run(bool on_optimization_page) const;

    Tilverra_project_editor_parameters& project_parameters;
    Program_host& host;
    Tilverra_project_type requested_project_type;
    std::unique_ptr<Tilverra_project_directory> project_directory; // null until there is one
    std::unique_ptr<Database_directory> master_database;           // null without a master folder
};

// The names of the attributes of a polygon attribute table, in its order, in code page 1252; none when it is
// not there or is no table.
std::vector<std::string> polygon_attributes(const TESK::File_name& table);
