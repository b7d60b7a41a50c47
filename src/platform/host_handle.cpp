#include "platform/host_handle.h"

#include <dirent.h>
#include <fcntl.h>
#include <string_view>
#include <sys/stat.h>

namespace platform {

Host_handle open_to_read(const std::string& path) {
    return Host_handle(open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
}

std::vector<std::string> entries_of(const Host_handle& folder) {
    std::vector<std::string> entries;
    // The stream closes what it reads from, so it gets a descriptor of its own.
    Host_handle own(openat(folder.get(), ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    DIR* stream = own.is_open() ? fdopendir(own.get()) : nullptr;
    if (stream == nullptr)
        return entries;
    own.release();
    while (const dirent* entry = readdir(stream))
        if (const std::string_view name = entry->d_name; name != "." && name != "..")
            entries.emplace_back(name);
    closedir(stream);
    return entries;
}

bool has_write_permission(int folder_descriptor, const char* entry) {
    struct stat state {};
    return faccessat(folder_descriptor, entry, W_OK, AT_EACCESS) == 0 &&
           fstatat(folder_descriptor, entry, &state, 0) == 0 && (state.st_mode & 0222) != 0;
}

} // namespace platform
