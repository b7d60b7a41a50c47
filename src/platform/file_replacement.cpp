#include "platform/file_replacement.h"

#include "platform/entry_names.h"
#include "platform/file_steps.h"
#include "platform/host_names.h"
#include "platform/in_place_save.h"
#include "platform/unfinished_file.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>

namespace platform {

namespace {

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

// Whether the host does not allow the file to be replaced, while it may allow it to be written.
bool forbids_replacing(int error) {
    return error == EACCES || error == EPERM || error == EROFS || error == EBUSY;
}

// Whether a file system that makes files without a name may be unable to give them one.
bool may_mean_no_name(int error) {
    return error == EOPNOTSUPP || error == EINVAL || error == ENOENT || error == EXDEV || error == EPERM;
}

// Writes the content to an unfinished file, and puts that in the place of the old file (null: there is none).
int write_beside(const std::string& path, const Content& content, const struct stat* old, mode_t new_mode,
                 bool flushes, bool may_lack_name) {
    const std::string folder = host_folder_of(path);
    Folder_change change(folder);
    Unfinished_file file(folder);
    if (const int error = file.create(old != nullptr ? 0600 : new_mode, may_lack_name))
        return error;
    if (const int error = file.fill(content))
        return error;
    if (old != nullptr)
        if (const int error = file.take_over_permissions(*old))
            return error;
    if (const int error = file.settle(flushes))
        return error;
    if (const int error = old != nullptr ? file.replace(path) : file.become_new(path))
        return may_lack_name && may_mean_no_name(error)
                   ? write_beside(path, content, old, new_mode, flushes, false)
                   : error;
    change.added(host_entry_of(path));
    return flushes ? flush_folder(folder) : 0;
}

Write_result replace_at(const std::string& path, const Content& content, mode_t new_mode,
                        Durability durability, bool may_try_again) {
    struct stat old {};
    const bool is_there = stat(path.c_str(), &old) == 0;
    if (!is_there && errno != ENOENT)
        return write_result_from_errno(errno);
    if (is_there && !S_ISREG(old.st_mode))
        return S_ISDIR(old.st_mode) ? write_result_from_errno(EISDIR)
                                    : write_failure(Write_error::not_a_file);
    if (is_there && is_write_protected(AT_FDCWD, path.c_str()))
        return write_failure(Write_error::read_only);

    const bool flushes = durability == Durability::durable || (is_there && old.st_size > 0);
    if (is_there && old.st_nlink > 1)
        return write_in_place(path, content, flushes);
    const int error = write_beside(path, content, is_there ? &old : nullptr, new_mode, flushes, true);
    // Somebody else has made the file in this moment.
    if (error == EEXIST && !is_there && may_try_again)
        return replace_at(path, content, new_mode, durability, false);
    return is_there && forbids_replacing(error) ? write_in_place(path, content, flushes)
                                                : write_result_from_errno(error);
}

} // namespace

int Content::read(off_t begin, off_t end, std::string& buffer, std::string_view& piece) const {
    const auto length = static_cast<std::size_t>(end - begin);
    if (file_ == nullptr) {
        piece = text_.substr(static_cast<std::size_t>(begin), length);
        return 0;
    }
    if (const int error = fault_at(Write_step::read); error != 0 && error != EINTR)
        return error;
    constexpr std::size_t block_size = std::size_t{1} << 20;
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

std::string path_to_write(std::string_view name, Write_result& failure) {
    const bool is_folder_name = !name.empty() && (name.back() == '\\' || name.back() == '/');
    int error = 0;
    std::string path = is_folder_name ? "" : host_path(name, &error);
    failure = path.empty() ? write_failure(Write_error::bad_name) : failed_lookup(error);
    return failure.ok() ? path : "";
}

Write_result failed_lookup(int listing_error) {
    Write_result result = write_result_from_errno(listing_error);
    if (!result.ok())
        result.reason = "The folder cannot be listed, and may hold this name in another spelling.";
    return result;
}

Write_result replace_file(const std::string& given_path, const Content& content, mode_t new_mode,
                          Durability durability) {
    const auto path = link_target(given_path);
    if (!path)
        return write_result_from_errno(ELOOP);
    return replace_at(*path, content, new_mode, durability, true);
}

Write_result copy_host_file(const std::string& from, const std::string& to) {
    struct stat state {};
    struct stat target {};
    if (stat(from.c_str(), &state) != 0)
        return write_result_from_errno(errno);
    if (!S_ISREG(state.st_mode))
        return write_failure(Write_error::not_a_file);
    if (stat(to.c_str(), &target) == 0 && target.st_dev == state.st_dev && target.st_ino == state.st_ino)
        return write_failure(Write_error::into_itself);
    const Host_handle file = open_to_read(from);
    if (!file.is_open() || fstat(file.get(), &state) != 0)
        return write_result_from_errno(errno);
    return replace_file(to, Content(file, state.st_size), (state.st_mode & 0777) | S_IWUSR,
                        Durability::quick);
}

Write_result replace_by_link(const std::string& path, const std::string& text) {
    struct stat old {};
    if (lstat(path.c_str(), &old) == 0 && S_ISREG(old.st_mode) && is_write_protected(AT_FDCWD, path.c_str()))
        return write_failure(Write_error::read_only);
    const std::string folder = host_folder_of(path);
    Folder_change change(folder);
    const std::string beside = join_host_path(folder, unfinished_save_prefix) + unique_digits();
    if (const int error =
            outcome_of(Write_step::create, [&] { return symlink(text.c_str(), beside.c_str()); }))
        return write_result_from_errno(error);
    if (const int error =
            outcome_of(Write_step::rename, [&] { return std::rename(beside.c_str(), path.c_str()); })) {
        unlink(beside.c_str());
        return write_result_from_errno(error);
    }
    change.added(host_entry_of(path));
    return {};
}

} // namespace platform
