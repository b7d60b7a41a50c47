// The folder that belongs to a record file, and the companions of the record that lie in it. No other code
// puts such a path together.
#pragma once

#include "names/smart_directory_name.h"
#include "names/smart_file_name.h"
#include "records/common_parameters.h"

#include <optional>

namespace TESK {

class Common_project_directory;

class Common_parameters_directory : public Smart_directory_name {
public:
    // The folder of a record file, by the mode:
    // - file_folder: the folder that holds the file, with its separator, if the file exists;
    // - own_folder, project_folder: the file's name without its extension, if the file exists or `create`;
    // - containing_folder: the folder that holds the file, whether that exists or not.
    // Otherwise it is the current folder. With `create` the folder is made.
    Common_parameters_directory(const File_name& file, Directory_mode directory_mode, bool create);
    // That folder; it belongs to no file.
    Common_parameters_directory(const Directory_name& directory, Directory_mode directory_mode, bool create);

    // Makes `result` the companion of that name: in this folder or, for a record without a folder of its own,
    // with the record's name and "_" in front and without a folder, so that two records of one folder do not
    // share it. True only when `must_exist` and it does.
    virtual bool get_associated_filename(const char* name, Smart_file_name& result, bool must_exist) const;
    // "backup" with the extension of this folder's own name.
    virtual bool get_backup_filename(Smart_file_name& result, bool must_exist) const;
    virtual bool get_notes_filename(Smart_file_name& result, bool must_exist) const;
    virtual bool get_details_filename(Smart_file_name& result, bool must_exist) const;
    virtual bool get_status_filename(Smart_file_name& result, bool must_exist) const;

    // Deletes what a run has left. True when all of it is gone.
    virtual bool clean_outputs() { return true; }

    // Makes `result` the icon of the folder and tells the index of the picture in it; a folder without an
    // icon leaves `result` alone. Returns `result`.
    virtual Smart_file_name& get_icon_filename(Smart_file_name& result, int& icon_index) const;
    // What kind of folder it is, for users; null for none.
    virtual const char* get_type_description() const { return nullptr; }

    // Whether this is the folder that a record file of that name has of its own.
    virtual bool is_directory_of(const File_name& file) const;

    // Climbs from this folder to the folder of its project, which `project` becomes. Each step climbs two
    // levels and looks at the lower one alone, so that a project at an even distance is passed over. False
    // when the root of the drive is reached; `project` is then the last folder looked at.
    virtual bool find_project_directory(Common_project_directory& project) const;

    // Makes `result` the record file. False when this folder belongs to none.
    virtual bool get_parameter_filename(Smart_file_name& result) const;

    // Has the desktop show the folder with its icon, where there is one: writes "desktop.ini".
    void write_folder_icon() const;

    Directory_mode mode;
    std::optional<Smart_file_name> parameter_file;
};

// The folder that bears a file's name without its extension. A point in a folder above begins no extension: a
// file without one gives its own name.
Directory_name without_extension(const File_name& file);

// Copies a folder with all that is in it, completely, before it answers. False when anything could not be
// copied, or when the target is the source or lies in it.
bool copy_folder(const Directory_name& from, const Directory_name& to);

} // namespace TESK
