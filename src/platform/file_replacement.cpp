#include "platform/file_replacement.h"

#include "platform/entry_names.h"
#include "platform/host_names.h"
#include "platform/user_folders.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <fcntl.h>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>

namespace platform {

namespace {

constexpr std::size_t block_size = std::size_t{1} << 20;

// 0, or the error number with which a test makes the step fail.
int fault_at(Write_step step) {
    const File_faults::Fault* fault = File_faults::at(step);
    return fault != nullptr ? fault->error_number : 0;
}

// The answer of a call of the system, unless a test makes the step fail: 0 or the error number.
template <typename Call>
int outcome_of(Write_step step, Call call) {
    if (const int error = fault_at(step))
        return error;
    return call() < 0 ? errno : 0;
}

// Writes the bytes from `begin` to `end` of the content to their places in the file. `written` counts what
// the step has written so far.
int write_range(Write_step step, const Host_handle& file, const Content& content, off_t begin, off_t end,
                std::size_t& written) {
    std::string buffer;
    std::string_view piece;
    while (begin < end) {
        if (const int error = content.read(begin, end, buffer, piece))
            return error;
        while (!piece.empty()) {
            std::size_t size = piece.size();
            if (const File_faults::Fault* fault = File_faults::at(step)) {
                size = std::min(size, fault->after_bytes - std::min(written, fault->after_bytes));
                if (size == 0)
                    return fault->error_number;
            }
            const ssize_t count = pwrite(file.get(), piece.data(), size, begin);
            if (count < 0 && errno == EINTR)
                continue;
            if (count <= 0)
                return count < 0 ? errno : ENOSPC;
            piece.remove_prefix(static_cast<std::size_t>(count));
            begin += count;
            written += static_cast<std::size_t>(count);
        }
    }
    return 0;
}

int write_all(Write_step step, const Host_handle& file, const Content& content) {
    std::size_t written = 0;
    if (content.size() == 0)
        return fault_at(step);
    return write_range(step, file, content, 0, content.size(), written);
}

// The end of the chain of symbolic links, which need not exist; nothing for a circle.
std::optional<std::string> link_target(std::string path) {
    constexpr int longest_chain = 40;
    for (int i = 0; i < longest_chain; ++i) {
        const auto text = link_text(path);
        if (!text)
            return path;
        path = linked_path(host_folder_of(path), *text);
    }
    return std::nullopt;
}

// Another ending at each call, and in each process.
std::string unique_digits() {
    static std::uint64_t number = [] {
        std::uint64_t seed = 0;
        return getentropy(&seed, sizeof seed) == 0 ? seed : static_cast<std::uint64_t>(getpid()) << 24;
    }();
    static_assert(unfinished_save_digits == 12);
    char digits[17];
    std::snprintf(digits, sizeof digits, "%012llx",
                  static_cast<unsigned long long>(++number & 0xFFFFFFFFFFFFU));
    return digits;
}

// Creates a file of a name of its own: `head` and some digits, which become its `path`.
int create_unique(Write_step step, const std::string& head, mode_t mode, std::string& path,
                  Host_handle& file) {
    if (const int error = fault_at(step))
        return error;
    for (int attempts = 0; attempts < 100; ++attempts) {
        path = head + unique_digits();
        file = Host_handle(open(path.c_str(), O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, mode));
        if (file.is_open() || errno != EEXIST)
            return file.is_open() ? 0 : errno;
    }
    return EEXIST;
}

// Gives the file the owner, group and permissions of the old one. Only the permissions are a must: a user may
// not give files away.
int take_over_permissions(const Host_handle& file, const struct stat& old) {
    struct stat state {};
    if (fstat(file.get(), &state) != 0)
        return errno;
    const bool same_owner = (state.st_uid == old.st_uid && state.st_gid == old.st_gid) ||
                            fchown(file.get(), old.st_uid, old.st_gid) == 0;
    const bool same_group = same_owner || state.st_gid == old.st_gid ||
                            fchown(file.get(), static_cast<uid_t>(-1), old.st_gid) == 0;
    mode_t mode = old.st_mode & 07777;
    if (!same_owner)
        mode &= 0777;
    if (!same_group) // another group may do no more than everybody
        mode &= ~mode_t{070} | (mode & 07) << 3;
    return fchmod(file.get(), mode) != 0 ? errno : 0;
}

int flush_folder(const std::string& folder) {
    return outcome_of(Write_step::flush_folder, [&] {
        const Host_handle handle(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
        // Some file systems cannot flush a folder, and some folders may not be opened.
        return handle.is_open() && fsync(handle.get()) != 0 && errno == EIO ? -1 : 0;
    });
}

// Fills the new file, and makes it ready to take the old one's place.
int fill(Host_handle& file, const Content& content, const struct stat* old, Durability durability) {
    if (const int error = write_all(Write_step::write, file, content))
        return error;
    if (old != nullptr) {
        if (const int error = fault_at(Write_step::set_permissions))
            return error;
        if (const int error = take_over_permissions(file, *old))
            return error;
    }
    if (durability == Durability::durable)
        if (const int error = outcome_of(Write_step::flush, [&] { return fsync(file.get()); }))
            return error;
    // Some file systems tell only now that the disk is full.
    return file.close_now() != 0 && errno != EINTR ? errno : 0;
}

// Whether the host does not allow the file to be replaced, while it may allow it to be written.
bool forbids_replacing(int error) {
    return error == EACCES || error == EPERM || error == EROFS || error == EBUSY;
}

// Writes a file that was not there under its own name: there is nothing to lose, and many new files take half
// the time. EEXIST when it has come into being meanwhile.
int write_new(const std::string& path, const Content& content, mode_t mode) {
    Folder_change change(host_folder_of(path));
    if (const int error = fault_at(Write_step::create))
        return error;
    Host_handle file(open(path.c_str(), O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, mode));
    if (!file.is_open())
        return errno;
    if (const int error = fill(file, content, nullptr, Durability::quick)) {
        unlink(path.c_str());
        return error;
    }
    change.added(host_entry_of(path));
    return 0;
}

int write_beside(const std::string& path, const Content& content, const struct stat* old, mode_t new_mode,
                 Durability durability) {
    if (old == nullptr && durability == Durability::quick)
        if (const int error = write_new(path, content, new_mode); error != EEXIST)
            return error;
    const std::string folder = host_folder_of(path);
    Folder_change change(folder);
    std::string beside;
    Host_handle file;
    if (const int error = create_unique(Write_step::create, join_host_path(folder, unfinished_save_prefix),
                                        old != nullptr ? 0600 : new_mode, beside, file))
        return error;
    int error = fill(file, content, old, durability);
    if (error == 0)
        error = outcome_of(Write_step::rename, [&] { return std::rename(beside.c_str(), path.c_str()); });
    if (error != 0) {
        unlink(beside.c_str());
        return error;
    }
    change.added(host_entry_of(path));
    return durability == Durability::durable ? flush_folder(folder) : 0;
}

// What is left of an entry's name in that of its copy, so that the digits find room.
constexpr std::size_t longest_entry = 200;

// The copy of a file that is written in place: deleted at its end unless it is kept.
class Rescue_copy {
public:
    int make(const std::string& path, const Host_handle& file, off_t size, Durability durability) {
        const std::string folder = join_host_path(user_data_folder(), "tilverra/rescue");
        make_host_folders(folder);
        const std::string head = join_host_path(folder, host_entry_of(path).substr(0, longest_entry)) + '-';
        if (const int error = create_unique(Write_step::copy_aside, head, 0600, path_, copy_))
            return error;
        size_ = size;
        if (const int error = write_all(Write_step::copy_aside, copy_, Content(file, size)))
            return error;
        return durability == Durability::durable && fsync(copy_.get()) != 0 ? errno : 0;
    }
    // Puts the old contents back into the file, or keeps the copy.
    bool write_back(const Host_handle& file, bool only_longer) {
        if ((only_longer || write_all(Write_step::write_back, file, Content(copy_, size_)) == 0) &&
            ftruncate(file.get(), size_) == 0)
            return true;
        kept_ = true;
        return false;
    }
    const std::string& path() const { return path_; }

    Rescue_copy() = default;
    Rescue_copy(const Rescue_copy&) = delete;
    Rescue_copy& operator=(const Rescue_copy&) = delete;
    ~Rescue_copy() {
        if (!kept_ && copy_.is_open())
            unlink(path_.c_str());
    }

private:
    std::string path_;
    Host_handle copy_;
    off_t size_ = 0;
    bool kept_ = false;
};

Write_result write_in_place(const std::string& path, const Content& content, Durability durability) {
    const Host_handle file(open(path.c_str(), O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    struct stat old {};
    if (!file.is_open() || fstat(file.get(), &old) != 0)
        return write_result_from_errno(errno);
    Rescue_copy rescue;
    if (const int error = rescue.make(path, file, old.st_size, durability))
        return write_result_from_errno(error);

    // What the file grows by comes first: when the disk has no room for it, nothing is lost yet.
    std::size_t written = 0;
    const off_t common = std::min(old.st_size, content.size());
    constexpr Write_step step = Write_step::write_in_place;
    int error = write_range(step, file, content, common, content.size(), written);
    const bool only_longer = error != 0;
    if (error == 0)
        error = write_range(step, file, content, 0, common, written);
    if (error == 0 && ftruncate(file.get(), content.size()) != 0)
        error = errno;
    if (error == 0 && durability == Durability::durable)
        error = outcome_of(Write_step::flush, [&] { return fsync(file.get()); });
    Write_result result = write_result_from_errno(error);
    if (error != 0 && !rescue.write_back(file, only_longer))
        result.reason += " The old contents are kept in " + name_from_host_path(rescue.path()) + ".";
    return result;
}

} // namespace

int Content::read(off_t begin, off_t end, std::string& buffer, std::string_view& piece) const {
    const auto length = static_cast<std::size_t>(end - begin);
    if (file_ == nullptr) {
        piece = text_.substr(static_cast<std::size_t>(begin), length);
        return 0;
    }
    buffer.resize(std::min(length, block_size));
    ssize_t count = 0;
    do
        count = pread(file_->get(), buffer.data(), buffer.size(), begin);
    while (count < 0 && errno == EINTR);
    if (count < 0)
        return errno;
    piece = std::string_view(buffer).substr(0, static_cast<std::size_t>(count));
    return count == 0 ? EIO : 0; // somebody made the file shorter
}

std::string path_to_write(std::string_view name) {
    const bool is_folder_name = !name.empty() && (name.back() == '\\' || name.back() == '/');
    return is_folder_name ? "" : host_path(name);
}

Write_result replace_file(const std::string& given_path, const Content& content, mode_t new_mode,
                          Durability durability) {
    const auto path = link_target(given_path);
    if (!path)
        return write_result_from_errno(ELOOP);
    struct stat old {};
    const bool is_there = stat(path->c_str(), &old) == 0;
    if (!is_there && errno != ENOENT)
        return write_result_from_errno(errno);
    if (is_there && !S_ISREG(old.st_mode))
        return S_ISDIR(old.st_mode) ? write_result_from_errno(EISDIR)
                                    : write_failure(Write_error::not_a_file);
    if (is_there && is_write_protected(AT_FDCWD, path->c_str()))
        return write_failure(Write_error::read_only);

    if (is_there && old.st_nlink > 1)
        return write_in_place(*path, content, durability);
    const int error = write_beside(*path, content, is_there ? &old : nullptr, new_mode, durability);
    return is_there && forbids_replacing(error) ? write_in_place(*path, content, durability)
                                                : write_result_from_errno(error);
}

Write_result replace_by_link(const std::string& path, const std::string& text) {
    struct stat old {};
    if (lstat(path.c_str(), &old) == 0 && S_ISREG(old.st_mode) && is_write_protected(AT_FDCWD, path.c_str()))
        return write_failure(Write_error::read_only);
    const std::string folder = host_folder_of(path);
    Folder_change change(folder);
    const std::string beside = join_host_path(folder, unfinished_save_prefix) + unique_digits();
    if (symlink(text.c_str(), beside.c_str()) != 0)
        return write_result_from_errno(errno);
    if (std::rename(beside.c_str(), path.c_str()) != 0) {
        const int error = errno;
        unlink(beside.c_str());
        return write_result_from_errno(error);
    }
    change.added(host_entry_of(path));
    return {};
}

} // namespace platform
