// The copying of files and folders that files.h promises.
#include "platform/entry_names.h"
#include "platform/file_replacement.h"
#include "platform/files.h"
#include "platform/host_handle.h"
#include "platform/host_names.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace platform {

namespace {

bool is_same(const struct stat& a, const struct stat& b) {
    return a.st_dev == b.st_dev && a.st_ino == b.st_ino;
}

Write_result copy_host_file(const std::string& from, const std::string& to) {
    struct stat state {};
    struct stat target {};
    if (stat(from.c_str(), &state) != 0)
        return write_result_from_errno(errno);
    if (!S_ISREG(state.st_mode))
        return write_failure(Write_error::not_a_file);
    if (stat(to.c_str(), &target) == 0 && is_same(state, target))
        return write_failure(Write_error::into_itself);
    const Host_handle file = open_to_read(from);
    if (!file.is_open() || fstat(file.get(), &state) != 0)
        return write_result_from_errno(errno);
    return replace_file(to, Content(file, state.st_size), (state.st_mode & 0777) | S_IWUSR,
                        Durability::quick);
}

// Whether the path is the folder or would lie in it, by whatever links it gets there.
bool lies_in(std::string path, const struct stat& folder) {
    struct stat here {};
    while (stat(path.c_str(), &here) != 0 && path.size() > 1)
        path = host_folder_of(path);
    Host_handle handle(open(path.c_str(), O_PATH | O_CLOEXEC));
    while (handle.is_open() && fstat(handle.get(), &here) == 0) {
        if (is_same(here, folder))
            return true;
        Host_handle above(openat(handle.get(), "..", O_PATH | O_CLOEXEC));
        struct stat there {};
        if (!above.is_open() || fstat(above.get(), &there) != 0 || is_same(here, there))
            return false;
        handle = std::move(above);
    }
    return false;
}

class Tree_copy {
public:
    void copy_folder(const std::string& from, const std::string& to) {
        const Host_handle folder(open(from.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
        if (!folder.is_open())
            note(write_result_from_errno(errno));
        const int error = make_target(from, to);
        const bool is_new = error == 0;
        if (!is_new && make_host_levels(to) != 0)
            return note(write_result_from_errno(error));
        std::vector<std::string> entries = entries_of(folder);
        std::sort(entries.begin(), entries.end());
        for (const std::string& entry : entries) {
            if (disk_is_full())
                return;
            if (!is_unfinished_save(entry))
                copy_entry(join_host_path(from, entry),
                           join_host_path(to, is_new ? entry : target_entry(from, to, entry, entries)));
        }
    }

    const Write_result& result() const { return result_; }

private:
    // Makes the folder, with the permissions of the source. Gives 0 or the error number.
    static int make_target(const std::string& from, const std::string& to) {
        struct stat state {};
        const mode_t mode = stat(from.c_str(), &state) == 0 ? state.st_mode & 0777 : 0777;
        Folder_change change(host_folder_of(to));
        if (mkdir(to.c_str(), mode | S_IRWXU) != 0)
            return errno;
        change.added(host_entry_of(to));
        return 0;
    }

    // An entry of the target that differs only in case is the same file to the suite; but not when the source
    // itself has both.
    static std::string target_entry(const std::string& from, const std::string& to, const std::string& entry,
                                    const std::vector<std::string>& entries) {
        if (host_entry_exists(join_host_path(to, entry)))
            return entry;
        const auto same = find_entry_ignoring_case(to, name_of_entry(from, entry));
        return same && !std::binary_search(entries.begin(), entries.end(), *same) ? *same : entry;
    }

    void copy_entry(const std::string& from, const std::string& to) {
        struct stat state {};
        if (lstat(from.c_str(), &state) != 0)
            note(write_result_from_errno(errno));
        else if (S_ISLNK(state.st_mode))
            copy_link(from, to);
        else if (S_ISDIR(state.st_mode))
            copy_folder(from, to);
        else
            note(copy_host_file(from, to));
    }

    void copy_link(const std::string& from, const std::string& to) {
        const auto text = link_text(from);
        note(text ? replace_by_link(to, *text) : write_result_from_errno(errno));
    }

    void note(const Write_result& result) {
        if (result_.ok() || result.error == Write_error::no_space)
            result_ = result;
    }
    bool disk_is_full() const { return result_.error == Write_error::no_space; }

    Write_result result_;
};

} // namespace

Write_result copy_file(std::string_view from, std::string_view to) {
    const std::string target = path_to_write(to);
    return target.empty() ? write_failure(Write_error::bad_name) : copy_host_file(host_path(from), target);
}

Write_result copy_tree(std::string_view from, std::string_view to) {
    const std::string source = host_path(from);
    const std::string target = host_path(to);
    struct stat state {};
    if (target.empty())
        return write_failure(Write_error::bad_name);
    if (stat(source.c_str(), &state) != 0)
        return write_result_from_errno(errno);
    if (!S_ISDIR(state.st_mode))
        return write_result_from_errno(ENOTDIR);
    if (lies_in(target, state))
        return write_failure(Write_error::into_itself);
    if (const int error = make_host_levels(host_folder_of(target)))
        return write_result_from_errno(error);
    Tree_copy copy;
    copy.copy_folder(source, target);
    return copy.result();
}

} // namespace platform
