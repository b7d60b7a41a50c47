// A directory name that can act on the directory: make it, list and search it, and delete what is in it.
#pragma once

#include "names/directory_name.h"

#include <cstdint>

namespace TESK {

class Container;
class Smart_file_name;

// What list_entries() lists.
constexpr std::uint8_t list_directories = 4;
constexpr std::uint8_t list_files = 8;

// Which entries to list, and how their names are to be.
struct Listing {
    std::uint8_t kind = list_files;      // any other value than list_files lists directories
    bool recurse = false;                // into every directory whose name does not begin with a point
    bool qualified = false;              // names with this directory in front
    bool with_extension = true;          // of files
    bool show_full_path = false;         // what the items show as their label
    bool show_extension = false;         // directories always show it
    const char* extension = nullptr;     // of files: none other; null for all
    const char* relative_path = nullptr; // what to put in front of names that are not qualified
};

class Smart_directory_name : public Directory_name {
public:
    // The current directory or, with a number that is not negative, the special folder of that number.
    explicit Smart_directory_name(int special_folder = -1);
    Smart_directory_name(const char* name) : Directory_name(name) {}
    Smart_directory_name(const std::string& name) : Directory_name(name) {}
    Smart_directory_name(const Directory_name& name) : Directory_name(name) {}
    using Directory_name::operator=;

    // Makes it the current directory. True on success.
    bool set_as_current() const;

    // Shows it in the desktop's file manager. True.
    int open() override;

    // Whether it is the root of a drive: "\", "C:" or "C:\".
    bool is_root() const;

    // Makes the directory and those above it that are missing. Whether it is there afterwards; "noname",
    // which stands for a name not yet given, is never made, and true.
    bool create() const;

    // Takes the name of a special folder of the user. False, and nothing changed, where there is none.
    bool set_special_folder(int folder);

    // Deletes the files below the directory and, unless `keep_root`, the directories too; a directory whose
    // name begins with a point stays, with all that is in it. A link is deleted, never followed. The names of
    // files that could not be deleted are appended to `failures`, each in double quotes with a comma and a
    // blank behind it; true when there are none. Leaves the current directory one above this directory's
    // parent, unless this one could not be entered: then nothing happens, and the result is true.
    bool remove_tree(Ustring& failures, bool keep_root);

    // Appends a new File_name or Directory_name for each entry to `out`, in the order of their names.
    void list_entries(Container& out, const Listing& listing) const;

    // The first file of that name, in any case, in this directory or below it. False when there is none.
    bool find_file(const Ustring& name, Smart_file_name& result) const;
};

} // namespace TESK
