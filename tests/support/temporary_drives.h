// Drives in a temporary folder, for tests that use real files: c: is an empty folder and the current
// directory, z: is the host's root. All of it is gone afterwards.
#pragma once

#include "platform/current_directory.h"
#include "platform/host_names.h"
#include "support/temporary_tree.h"

#include <optional>

// Sets an environment variable for a scope.
class Environment_guard {
public:
    Environment_guard(const char* variable, const std::string& value) : variable_(variable) {
        if (const char* old = std::getenv(variable))
            old_ = old;
        setenv(variable, value.c_str(), 1);
    }
    Environment_guard(const Environment_guard&) = delete;
    Environment_guard& operator=(const Environment_guard&) = delete;
    ~Environment_guard() { old_ ? setenv(variable_, old_->c_str(), 1) : unsetenv(variable_); }

private:
    const char* variable_;
    std::optional<std::string> old_;
};

class Temporary_drives {
public:
    Temporary_drives() {
        std::filesystem::create_directories(drives_folder());
        std::filesystem::create_directories(host());
        add_drive('c', "../c");
        add_drive('z', "/");
        user_data_guard_.emplace("XDG_DATA_HOME", user_data());
        guard_.emplace(drives_folder());
        platform::change_directory("C:\\");
    }

    // The host folder with the links of the drives; links that are added count from the next Drives_guard on.
    std::string drives_folder() const { return tree_.path("drives"); }
    void add_drive(char letter, const std::string& target) {
        std::filesystem::create_symlink(target, drives_folder() + "/" + letter + ":");
    }

    // The host path of a path below c:, with forward slashes.
    std::string host(const std::string& path = "") const {
        return tree_.path(path.empty() ? "c" : "c/" + path);
    }
    // The host path of the user's data directory, which is not made.
    std::string user_data() const { return tree_.path("data"); }

    // Writes a file below c:, with the folders above it.
    void write(const std::string& path, const std::string& contents = "") const {
        tree_.write("c/" + path, contents);
    }
    std::string read(const std::string& path) const { return tree_.read("c/" + path); }

private:
    Temporary_tree tree_;
    std::optional<Environment_guard> user_data_guard_;
    std::optional<platform::Drives_guard> guard_;
};
