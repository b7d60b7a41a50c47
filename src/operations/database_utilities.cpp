#include "operations/database_utilities.h"

#include "operations/parameter_folder.h"
#include "platform/command_line.h"
#include "platform/process.h"
#include "trees/program_directory.h"
#include "trees/suite_directory.h"

namespace {

// A folder of a database is made by itself only when it is asked for the first time, which the lists of files
// have done before.
bool enter(const TESK::Smart_directory_name& folder) {
    return folder.create() && folder.set_as_current();
}

} // namespace

Database_file_names& database_file_names() {
    static Database_file_names names;
    return names;
}

std::string run_utility(const std::string& program, const std::string& option, const std::string& file,
                        bool wait) {
    const std::string command = program + ' ' + platform::in_quotes(file) + ' ' + option;
    std::string refusal = platform::refusal_of_command(command);
    if (!refusal.empty())
        return refusal;
    if (wait)
        platform::launcher().create_and_wait(command, platform::normal_window);
    else
        platform::launcher().execute(command, platform::normal_window);
    return refusal;
}

std::string create_crop(Database_directory& database, const std::string& name, const std::string& option) {
    std::string refusal;
    TESK::Filtered_file_name& crop = database_file_names().CRP_filename;
    const std::string file_name = new_parameter_file_name(name, crop);
    if (!file_name.empty() && enter(database.get_crop_directory(true))) {
        crop.set(file_name);
        refusal =
            run_utility(suite_directory->get_tilverra_directory().get_crop_editor_exe(), option, crop, false);
    }
    database.set_as_current();
    return refusal;
}

std::string import_soils(Database_directory& database) {
    std::string refusal;
    const TESK::Smart_directory_name& folder = database.get_soil_directory(true);
    if (enter(folder))
        refusal =
            run_utility(suite_directory->get_tilverra_directory().get_soil_convertor_exe(), "", folder, true);
    database.set_as_current();
    return refusal;
}

std::string generate_managements(Database_directory& database) {
    const TESK::Smart_directory_name& folder = database.get_management_directory(true);
    if (!folder.create())
        return "";
    TESK::File_name generator = program_directory->program_file;
    generator.set_name("management_generator");
    return run_utility(generator, "", folder, false);
}
