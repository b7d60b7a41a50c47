#include "platform/moving.h"

#include "platform/entry_names.h"
#include "platform/file_replacement.h"
#include "platform/file_steps.h"
#include "platform/host_handle.h"
#include "platform/host_names.h"

#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace platform {

namespace {

// Moves without replacing anything. Gives 0 or an error number.
int rename_to_free(const std::string& from, const std::string& to) {
    if (renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0)
        return 0;
    if (errno != EINVAL && errno != ENOSYS)
        return errno;
    // Some file systems cannot tell.
    if (host_entry_exists(to))
        return EEXIST;
    return std::rename(from.c_str(), to.c_str()) != 0 ? errno : 0;
}

std::uint64_t bytes_of(int folder, const char* entry) {
    struct stat state {};
    if (fstatat(folder, entry, &state, AT_SYMLINK_NOFOLLOW) != 0)
        return 0;
    if (S_ISREG(state.st_mode))
        return static_cast<std::uint64_t>(state.st_size);
    std::uint64_t bytes = 0;
    if (S_ISDIR(state.st_mode))
        if (const Host_handle below(openat(folder, entry, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
            below.is_open())
            for (const std::string& inner : entries_of(below).names)
                bytes += bytes_of(below.get(), inner.c_str());
    return bytes;
}

} // namespace

Write_result move_entry(std::string_view from, std::string_view to) {
    const std::string source = host_path(from);
    Write_result failure;
    const std::string target = path_to_write(to, failure);
    if (source.empty() || target.empty())
        return source.empty() ? write_failure(Write_error::absent) : failure;
    const std::string folder = host_folder_of(target);
    Folder_change left(host_folder_of(source));
    Folder_change entered(folder);
    const auto move = [&] {
        const int error = rename_to_free(source, target);
        errno = error;
        return error == 0 ? 0 : -1;
    };
    int error = outcome_of(Write_step::rename, move);
    if (error == ENOENT && host_entry_exists(source) && make_host_levels(folder) == 0)
        error = outcome_of(Write_step::rename, move);
    if (error == 0) {
        left.removed(host_entry_of(source));
        entered.added(host_entry_of(target));
    }
    return write_result_from_errno(error);
}

Write_result permission_to_remove(std::string_view name) {
    const std::string path = host_path(name);
    if (path.empty())
        return write_failure(Write_error::bad_name);
    const bool may_write = faccessat(AT_FDCWD, host_folder_of(path).c_str(), W_OK | X_OK, AT_EACCESS) == 0;
    return write_result_from_errno(may_write ? 0 : errno);
}

std::uint64_t bytes_below(std::string_view name) {
    const std::string path = host_path(name);
    return path.empty() ? 0 : bytes_of(AT_FDCWD, path.c_str());
}

bool flush_file_system(std::string_view folder) {
    return outcome_of(Write_step::flush, [&] {
               const Host_handle handle(open(host_path(folder).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
               return handle.is_open() ? syncfs(handle.get()) : -1;
           }) == 0;
}

} // namespace platform
