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

std::string folder_from_environment(const char* variable, const std::string& otherwise) {
    const char* folder = std::getenv(variable);
    return folder != nullptr && *folder == '/' ? folder : otherwise;
}

std::string user_data_folder() {
    return folder_from_environment("XDG_DATA_HOME", home_folder() + "/.local/share");
}

std::string user_config_folder() {
    return folder_from_environment("XDG_CONFIG_HOME", home_folder() + "/.config");
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
