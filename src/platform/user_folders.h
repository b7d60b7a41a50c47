// The folders of the user on the host, by the XDG base directory rules, for the use of this folder alone.
#pragma once

#include <string>

namespace platform {

// The user's home folder: of the environment, else of the user database; "/" when neither knows one.
std::string home_folder();

// The folder that the environment variable names by an absolute path; `otherwise` where it names none.
std::string folder_from_environment(const char* variable, const std::string& otherwise);

// The folder for the user's data: $XDG_DATA_HOME when that is an absolute path, else ".local/share" at home.
std::string user_data_folder();

// The folder for the user's settings: $XDG_CONFIG_HOME when that is an absolute path, else ".config" at home.
std::string user_config_folder();

// Makes the host folder with the levels above it, for the user alone. False when it is not there afterwards.
bool make_host_folders(const std::string& path);

} // namespace platform
