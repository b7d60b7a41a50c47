#include "model/simulation_paths.h"

#include "platform/files.h"
#include "records/vv_file.h"

Simulation_paths* simulation_paths = nullptr;

namespace {

constexpr std::uint8_t master_parameter_type = 1;

} // namespace

Simulation_paths::Master_simulation_parameters::Master_simulation_parameters(Record_version version,
                                                                             const char* application_name)
    : Common_parameters_data_record(master_parameter_type, version, application_name) {
    set_preserve_unexpected(true);
}

void Simulation_paths::Master_simulation_parameters::expect_structure(bool for_write) {
    Common_parameters_data_record::expect_structure(for_write);
    make_primary_section_current();
    expect_string("master_simulation_directory", master_simulation_directory, 255);
}

void Simulation_paths::Master_simulation_parameters::postread() {
    Common_parameters_data_record::postread();
    master_simulation_directory.decompose();
}

Simulation_paths::Simulation_paths(Record_version version, const char* application_name)
    : Smart_directory_name(""), parameters(version, application_name) {}

std::unique_ptr<Simulation_paths> Simulation_paths::setup(std::uint8_t major, std::uint8_t release,
                                                          std::uint8_t minor, const char* application_name,
                                                          const TESK::Directory_name& suite_folder,
                                                          const TESK::Directory_name& user_folder) {
    std::unique_ptr<Simulation_paths> paths(new Simulation_paths({major, release, minor}, application_name));
    const TESK::File_name file(application_name, "ini");
    TESK::File_name suite_file;
    suite_folder.append_to(file.c_str(), suite_file, false);
    TESK::File_name user_file;
    user_folder.append_to(file.c_str(), user_file, false);

    const bool suite_is_writable = platform::is_folder(suite_folder) && !platform::is_read_only(suite_folder);
    paths->file_ = suite_is_writable ? suite_file : user_file;
    paths->file_folder_ = suite_is_writable ? suite_folder : user_folder;
    // A file that is there and cannot be read is not passed over: saving would replace it by another.
    const TESK::File_name& source = paths->file_.exists() ? paths->file_ : suite_file;
    TESK::VV_file(source.c_str()).get(paths->parameters);
    paths->set_paths();
    return paths;
}

void Simulation_paths::set_paths() {
    set(parameters.master_simulation_directory.c_str());
    append_to("Projects", projects_directory, false);
}

void Simulation_paths::save() {
    file_folder_.create();
    TESK::VV_file(file_.c_str()).set(parameters);
}
