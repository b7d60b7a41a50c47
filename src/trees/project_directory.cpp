#include "trees/project_directory.h"

#include "trees/suite_directory.h"

namespace TESK {

Common_project_directory::Common_project_directory(const File_name& project_file)
    : Common_parameters_directory(project_file, Directory_mode::project_folder, false) {
    get_path(parent_directory, true);
    parent_directory.set_as_current();
}

bool Common_project_directory::is_project_directory() const {
    return file_in(*this, "project").exists();
}

} // namespace TESK

Common_simulation_project_directory::Common_simulation_project_directory(const TESK::File_name& project_file)
    : Common_project_directory(project_file) {}

const TESK::Smart_directory_name&
Common_simulation_project_directory::made(const TESK::Smart_directory_name& folder, bool create) {
    if (create)
        folder.create();
    return folder;
}

const TESK::Smart_directory_name&
Common_simulation_project_directory::get_scenarios_directory(bool create_folder) const {
    return made(Scenarios, create_folder);
}

const TESK::Smart_directory_name&
Common_simulation_project_directory::get_generated_scenarios_directory(bool create_folder) const {
    return made(Generated_scenarios, create_folder);
}

const char*
Common_simulation_project_directory::get_operation_directory(const char* name,
                                                             TESK::Smart_directory_name& result) const {
    Operations.append_to(name, result, false);
    result.create();
    return result.c_str();
}

Tilverra_project_directory::Tilverra_project_directory(const TESK::File_name& project_file, std::uint8_t kind)
    : Common_simulation_project_directory(project_file), project_kind(kind) {}

Database_directory& Tilverra_project_directory::get_database_directory(bool create_folder) {
    if (database_ == nullptr)
        database_ = std::make_unique<Database_directory>(*this);
    made(*database_, create_folder);
    return *database_;
}

TESK::Smart_file_name& Tilverra_project_directory::get_icon_filename(TESK::Smart_file_name& result,
                                                                     int& icon_index) const {
    icon_index = 0;
    if (suite_directory == nullptr)
        return result;
    switch (static_cast<Tilverra_project_type>(project_kind)) {
    case Tilverra_project_type::gis:
        return suite_directory->get_icon_filename("TVSGIS_project_folder.ico", result);
    case Tilverra_project_type::watershed: return suite_directory->get_icon_filename("wmp.ico", result);
    default: return suite_directory->get_icon_filename("folder_project.ico", result);
    }
}

bool Tilverra_project_directory::get_parameter_filename(TESK::Smart_file_name& result) const {
    append_to(".TVS_project", result, false);
    if (result.exists())
        return true;
    // Behind the whole name: a point in it, or further up, begins no extension of a folder.
    result.set(*this + ".tvp");
    return result.exists();
}
