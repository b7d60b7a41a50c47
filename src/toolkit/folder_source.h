// What the file lists and folder trees read folders through. Names are UTF-8 and of the program's own kind.
#pragma once

#include <string>
#include <vector>

struct Folder_entry {
    std::string name; // what is shown
    std::string path; // the whole name
};

class Folder_source {
public:
    virtual ~Folder_source() = default;
    // The files of a folder that fit one of the wildcards of `mask` ("*.dbf;*.lnk"), in the order in which
    // they are to be shown. An absent folder has none, an unreadable one those that could be read.
    virtual std::vector<Folder_entry> files(const std::string& folder, const std::string& mask) = 0;
    // Why the latest of files() is not whole, in the user's language; empty when it is.
    virtual std::string failure() const { return {}; }
    // The folders directly below a folder.
    virtual std::vector<Folder_entry> folders(const std::string& folder) = 0;
};

// What lists read through that were given no source of their own; null, and all folders are empty.
extern Folder_source* current_folder_source;
