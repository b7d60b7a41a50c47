// One program that stands in for every other program of the suite, so that a project can be worked on where
// none of them is installed. By which name it is started decides for which. It says that it is a stand-in,
// adds its command line to a log, and does what works.h tells.
//
// The log is the file that the environment variable TVS_STAND_IN_LOG names (a path of the host), or else
// "stand_in_log.txt" in the master simulation folder.

#include "foundation/code_page_1252.h"
#include "model/simulation_paths.h"
#include "platform/host_names.h"
#include "platform/process.h"
#include "records/vv_file.h"
#include "trees/suite_directory.h"
#include "works.h"

#include <csignal>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>

namespace {

struct Role {
    const char* program; // without its extension
    const char* stands_for;
    int (*work)(const Arguments& arguments, std::ostream& out);
};

constexpr Role roles[] = {
    {"tilverra_5", "the simulation model", run_model},
    {"tilverra_4", "the simulation model", run_model},
    {"scenario_editor", "the scenario editor", edit_scenario},
    {"output_manager_advanced", "the viewer of outputs", view_output},
    {"compare", "the comparison of outputs", compare_tables},
    {"GIS_runner", "the runner of polygons", run_polygons},
    {"carbon_sequestration_optimizer", "the optimizer of grazing", optimize_grazing},
    {"carbon_sequestration_viewer", "the viewer of optimizations", view_optimization},
    {"TVS_explorer", "the suite's explorer", explore_folder},
    {"TVS_suite", "the suite's launcher", name_files},
    {"Skymill", "the weather generator", name_files},
    {"crop_editor", "the crop editor", name_files},
    {"soil_convertor", "the convertor of soils", name_files},
    {"format_editor", "the editor of report formats", name_files},
    {"database_editor", "the database editor", name_files},
    {"import_wizard", "the import of weather databases", name_files},
    {"export_wizard", "the export of weather databases", name_files},
    {"XEB_spatial_interpolator", "the interpolator of weather", name_files},
};

const Role* find_role(const std::string& program) {
    const std::string stem = std::filesystem::path(program).stem().string();
    for (const Role& role : roles)
        if (TESK::equal_ignoring_case(stem, role.program))
            return &role;
    return nullptr;
}

// The host path of the log.
std::string log_path(const std::string& program_name) {
    if (const char* path = std::getenv("TVS_STAND_IN_LOG"))
        return path;
    constexpr Record_version version{4, 14, 4};
    Simulation_paths::Master_simulation_parameters master(version, "TVS_suite");
    TVS::Suite_Directory suite{TESK::File_name(program_name.c_str())};
    TESK::File_name file("TVS_suite.ini");
    file.set_path(suite);
    TESK::VV_file(file.c_str()).get(master);
    file = "stand_in_log.txt";
    file.set_path(master.master_simulation_directory);
    return platform::host_path(file);
}

// One line: the program and its arguments, each in quotes.
bool add_to_log(const std::string& program_name, const Arguments& arguments) {
    std::string line = '"' + shown(program_name) + '"';
    for (const std::string& argument : arguments)
        line += " \"" + shown(argument) + '"';
    std::ofstream log(log_path(program_name), std::ios::binary | std::ios::app);
    log << line + '\n' << std::flush;
    return log.good();
}

int run(const std::string& program, const Arguments& arguments) {
    const Role* role = find_role(program);
    if (role == nullptr) {
        std::cerr << "This program stands in for programs of the suite, under their names.\n";
        return exit_misused;
    }
    std::cout << role->program << ": a stand-in for " << role->stands_for << ".\n";
    if (!add_to_log(platform::set_program_file(program), arguments))
        std::cerr << "The command line could not be added to the log.\n";
    return role->work(arguments, std::cout);
}

} // namespace

int main(int argc, char** argv) {
    // The work is to be done also where nobody listens any more.
    std::signal(SIGPIPE, SIG_IGN);
    try {
        return run(argc > 0 ? argv[0] : "", Arguments(argv + (argc > 0 ? 1 : 0), argv + argc));
    } catch (const std::exception& exception) {
        std::cerr << exception.what() << '\n';
        return exit_failed;
    }
}
