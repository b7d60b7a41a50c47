// The installed suite: where its programs, icons and shared files lie, found from this program's own file. No
// other code puts such a path together.
#pragma once

#include "names/smart_directory_name.h"
#include "names/smart_file_name.h"
#include "trees/program_directory.h"

#include <map>
#include <memory>
#include <string>

namespace TESK {

// The folder of one family of the suite's programs.
class Application_directory : public Smart_directory_name {
public:
    Application_directory(const Directory_name& folder, const char* manual, const char* icons)
        : Smart_directory_name(folder), manual_folder_name(manual), icons_folder_name(icons) {}

    const Smart_directory_name& get_manual_directory();
    const Smart_directory_name& get_icons_directory();

    // Makes `result` the file of that name in the folder of icons, and returns it.
    virtual Smart_file_name& get_icon_filename(const char* name, Smart_file_name& result);
    virtual void reset();

    const std::string manual_folder_name;
    const std::string icons_folder_name;

protected:
    // The file of that name in this folder, kept from its first call on.
    const File_name& get_program(const char* name);

private:
    std::unique_ptr<Smart_directory_name> manual_directory_;
    std::unique_ptr<Smart_directory_name> icons_directory_;
    std::map<std::string, File_name> programs_;
};

// The root of a suite.
class Suite_directory : public Smart_directory_name {
public:
    explicit Suite_directory(const Directory_name& folder) : Smart_directory_name(folder) {}

    const Smart_directory_name& get_common_directory();
    const Smart_directory_name& get_icons_directory();

    // Whether this folder is the root: the general suite does not know.
    virtual bool is_suite_root() { return false; }
    // Forgets the folders and files that were asked for.
    virtual void reset();
    // Makes `result` the file of that name in the folder of icons, and returns it.
    virtual Smart_file_name& get_icon_filename(const char* name, Smart_file_name& result);

    const std::string documentation_folder_name = "Documentation";
    const std::string manual_folder_name = "Manual";
    const std::string icons_folder_name = "Icons";
    Smart_file_name started_from; // the program that the suite was found from

private:
    std::unique_ptr<Smart_directory_name> common_directory_;
    std::unique_ptr<Smart_directory_name> icons_directory_;
};

} // namespace TESK

namespace XEB {

// The tools for environmental databases.
class Application_directory : public TESK::Application_directory {
public:
    explicit Application_directory(const TESK::Directory_name& folder)
        : TESK::Application_directory(folder, "Manual", "Icons") {}

    const TESK::File_name& get_import_wizard_exe() { return get_program("import_wizard.exe"); }
    const TESK::File_name& get_export_wizard_exe() { return get_program("export_wizard.exe"); }
    const TESK::File_name& get_spatial_interpolator_exe() {
        return get_program("spatial\\interpolation\\XEB_spatial_interpolator.exe");
    }
    const TESK::File_name& get_compare_exe() { return get_program("compare.exe"); }
};

} // namespace XEB

namespace TVS {

class Application_directory : public TESK::Application_directory {
public:
    explicit Application_directory(const TESK::Directory_name& folder)
        : TESK::Application_directory(folder, "Manual", "Icons") {}
};

// The simulation model and its editors.
class Tilverra_Directory : public Application_directory {
public:
    using Application_directory::Application_directory;

    // "tilverra_5.exe" or, where that is not there at the first call, "tilverra_4.exe".
    const TESK::File_name& get_model_exe();
    const TESK::File_name& get_crop_editor_exe() { return get_program("crop_editor.exe"); }
    const TESK::File_name& get_scenario_editor_exe() { return get_program("scenario_editor.exe"); }
    const TESK::File_name& get_soil_convertor_exe() { return get_program("soil_convertor.exe"); }
    const TESK::File_name& get_carbon_sequestration_optimizer_exe() {
        return get_program("carbon_sequestration_optimizer.exe");
    }
    const TESK::File_name& get_carbon_sequestration_viewer_exe() {
        return get_program("carbon_sequestration_viewer.exe");
    }
    const TESK::File_name& get_GIS_runner_exe() { return get_program("GIS_runner.exe"); }
    const TESK::File_name& get_format_editor_exe() { return get_program("format_editor.exe"); }
    const TESK::File_name& get_database_editor_exe() { return get_program("database_editor.exe"); }
    const TESK::File_name& get_output_manager_advanced_exe() {
        return get_program("output_manager_advanced.exe");
    }

private:
    TESK::Smart_file_name model_exe_;
};

// A sibling application and its database. This program makes no object of them.
class Dorvo_Directory : public Application_directory {
public:
    ~Dorvo_Directory() override;
};
class Dorvo_Database_directory : public TESK::Smart_directory_name {
public:
    ~Dorvo_Database_directory() override;
};

// The weather generator.
class Skymill_Directory : public TESK::Program_directory {
public:
    using TESK::Program_directory::Program_directory;
};

class Suite_Directory : public TESK::Suite_directory {
public:
    // Finds the suite's root upward from the program's file: the first folder that holds "Skymill" or
    // "Tilverra". When there is none it stands on the last folder tried; with a drive's root as the current
    // folder it does not look, and stays there.
    explicit Suite_Directory(const TESK::File_name& program);

    bool is_suite_root() override;
    void reset() override;

    Tilverra_Directory& get_tilverra_directory();
    XEB::Application_directory& get_XEB_directory();
    Skymill_Directory& get_skymill_directory();
    const TESK::File_name& get_skymill_exe();
    const TESK::File_name& get_explorer_exe();
    const TESK::File_name& get_suite_exe();

private:
    bool find_suite_root(const TESK::Directory_entry_name& program);

    std::unique_ptr<Tilverra_Directory> tilverra_directory_;
    std::unique_ptr<XEB::Application_directory> XEB_directory_;
    std::unique_ptr<Skymill_Directory> skymill_directory_;
    std::unique_ptr<TESK::File_name> skymill_exe_;
    std::unique_ptr<TESK::File_name> explorer_exe_;
    std::unique_ptr<TESK::File_name> suite_exe_;
};

} // namespace TVS

// The address of the suite's site, under which its documentation mirrors the suite's own folders: what the
// environment variable TVS_WEB_ADDRESS says, or one that only stands for such an address.
std::string suite_web_address();

// The suite that this program belongs to; null before the start.
extern TVS::Suite_Directory* suite_directory;
