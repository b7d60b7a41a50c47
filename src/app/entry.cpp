#include "app/entry.h"

#include "foundation/code_page_1252.h"
#include "model/labels.h"
#include "model/project_editor_parameters.h"
#include "model/simulation_paths.h"
#include "names/typed_filenames.h"
#include "platform/host_names.h"
#include "platform/process.h"
#include "records/vv_file.h"
#include "trees/program_directory.h"
#include "trees/suite_directory.h"
#include "trees/user_settings.h"

#include <exception>
#include <memory>

namespace {

constexpr int exit_done = 0;
constexpr int exit_no_file = 1;
constexpr int normal_window = 1;
constexpr const char* suite_name = "TVS_suite";

// The version of the master simulation record.
constexpr std::uint8_t master_major = 4;
constexpr std::uint8_t master_release = 14;
constexpr std::uint8_t master_minor = 4;

// What a file of the command line is called in the suite. The suite's programs pass names, a user a path of
// the host.
std::string name_of_argument(const std::string& argument) {
    const bool is_name =
        argument.find('\\') != std::string::npos || (argument.size() > 1 && argument[1] == ':');
    return is_name || argument.empty() ? argument : platform::name_from_host_path(argument);
}

// The project file that the argument names. A name that is all extension keeps it.
TVP_filename make_project_file_name(const std::string& argument) {
    TVP_filename name(argument.c_str());
    if (name.get_name(false).empty())
        name = argument;
    return name;
}

// The folder of the master record: the suite's or, for a program that belongs to no installed suite, the
// user's.
TESK::Directory_name master_folder(const TESK::Directory_name& user_folder) {
    return suite_directory->is_suite_root() ? TESK::Directory_name(*suite_directory) : user_folder;
}

// Shows what the file holds: its name, and each section with its number of keys.
void show_file(const TESK::File_name& file, std::ostream& out) {
    TESK::Data_record record("project");
    const bool was_read = TESK::VV_file(file.c_str(), true).get(record);
    out << TESK::utf8_from_code_page(file) << (was_read ? "" : ": a new file") << '\n';
    for (const TESK::VV_section& section : record.all_sections())
        out << "  [" << TESK::utf8_from_code_page(section.label) << "] " << section.entries.count() << '\n';
}

// Makes the one object that knows the simulation folders, as long as the scope lives.
class Simulation_paths_scope {
public:
    explicit Simulation_paths_scope(std::unique_ptr<Simulation_paths> paths) : paths_(std::move(paths)) {
        simulation_paths = paths_.get();
    }
    Simulation_paths_scope(const Simulation_paths_scope&) = delete;
    Simulation_paths_scope& operator=(const Simulation_paths_scope&) = delete;
    ~Simulation_paths_scope() { simulation_paths = nullptr; }

private:
    std::unique_ptr<Simulation_paths> paths_;
};

int run(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err) {
    const std::size_t count = arguments.size() - 1;
    const TESK::Smart_file_name program_file_name(
        TESK::File_name(platform::set_program_file(arguments.front()).c_str()));
    const TESK::Program_directory local_program_directory(program_file_name);

    // These two live as long as the process.
    suite_directory = new TVS::Suite_Directory(program_file_name);
    program_directory = new TESK::Program_directory(program_file_name, false);
    const TESK::Application_data_directory application_data_directory(program_file_name);
    const Simulation_paths_scope paths_scope(
        Simulation_paths::setup(master_major, master_release, master_minor, suite_name,
                                master_folder(application_data_directory), application_data_directory));

    Tilverra_project_type_labeled project_type;
    TVP_filename project_file_name =
        make_project_file_name(count >= 1 ? name_of_argument(arguments[1]) : "noname");
    const Tilverra_project_editor_parameters project_parameters(
        suite_directory->get_tilverra_directory().get_model_exe().c_str());
    if (count == 2)
        project_type.set_label(arguments[2].c_str());
    project_file_name.qualify();
    if (count == 0) {
        err << "File name required now\n";
        return exit_no_file;
    }
    show_file(project_file_name, out);

    if (project_type == Tilverra_project_type::tilverra)
        platform::launcher().execute(suite_directory->get_suite_exe(), normal_window);
    // The master record is written at every normal end.
    simulation_paths->save();
    return exit_done;
}

} // namespace

int run_program(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err) {
    try {
        return run(arguments, out, err);
    } catch (const std::exception& exception) {
        err << exception.what() << '\n';
        return exit_done;
    }
}
