// A folder on the host that lives as long as the object, for tests that need real files.
#pragma once

#include "platform/host_names.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

class Temporary_folder {
public:
    Temporary_folder() {
        std::string pattern = std::filesystem::temp_directory_path() / "editor_test_XXXXXX";
        path_ = ::mkdtemp(pattern.data());
    }
    ~Temporary_folder() {
        std::error_code ignored;
        std::filesystem::permissions(path_, std::filesystem::perms::owner_all, ignored);
        std::filesystem::remove_all(path_, ignored);
    }
    Temporary_folder(const Temporary_folder&) = delete;
    Temporary_folder& operator=(const Temporary_folder&) = delete;

    // The host path of the folder, or of something in it ("a/b").
    std::string path(const std::string& relative = "") const {
        return relative.empty() ? path_ : path_ + "/" + relative;
    }
    // The same as a name of the suite.
    std::string name(const std::string& relative = "") const {
        return platform::name_from_host_path(path(relative));
    }

    // Makes a file, and the folders above it. Returns its name.
    std::string write(const std::string& relative, const std::string& contents) const {
        std::filesystem::create_directories(std::filesystem::path(path(relative)).parent_path());
        std::ofstream(path(relative), std::ios::binary) << contents;
        return name(relative);
    }
    std::string read(const std::string& relative) const {
        std::ifstream in(path(relative), std::ios::binary);
        return (std::ostringstream() << in.rdbuf()).str();
    }
    bool has(const std::string& relative) const { return std::filesystem::exists(path(relative)); }

private:
    std::string path_;
};
