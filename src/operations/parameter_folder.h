// The folder of a database that holds the parameter files of one kind: bringing files into it, and out of it.
// Nothing that a user has in it is ever written over.
#pragma once

#include "names/filtered_file_name.h"
#include "names/smart_directory_name.h"
#include "operations/operation_outcome.h"
#include "platform/write_result.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

// The name of the file that a typed name means, in code page 1252: as it was typed, completed by the
// extension of the kind where it does not end in that, and without the folder that may have been typed with
// it. Empty when nothing is left that names a file.
std::string new_parameter_file_name(const std::string& typed, const TESK::Filtered_file_name& kind);

// A file that has come into the folder.
struct Added_file {
    std::optional<TESK::Smart_file_name> name;
    std::string refusal; // why there is none, a plain English sentence; "" where nothing was asked for
};

class Parameter_folder {
public:
    // No folder, in which nothing can be done.
    Parameter_folder() = default;
    // A folder that is missing is made when it is first needed, unless it is for others to make.
    Parameter_folder(const TESK::Directory_name& folder, bool may_be_made)
        : folder_(folder), may_be_made_(may_be_made) {}

    const TESK::Smart_directory_name& name() const { return folder_; }
    bool is_set() const { return !folder_.empty(); }

    // Copies the file into the folder under its own name. Gives the name of the copy; refused when it could
    // not be made, or when the folder has a file of that name already.
    Added_file add_copy(const TESK::File_name& source) const;

    // The file of the folder that a typed name means, as new_parameter_file_name() says. An empty file is
    // made where there is none. Nothing for a name that names no file; refused when the file could not be
    // made.
    Added_file make_file(const std::string& typed, const TESK::Filtered_file_name& kind) const;

private:
    using Maker = std::function<platform::Write_result(const std::string& file)>;

    bool is_ready() const;
    // Has a file of that name made, unless there is one.
    Added_file add(const std::string& name, const Maker& make) const;
    TESK::Smart_file_name file(const std::string& name) const;

    TESK::Smart_directory_name folder_{""};
    bool may_be_made_ = false;
};

// Moves the files (full names) to the user's trash, and says which stayed.
Operation_outcome delete_parameter_files(const std::vector<std::string>& files,
                                         const Operation_progress& progress);
