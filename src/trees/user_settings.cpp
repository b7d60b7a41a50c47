#include "trees/user_settings.h"

#include "platform/folder_lock.h"
#include "platform/shell.h"
#include "records/vv_file.h"

#include <algorithm>

namespace TESK {

namespace {

// The one character that a section's name cannot hold is replaced.
std::string section_name(std::string section) {
    std::replace(section.begin(), section.end(), ']', ')');
    return section;
}

} // namespace

bool User_settings::setup_structure(Data_record& record, bool for_write) {
    record.expect_int16("top", top);
    record.expect_int16("left", left);
    record.expect_int16("width", width);
    record.expect_int16("height", height);
    record.expect_int16("activepageindex", activepageindex);
    record.expect_string("active_control", active_control, 255);
    record.expect_string("language", language, 50);
    record.expect_bool("advanced", advanced);
    record.expect_bool("auto_explore_context", auto_explore_context);
    if (!for_write || !recent_context.empty())
        record.expect_string("recent_context", recent_context, 255);
    return true;
}

void write_settings(User_settings& settings, const std::string& section, Data_source& file) {
    Data_record record(section_name(section));
    record.set_preserve_unexpected(true);
    record.expect_structure(true);
    settings.setup_structure(record, false);
    file.set(record);
}

void read_settings(User_settings& settings, const std::string& section, Data_source& file) {
    Data_record record(section_name(section));
    record.expect_structure(false);
    settings.setup_structure(record, false);
    file.get(record);
}

Application_data_directory::Application_data_directory(const File_name& program)
    : Smart_directory_name(platform::folder_local_application_data),
      settings_file(std::string(program.get_name(false) + ".ini").c_str()) {
    Directory_name program_folder("");
    program.get_path(program_folder, true);
    const std::string leaf = program_folder.get_name(true);
    if (!leaf.empty())
        append_to(leaf.c_str(), *this, false);
    settings_file.set_path(*this);
}

void Application_data_directory::save(User_settings& settings, const std::string& section) const {
    create();
    // What another program writes at the same moment would be missing in the file that is read and written
    // here.
    const platform::Folder_lock lock(*this);
    if (lock.is_refused())
        return;
    VV_file file(settings_file.c_str());
    write_settings(settings, section, file);
}

void Application_data_directory::load(User_settings& settings, const std::string& section) const {
    VV_file file(settings_file.c_str());
    read_settings(settings, section, file);
}

} // namespace TESK
