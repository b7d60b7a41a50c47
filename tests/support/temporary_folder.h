// A folder on the host for tests that need real files, with the names that the suite has for what is in it.
#pragma once

#include "platform/host_names.h"
#include "support/temporary_tree.h"

#include <sstream>

class Temporary_folder : public Temporary_tree {
public:
    std::string name(const std::string& relative = "") const {
        return platform::name_from_host_path(path(relative));
    }
    // Makes a file, and the folders above it. Returns its name.
    std::string write(const std::string& relative, const std::string& contents) const {
        return platform::name_from_host_path(Temporary_tree::write(relative, contents));
    }
};
