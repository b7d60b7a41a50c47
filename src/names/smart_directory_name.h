// The name of a folder that can be made, emptied, searched and listed.
//
// Folders are gone through by name, ignoring case. Folders below that begin with a point are not entered. A
// symbolic link to a folder is entered by the searching operations, but no folder twice by a link, so that
// every search ends; it is never entered to delete what is behind it.
#pragma once

#include "foundation/container.h"
#include "names/directory_name.h"
#include "names/smart_file_name.h"

#include <cstdint>

namespace TESK {

// What list_entries() lists.
constexpr std::uint8_t list_directories = 4;
constexpr std::uint8_t list_files = 8;

class Smart_directory_name : public Directory_name {
public:
    using Directory_name::Directory_name;
    using Directory_name::operator=;

    // A special folder of the user (the numbers are those of set_special_folder()), or the current directory
    // when the number is negative or there is no such folder.
    explicit Smart_directory_name(int special_folder = -1);

    // Makes it the current directory of the process; true on success.
    bool set_as_current() const;

    // Shows the folder in the desktop's file manager. True, whatever comes of it; 0, and nothing started, for
    // a name that no program can be handed.
    int open() const override;

    // Whether the text is that of the root of a drive: "\", "C:" or "C:\".
    bool is_root() const;

    // Makes the folder and the missing levels above it. True if it is there afterwards; also, with nothing
    // made, for "noname", the name of what the user has not named.
    bool create() const;

    // Takes the name of a folder of the user: 5 personal documents, 8 recent documents, 28 local application
    // data. False, with nothing changed, for other numbers and where the host has no such folder.
    bool set_special_folder(int folder);

    // Deletes the folder and all that is in it; with `keep_root` the files alone, and every folder stays.
    // Adds the name of each file that cannot be deleted to `failures`, as "name" with quotes, a comma and a
    // blank, and that of a folder whose files cannot be listed. True if all files were deleted, and when the
    // folder cannot be entered. A folder that holds a
    // drive is refused.
    //
    // Folders that begin with a point stay, and so does what holds them. Without `keep_root`, links to
    // folders are deleted, this one included.
    //
    // Afterwards a relative name is absolute, and the current directory of the process is one level above the
    // folder that held this one.
    bool remove_tree(std::string& failures, bool keep_root);

    // Appends a new name for each file (a File_name) or folder (a Directory_name) of this folder, and, when
    // `recurse`, of the folders below.
    // - qualified: the names are in this folder, with its text in front; otherwise behind `relative_path`,
    //   when that is not null, and behind the folders entered on the way.
    // - with_extension: whether files keep their extension.
    // - items_show_full_path, items_show_extension: what the items will show; folders always show their
    //   extension.
    // - kind: list_files or list_directories. Folders that begin with a point are left out.
    // - extension: when it is not null, only files with that extension are taken.
    // False when a folder could not be read: some of the names are missing then.
    bool list_entries(Container& out, bool recurse, bool qualified, bool with_extension,
                      bool items_show_full_path, bool items_show_extension, std::uint8_t kind,
                      const char* extension, const char* relative_path) const;

    // Sets `result` to the first file of the name, case ignored, in this folder or below; true if there is
    // one. A folder whose name begins with a point counts as a file here.
    bool find_file(const std::string& name, Smart_file_name& result) const;

private:
    // As remove_tree(), for all that is in this folder, whose name is absolute.
    bool remove_entries(std::string& failures, bool keep_folders) const;
};

} // namespace TESK
