// What belongs to the user and not to the record that is edited: where a window stood, which page was open,
// which language was chosen. Kept in one file a program, with a section for each record file.
#pragma once

#include "names/smart_directory_name.h"
#include "names/smart_file_name.h"
#include "records/data_record.h"
#include "records/data_source.h"

#include <cstdint>

namespace TESK {

class User_settings {
public:
    virtual ~User_settings() = default;

    // Declares the settings in the record's current section. With `for_write` an empty recent_context is left
    // out; Application_data_directory declares it in any case, also when it saves.
    virtual bool setup_structure(Data_record& record, bool for_write);

    // The window, in pixels. A window is placed only when none of the four is 0.
    std::int16_t top = 0;
    std::int16_t left = 0;
    std::int16_t width = 0;
    std::int16_t height = 0;
    std::int16_t activepageindex = 0;
    Ustring active_control;
    bool auto_explore_context = false;
    bool advanced = false;
    Ustring recent_context;
    Ustring language;
};

// Writes the settings as the section that the record file's name makes; all other sections stay.
void write_settings(User_settings& settings, const std::string& section, Data_source& file);
// Reads them; what the file does not hold stays as it is.
void read_settings(User_settings& settings, const std::string& section, Data_source& file);

// The folder of a program's settings, in the user's folder for such data, named after the program's folder.
class Application_data_directory : public Smart_directory_name {
public:
    // Touches no disk.
    explicit Application_data_directory(const File_name& program);

    // Each writes or reads the file of settings. Failures are quiet.
    void save(User_settings& settings, const std::string& section) const;
    void load(User_settings& settings, const std::string& section) const;

    Smart_file_name settings_file;
};

} // namespace TESK
