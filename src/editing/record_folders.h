// The folders of the suite as the file lists of the screens read them.
#pragma once

#include "toolkit/folder_source.h"

class Record_folders : public Folder_source {
public:
    // The names are in order, ignoring case. Masks may have ";" or "|" between them.
    std::vector<Folder_entry> files(const std::string& folder, const std::string& mask) override;
    std::string failure() const override { return failure_; }
    // Folders whose names begin with a point are left out.
    std::vector<Folder_entry> folders(const std::string& folder) override;

private:
    std::string failure_;
};
