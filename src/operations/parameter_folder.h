// The folder of a database that holds the parameter files of one kind: bringing files into it, and out of it.
// Nothing that a user has in it is ever written over.
#pragma once

#include "names/filtered_file_name.h"
#include "names/smart_directory_name.h"

#include <optional>

// The name of the file that a typed name means, in code page 1252: as it was typed, completed by the
// extension of the kind where it does not end in that, and without the folder that may have been typed with
// it. Empty when nothing is left that names a file.
std::string new_parameter_file_name(const std::string& typed, const TESK::Filtered_file_name& kind);

class Parameter_folder {
public:
    // No folder, in which nothing can be done.
    Parameter_folder() = default;
    // A folder that is missing is made when it is first needed, unless it is for others to make.
    Parameter_folder(const TESK::Directory_name& folder, bool may_be_made)
        : folder_(folder), may_be_made_(may_be_made) {}

    const TESK::Smart_directory_name& name() const { return folder_; }
    bool is_set() const { return !folder_.empty(); }

    // Copies the file into the folder under its own name. Gives the name of the copy; nothing when it could
    // not be made, or when the folder has a file of that name already.
    std::optional<TESK::Smart_file_name> add_copy(const TESK::File_name& source) const;

    // The file of the folder that a typed name means, as new_parameter_file_name() says. An empty file is
    // made where there is none. Nothing for a name that names no file, and when the file could not be made.
    std::optional<TESK::Smart_file_name> make_file(const std::string& typed,
                                                   const TESK::Filtered_file_name& kind) const;

private:
    bool is_ready() const;
    TESK::Smart_file_name file(const std::string& name) const;

    TESK::Smart_directory_name folder_{""};
    bool may_be_made_ = false;
};
