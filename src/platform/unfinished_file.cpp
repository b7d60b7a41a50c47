#include "platform/unfinished_file.h"

#include "platform/entry_names.h"

#include <cerrno>
#include <cstdio>
#include <ctime>
#include <fcntl.h>
#include <map>
#include <sys/file.h>
#include <unistd.h>
#include <utility>

namespace platform {

namespace {

bool lock(const Host_handle& handle) {
    return flock(handle.get(), LOCK_EX | LOCK_NB) == 0;
}

// Whether the entry has still a name: somebody may have cleared it away before it was locked.
bool has_name(const Host_handle& handle) {
    struct stat state {};
    return fstat(handle.get(), &state) == 0 && state.st_nlink > 0;
}

// A link cannot be locked, and is unfinished for a moment only.
bool is_old_link(int folder, const char* entry) {
    constexpr std::time_t long_enough = 3600;
    struct stat state {};
    return fstatat(folder, entry, &state, AT_SYMLINK_NOFOLLOW) == 0 && S_ISLNK(state.st_mode) &&
           std::time(nullptr) - state.st_mtim.tv_sec > long_enough;
}

void clear_if_nobody_holds(const std::string& folder, const Host_handle& folder_handle,
                           const std::string& entry, std::vector<Copy_undo>& copies) {
    const Host_handle handle(
        openat(folder_handle.get(), entry.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    if (!(handle.is_open() ? lock(handle) : is_old_link(folder_handle.get(), entry.c_str())))
        return;
    Copy_undo undo(join_host_path(folder, entry), folder);
    bool may_be_removed = true;
    if (undo.read() != ENOENT) {
        may_be_removed = undo.take_back();
        copies.push_back(std::move(undo));
    }
    if (may_be_removed)
        remove_host_entry(folder_handle.get(), entry.c_str());
}

// Whether the folder was looked at a moment ago; notes that it is now.
bool was_just_cleared(const std::string& folder) {
    constexpr std::time_t a_moment = 5;
    constexpr std::size_t most_folders = 100;
    static std::map<std::string, std::time_t> cleared;
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    if (cleared.size() > most_folders)
        cleared.clear();
    const auto [known, is_new] = cleared.try_emplace(folder, now.tv_sec);
    if (!is_new && now.tv_sec - known->second < a_moment)
        return true;
    known->second = now.tv_sec;
    return false;
}

} // namespace

Unfinished_file::~Unfinished_file() {
    if (!beside_.empty())
        unlink(beside_.c_str());
}

int Unfinished_file::create(mode_t mode, bool may_lack_name) {
    if (may_lack_name) {
        const int error = outcome_of(Write_step::create, [&] {
            file_ = Host_handle(open(folder_.c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, mode));
            return file_.get();
        });
        const bool is_not_known = error == EOPNOTSUPP || error == EISDIR || error == EINVAL;
        if (!is_not_known)
            return error;
    }
    return create_with_name(mode);
}

int Unfinished_file::create_with_name(mode_t mode) {
    const std::string head = join_host_path(folder_, unfinished_save_prefix);
    do {
        beside_.clear();
        std::string path;
        if (const int error = create_unique(Write_step::create, head, mode, path, file_))
            return error;
        beside_ = std::move(path);
        lock(file_);
    } while (!has_name(file_));
    return 0;
}

int Unfinished_file::fill(const Content& content) {
    return write_all(Write_step::write, file_, content);
}

int Unfinished_file::settle(bool to_disk) {
    if (to_disk)
        return outcome_of(Write_step::flush, [&] { return fsync(file_.get()); });
    if (beside_.empty())
        return 0;
    // Some file systems tell only at closing that the disk is full; the lock stays with the other handle.
    Host_handle twin(fcntl(file_.get(), F_DUPFD_CLOEXEC, 0));
    return twin.is_open() && twin.close_now() != 0 && errno != EINTR ? errno : 0;
}

int Unfinished_file::become_new(const std::string& path) {
    if (!beside_.empty())
        return replace(path);
    // By the way that needs no rights beyond those of the folder.
    const std::string self = "/proc/self/fd/" + std::to_string(file_.get());
    return outcome_of(Write_step::rename, [&] {
        return linkat(AT_FDCWD, self.c_str(), AT_FDCWD, path.c_str(), AT_SYMLINK_FOLLOW);
    });
}

int Unfinished_file::replace(const std::string& path) {
    if (beside_.empty()) {
        lock(file_);
        std::string beside = join_host_path(folder_, unfinished_save_prefix) + unique_digits();
        if (const int error = become_new(beside))
            return error;
        beside_ = std::move(beside);
    }
    const int error =
        outcome_of(Write_step::rename, [&] { return std::rename(beside_.c_str(), path.c_str()); });
    if (error == 0)
        beside_.clear();
    return error;
}

Unfinished_folder::~Unfinished_folder() {
    if (!path_.empty())
        remove_host_entry(AT_FDCWD, path_.c_str());
}

int Unfinished_folder::create(const std::string& folder) {
    do {
        std::string path = join_host_path(folder, unfinished_save_prefix) + unique_digits();
        const int error = outcome_of(Write_step::make_folder, [&] { return mkdir(path.c_str(), S_IRWXU); });
        if (error == EEXIST)
            continue;
        if (error != 0)
            return error;
        path_ = std::move(path);
        handle_ = Host_handle(open(path_.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
        if (!handle_.is_open())
            return errno;
        lock(handle_);
    } while (!has_name(handle_));
    return 0;
}

void clear_unfinished_saves(const std::string& folder) {
    if (!was_just_cleared(folder))
        take_back_unfinished_copies(folder);
}

std::vector<Copy_undo> take_back_unfinished_copies(const std::string& folder) {
    std::vector<Copy_undo> copies;
    const Host_handle handle(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    for (const std::string& entry : entries_of(handle).names)
        if (is_unfinished_save(entry))
            clear_if_nobody_holds(folder, handle, entry, copies);
    return copies;
}

} // namespace platform
