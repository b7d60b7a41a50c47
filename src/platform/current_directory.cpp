#include "platform/current_directory.h"

#include "platform/host_names.h"

#include <cstdlib>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

namespace platform {

namespace {

// Empty until it is first asked for.
std::string& directory_name() {
    static std::string name;
    return name;
}

bool is_current_directory(const char* path) {
    struct stat named {};
    struct stat current {};
    return path[0] == '/' && stat(path, &named) == 0 && stat(".", &current) == 0 &&
           named.st_dev == current.st_dev && named.st_ino == current.st_ino;
}

std::string host_current_directory() {
    const char* shell_directory = std::getenv("PWD");
    if (shell_directory != nullptr && is_current_directory(shell_directory))
        return shell_directory;
    const std::unique_ptr<char, decltype(&std::free)> directory(getcwd(nullptr, 0), &std::free);
    return directory ? directory.get() : "";
}

} // namespace

std::string current_directory() {
    std::string& name = directory_name();
    if (!name.empty())
        return name;
    const std::string path = host_current_directory();
    // A directory that was deleted has a path without a leading slash.
    if (!path.empty() && path.front() == '/')
        name = name_from_host_path(path);
    if (name.empty())
        change_directory("C:\\");
    return name;
}

bool change_directory(std::string_view name) {
    std::string full = full_name(name);
    if (full.empty() || chdir(host_path(full).c_str()) != 0)
        return false;
    directory_name() = std::move(full);
    return true;
}

void forget_current_directory() {
    directory_name().clear();
}

} // namespace platform
