#include "trees/common_parameters_directory.h"

#include "platform/files.h"
#include "platform/profile.h"
#include "trees/places.h"
#include "trees/project_directory.h"

namespace TESK {

namespace {

constexpr std::uint8_t folder_has_desktop_ini = platform::attribute_system;

// The folder that a record file has of its own: its name without its extension. A name that is all extension
// lies in its folder already.
std::string own_folder_of(const File_name& file) {
    Directory_name folder = without_extension(file);
    folder.strip(Strip_mode::trailing, '.');
    return folder;
}

} // namespace

Directory_name without_extension(const File_name& file) {
    const bool has_extension = file.get_ext().find_first_of("\\/") == std::string::npos;
    return {Directory_name(file), has_extension};
}

Common_parameters_directory::Common_parameters_directory(const File_name& file, Directory_mode directory_mode,
                                                         bool create_folder)
    : mode(directory_mode), parameter_file(file) {
    parameter_file->qualify_in_root();
    switch (mode) {
    case Directory_mode::file_folder:
        if (parameter_file->exists())
            parameter_file->get_path(*this, false);
        break;
    case Directory_mode::own_folder:
    case Directory_mode::project_folder:
        if (create_folder || parameter_file->exists())
            set(own_folder_of(*parameter_file));
        break;
    case Directory_mode::containing_folder: parameter_file->get_path(*this, true); break;
    }
    if (create_folder)
        create();
}

Common_parameters_directory::Common_parameters_directory(const Directory_name& directory,
                                                         Directory_mode directory_mode, bool create_folder)
    : Smart_directory_name(directory), mode(directory_mode) {
    if (create_folder)
        create();
}

bool Common_parameters_directory::get_associated_filename(const char* name, Smart_file_name& result,
                                                          bool must_exist) const {
    result.set_name_ext(name);
    if (mode != Directory_mode::file_folder)
        result.set_path(*this);
    else if (parameter_file)
        result.set_name_ext((parameter_file->get_name(false) + "_" + name).c_str());
    return must_exist && result.exists();
}

bool Common_parameters_directory::get_backup_filename(Smart_file_name& result, bool must_exist) const {
    // Only the folder's own name counts: a point further up is no extension of it.
    Directory_name folder(*this);
    while (folder.ends_with('\\'))
        folder.set(folder.substr(0, folder.size() - 1));
    const File_name leaf(folder.get_name(true));
    return get_associated_filename(("backup" + leaf.get_ext()).c_str(), result, must_exist);
}

bool Common_parameters_directory::get_notes_filename(Smart_file_name& result, bool must_exist) const {
    return get_associated_filename("notes.txt", result, must_exist);
}

bool Common_parameters_directory::get_details_filename(Smart_file_name& result, bool must_exist) const {
    return get_associated_filename("details.htm", result, must_exist);
}

bool Common_parameters_directory::get_status_filename(Smart_file_name& result, bool must_exist) const {
    return get_associated_filename("status.txt", result, must_exist);
}

Smart_file_name& Common_parameters_directory::get_icon_filename(Smart_file_name& result,
                                                                int& icon_index) const {
    icon_index = 0;
    return result;
}

bool Common_parameters_directory::is_directory_of(const File_name& file) const {
    return own_folder_of(file) == *this;
}

bool Common_parameters_directory::find_project_directory(Common_project_directory& project) const {
    Directory_name working(*this);
    Directory_name parent("");
    while (true) {
        working.get_path(parent, true);
        project.set(parent);
        if (project.is_project_directory())
            return true;
        if (project.is_root() || project.empty())
            return false;
        project.get_path(working, true);
    }
}

bool Common_parameters_directory::get_parameter_filename(Smart_file_name& result) const {
    if (parameter_file)
        result.set(*parameter_file);
    return parameter_file.has_value();
}

void Common_parameters_directory::write_folder_icon() const {
    Smart_file_name icon;
    int icon_index = 0;
    if (!get_icon_filename(icon, icon_index).exists())
        return;
    const Smart_file_name file = file_in(*this, "desktop.ini");
    platform::write_profile_string(file, ".ShellClassInfo", "IconFile", icon);
    platform::write_profile_string(file, ".ShellClassInfo", "IconIndex", std::to_string(icon_index));
    platform::set_folder_attributes(*this, folder_has_desktop_ini);
}

bool copy_folder(const Directory_name& from, const Directory_name& to) {
    return platform::copy_tree(from, to).ok();
}

} // namespace TESK
