// What is in a folder, by names.
#pragma once

#include "platform/write_result.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

struct Folder_entry {
    std::string name;
    std::uint8_t attributes = 0; // as in files.h
    bool is_link = false;        // a symbolic link; the attributes are those of what it leads to
};

// Which attributes a listing tells.
enum class Listed_attributes {
    kind, // directory or archive: costs next to nothing
    all   // read-only too: the host is asked about each entry
};

struct Folder_listing {
    std::vector<Folder_entry> entries; // as many as could be read
    // Not ok when these are not all: the folder is not there (absent), or it cannot be read.
    Write_result result;

    bool ok() const { return result.ok(); }
    auto begin() const { return entries.begin(); }
    auto end() const { return entries.end(); }
    std::size_t size() const { return entries.size(); }
    bool empty() const { return entries.empty(); }
    const Folder_entry& operator[](std::size_t index) const { return entries[index]; }
};

// The entries of the folder whose names match the mask, in the order of the file system. Without an entry for
// the folder itself and the one above it, and without those that no name can reach or that a save in progress
// has made. Entries that differ only in case are all listed. A link to nowhere is listed as a file.
//
// In a mask "*" stands for any characters and "?" for any one character, and case does not count. "*.*"
// matches every name, and an ending ".*" also the lack of a point.
Folder_listing list_folder(std::string_view folder, std::string_view mask = "*.*",
                           Listed_attributes asked = Listed_attributes::kind);

// Whether the name matches the mask, by the same rules.
bool matches_mask(std::string_view name, std::string_view mask);

} // namespace platform
