#include "platform/user_folders.h"

#include <cstdlib>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

namespace platform {

std::string home_folder() {
    const char* home = std::getenv("HOME");
    if (home != nullptr && *home == '/')
        return home;
    const passwd* user = getpwuid(getuid());
    return user != nullptr && user->pw_dir != nullptr && *user->pw_dir == '/' ? user->pw_dir : "/";
}

namespace {

std::string user_folder(const char* variable, const char* at_home) {
    const char* folder = std::getenv(variable);
    return folder != nullptr && *folder == '/' ? folder : home_folder() + at_home;
}

} // namespace

std::string user_data_folder() {
    return user_folder("XDG_DATA_HOME", "/.local/share");
}

std::string user_config_folder() {
    return user_folder("XDG_CONFIG_HOME", "/.config");
}

bool make_host_folders(const std::string& path) {
    for (std::size_t end = path.find('/', 1);; end = path.find('/', end + 1)) {
        mkdir(path.substr(0, end).c_str(), 0700);
        if (end == std::string::npos)
            break;
    }
    struct stat state {};
    return stat(path.c_str(), &state) == 0 && S_ISDIR(state.st_mode);
}

} // namespace platform
