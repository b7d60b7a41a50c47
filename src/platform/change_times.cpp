#include "platform/change_times.h"

#include "platform/host_handle.h"
#include "platform/host_names.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <string>
#include <sys/stat.h>

namespace platform {

namespace {

constexpr int deepest_folder = 64;

Change_time time_in(const struct stat& status) {
    constexpr Change_time second = 1'000'000'000;
    return Change_time{status.st_mtim.tv_sec} * second + status.st_mtim.tv_nsec;
}

void add_folder(const Host_handle& folder, int depth, Folder_mark& mark) {
    Folder_stream entries(folder);
    while (const dirent* entry = entries.next()) {
        struct stat status {};
        if (fstatat(entries.descriptor(), entry->d_name, &status, AT_SYMLINK_NOFOLLOW) != 0)
            continue;
        if (S_ISDIR(status.st_mode)) {
            if (entry->d_name[0] != '.' && depth < deepest_folder)
                add_folder(Host_handle(openat(entries.descriptor(), entry->d_name,
                                              O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC)),
                           depth + 1, mark);
            continue;
        }
        ++mark.files;
        mark.bytes += static_cast<std::uint64_t>(status.st_size);
        mark.newest = std::max(mark.newest, time_in(status));
    }
    mark.is_whole = mark.is_whole && entries.error() == 0;
}

} // namespace

std::optional<Change_time> change_time(std::string_view name) {
    const std::string path = host_path(name);
    struct stat status {};
    if (path.empty() || stat(path.c_str(), &status) != 0)
        return std::nullopt;
    return time_in(status);
}

Folder_mark folder_mark(std::string_view name) {
    Folder_mark mark;
    const std::string path = host_path(name);
    if (path.empty())
        return mark;
    const Host_handle folder(open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    const bool is_absent = !folder.is_open() && (errno == ENOENT || errno == ENOTDIR);
    if (!is_absent)
        add_folder(folder, 0, mark);
    return mark;
}

} // namespace platform
