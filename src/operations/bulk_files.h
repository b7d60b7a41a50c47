// Writes the scenarios of an operation that makes many in one folder, and notes what became of each.
#pragma once

#include "names/directory_name.h"
#include "operations/change_backups.h"
#include "operations/operation_outcome.h"

#include <string>
#include <unordered_map>
#include <vector>

class Bulk_files {
public:
    // Looks what is in the folder, which need not be there.
    explicit Bulk_files(const TESK::Directory_name& folder);

    // Why what is in the folder is not known; empty when it is.
    const std::string& failure() const { return failure_; }

    // The full name of a scenario by its file name, as it will be or, in whatever case, is written.
    std::string full_name(const std::string& file_name) const;
    // Whether it is there already.
    bool exists(const std::string& file_name) const;
    // All that are there, by their file names in lower case.
    const std::unordered_map<std::string, std::string>& present() const { return present_; }

    // Makes the folder and, with `backups`, which may be null, begins the set of the operation that will
    // write these scenarios. Gives why that cannot be; nothing when it can.
    std::string begin(const std::string& operation, const std::vector<std::string>& file_names,
                      Change_backups* backups);

    // Writes the scenario. An old one is moved into the backups before, and back when that fails; one that
    // cannot be moved stays.
    void write(const std::string& file_name, const std::string& text, Operation_outcome& outcome) const;

private:
    std::string in_folder(const std::string& file_name) const;

    const TESK::Directory_name folder_;
    std::unordered_map<std::string, std::string> present_; // the names in the folder by those in lower case
    std::string failure_;
    Change_backups* backups_ = nullptr;
};
