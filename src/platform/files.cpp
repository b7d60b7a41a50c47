#include "platform/files.h"

#include "platform/entry_names.h"
#include "platform/file_replacement.h"
#include "platform/file_steps.h"
#include "platform/host_handle.h"
#include "platform/host_names.h"

#include <algorithm>
#include <cerrno>
#include <ctime>
#include <fcntl.h>
#include <sys/stat.h>

namespace platform {

namespace {

Entry_kind host_kind(const std::string& path) {
    struct stat state {};
    if (stat(path.c_str(), &state) != 0)
        return Entry_kind::absent;
    return S_ISREG(state.st_mode)   ? Entry_kind::file
           : S_ISDIR(state.st_mode) ? Entry_kind::folder
                                    : Entry_kind::other;
}

bool means_absent(int error_number) {
    return error_number == ENOENT || error_number == ENOTDIR || error_number == ENAMETOOLONG ||
           error_number == ELOOP;
}

constexpr std::size_t smallest_growth = 4096;

// Reads to the end, or to one byte more than the limit. False when the disk fails.
bool read_to_end(const Host_handle& file, std::size_t expected_size, std::size_t limit,
                 std::string& contents) {
    std::size_t length = 0;
    contents.resize(expected_size + 1);
    while (length <= limit) {
        if (length == contents.size())
            contents.resize(2 * length + smallest_growth);
        const ssize_t count = read(file.get(), contents.data() + length, contents.size() - length);
        if (count == 0)
            break;
        if (count > 0)
            length += static_cast<std::size_t>(count);
        else if (errno != EINTR)
            return false;
    }
    contents.resize(length);
    return true;
}

Packed_time packed(const std::tm& time) {
    const int year = time.tm_year - 80;
    if (year < 0)
        return {1 << 5 | 1, 0};
    if (year > 127)
        return {127 << 9 | 12 << 5 | 31, 23 << 11 | 59 << 5 | 29};
    return {
        static_cast<std::uint16_t>(year << 9 | (time.tm_mon + 1) << 5 | time.tm_mday),
        static_cast<std::uint16_t>(time.tm_hour << 11 | time.tm_min << 5 | std::min(time.tm_sec, 59) / 2)};
}

// Removes what an interrupted save left in a folder that has nothing else in it.
void remove_unfinished_saves(const std::string& path) {
    const Host_handle folder(open(path.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    const Host_entries entries = entries_of(folder);
    if (entries.error == 0 && std::all_of(entries.names.begin(), entries.names.end(), is_unfinished_save))
        for (const std::string& entry : entries.names)
            remove_host_entry(folder.get(), entry.c_str());
}

} // namespace

Entry_kind entry_kind(std::string_view name) {
    return host_kind(host_path(name));
}

bool exists(std::string_view name) {
    return entry_kind(name) != Entry_kind::absent;
}

bool is_file(std::string_view name) {
    return entry_kind(name) == Entry_kind::file;
}

bool is_folder(std::string_view name) {
    return entry_kind(name) == Entry_kind::folder;
}

bool is_out_of_reach(std::string_view name) {
    struct stat state {};
    return stat(host_path(name).c_str(), &state) != 0 && errno == EACCES;
}

bool is_link(std::string_view name) {
    struct stat state {};
    return lstat(host_path(name).c_str(), &state) == 0 && S_ISLNK(state.st_mode);
}

std::uint64_t file_size(std::string_view name) {
    struct stat state {};
    return stat(host_path(name).c_str(), &state) == 0 && S_ISREG(state.st_mode)
               ? static_cast<std::uint64_t>(state.st_size)
               : 0;
}

std::optional<Entry_identity> entry_identity(std::string_view name) {
    struct stat state {};
    if (stat(host_path(name).c_str(), &state) != 0)
        return std::nullopt;
    return Entry_identity{state.st_dev, state.st_ino};
}

std::optional<std::uint8_t> attributes(std::string_view name) {
    const std::string path = host_path(name);
    const Entry_kind kind = host_kind(path);
    if (kind == Entry_kind::absent)
        return std::nullopt;
    const int bits = (kind == Entry_kind::folder ? attribute_directory : attribute_archive) |
                     (is_write_protected(AT_FDCWD, path.c_str()) ? attribute_read_only : 0);
    return static_cast<std::uint8_t>(bits);
}

bool is_read_only(std::string_view name) {
    return (attributes(name).value_or(0) & attribute_read_only) != 0;
}

bool set_folder_attributes(std::string_view name, std::uint8_t /*bits*/) {
    return is_folder(name);
}

Read_result read_file(std::string_view name, std::size_t limit) {
    int listing_error = 0;
    const std::string path = host_path(name, &listing_error);
    struct stat state {};
    if (path.empty() || stat(path.c_str(), &state) != 0) {
        const bool is_absent = listing_error == 0 && (path.empty() || means_absent(errno));
        return {is_absent ? Read_outcome::absent : Read_outcome::unreadable, ""};
    }
    // Opening a device can already do something to it.
    if (!S_ISREG(state.st_mode))
        return {Read_outcome::unreadable, ""};
    const Host_handle file = open_to_read(path);
    if (!file.is_open() || fstat(file.get(), &state) != 0 || !S_ISREG(state.st_mode))
        return {Read_outcome::unreadable, ""};
    const auto size = static_cast<std::size_t>(state.st_size);
    if (size > limit)
        return {Read_outcome::too_large, ""};

    Read_result result{Read_outcome::read, ""};
    const int fault = fault_at(Write_step::read);
    if ((fault != 0 && fault != EINTR) || !read_to_end(file, size, limit, result.contents))
        return {Read_outcome::unreadable, ""};
    if (result.contents.size() > limit)
        return {Read_outcome::too_large, ""};
    return result;
}

std::optional<Packed_time> file_time(std::string_view name) {
    if (!is_file(name))
        return std::nullopt;
    const Host_handle file = open_to_read(host_path(name));
    struct stat state {};
    if (!file.is_open() || fstat(file.get(), &state) != 0)
        return std::nullopt;
    tzset();
    std::tm time{};
    if (localtime_r(&state.st_mtim.tv_sec, &time) == nullptr)
        time.tm_year = state.st_mtim.tv_sec < 0 ? 0 : 1000;
    return packed(time);
}

Delete_outcome delete_file(std::string_view name) {
    int listing_error = 0;
    const std::string path = host_path(name, &listing_error);
    struct stat state {};
    if (path.empty() || listing_error != 0)
        return path.empty() ? Delete_outcome::absent : Delete_outcome::failed;
    if (lstat(path.c_str(), &state) == 0 && S_ISREG(state.st_mode) && (state.st_mode & 0222) == 0)
        return Delete_outcome::denied;

    Folder_change change(host_folder_of(path));
    if (unlink(path.c_str()) == 0) {
        change.removed(host_entry_of(path));
        return Delete_outcome::deleted;
    }
    switch (errno) {
    case ENOENT:
    case ENOTDIR:
    case ENAMETOOLONG: return Delete_outcome::absent;
    case EACCES:
    case EPERM:
    case EROFS:
    case EISDIR:
    case EBUSY:
    case ETXTBSY: return Delete_outcome::denied;
    default: return Delete_outcome::failed;
    }
}

bool make_folder(std::string_view name) {
    int listing_error = 0;
    const std::string path = host_path(name, &listing_error);
    Folder_change change(host_folder_of(path));
    if (listing_error != 0 || mkdir(path.c_str(), 0777) != 0)
        return false;
    change.added(host_entry_of(path));
    return true;
}

bool make_folders(std::string_view name, Write_result* failure) {
    int listing_error = 0;
    const std::string path = host_path(name, &listing_error);
    Write_result result = path.empty() ? write_failure(Write_error::bad_name) : failed_lookup(listing_error);
    if (result.ok())
        result = write_result_from_errno(make_host_levels(path));
    if (failure != nullptr)
        *failure = result;
    return result.ok();
}

bool remove_folder(std::string_view name) {
    const std::string path = host_path(name);
    Folder_change change(host_folder_of(path));
    if (rmdir(path.c_str()) != 0) {
        if (errno != ENOTEMPTY && errno != EEXIST)
            return false;
        remove_unfinished_saves(path);
        if (rmdir(path.c_str()) != 0)
            return false;
    }
    change.removed(host_entry_of(path));
    return true;
}

bool remove_tree(std::string_view name) {
    int listing_error = 0;
    const std::string path = host_path(name, &listing_error);
    if (path.empty())
        return true;
    if (listing_error != 0 || holds_drive_root(name))
        return false;
    const std::string folder_path = host_folder_of(path);
    const Host_handle folder(open(folder_path.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    if (!folder.is_open())
        return means_absent(errno);
    const std::string entry = host_entry_of(path);
    Folder_change change(folder_path);
    if (!remove_host_entry(folder.get(), entry.c_str()))
        return false;
    change.removed(entry);
    return true;
}

} // namespace platform
