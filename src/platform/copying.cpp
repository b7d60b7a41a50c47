// The copying of files and folders that files.h promises.
#include "platform/entry_names.h"
#include "platform/file_steps.h"
#include "platform/files.h"
#include "platform/host_handle.h"
#include "platform/host_names.h"
#include "platform/unfinished_file.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>
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

std::string shown_name(const std::string& path) {
    std::string name = name_from_host_path(path);
    return name.empty() ? path : name;
}

enum class Copied_kind { file, folder, link, special, unknown };

Copied_kind kind_of(const std::string& path) {
    struct stat state {};
    if (lstat(path.c_str(), &state) != 0)
        return Copied_kind::unknown;
    return S_ISREG(state.st_mode)   ? Copied_kind::file
           : S_ISDIR(state.st_mode) ? Copied_kind::folder
           : S_ISLNK(state.st_mode) ? Copied_kind::link
                                    : Copied_kind::special;
}

// What a folder of the source holds, in byte order, and without what saves are making at the moment.
Host_entries sorted_entries(const std::string& folder) {
    Host_entries entries = entries_of(Host_handle(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)));
    std::erase_if(entries.names, is_unfinished_save);
    std::sort(entries.names.begin(), entries.names.end());
    return entries;
}

// Makes `target` the path to which an entry goes. An entry of the target that differs only in case is the
// same file to the suite; but not when the source itself has both. Gives 0 or an error number.
int find_target(const std::string& from, const std::string& to, const std::string& entry,
                const std::vector<std::string>& entries, std::string& target) {
    int error = 0;
    target = join_host_path(to, entry);
    if (!host_entry_exists(target))
        if (const auto found = find_entry_ignoring_case(to, name_of_entry(from, entry), &error);
            found && !std::binary_search(entries.begin(), entries.end(), *found))
            target = join_host_path(to, *found);
    return error;
}

bool is_folder_at(const std::string& path) {
    struct stat state {};
    return stat(path.c_str(), &state) == 0 && S_ISDIR(state.st_mode);
}

// Looks at all that would be copied, and changes nothing.
class Copy_check {
public:
    Copy_result result;
    std::vector<std::string> replaced;

    // Without a target folder that is there, `to` is "".
    void look_at(const std::string& from, const std::string& to) {
        const Host_entries entries = sorted_entries(from);
        if (entries.error != 0)
            note(entries.error, from);
        for (const std::string& entry : entries.names) {
            const std::string path = join_host_path(from, entry);
            std::string target;
            if (!to.empty())
                if (const int error = find_target(from, to, entry, entries.names, target))
                    note(error, to);
            look_at_entry(path, kind_of(path), host_entry_exists(target) ? target : "");
        }
    }

private:
    void look_at_entry(const std::string& path, Copied_kind kind, const std::string& target) {
        if (kind == Copied_kind::special)
            return result.passed_over.push_back(shown_name(path));
        if (kind == Copied_kind::file && faccessat(AT_FDCWD, path.c_str(), R_OK, AT_EACCESS) != 0)
            return note(errno, path);
        const bool is_folder = is_folder_at(target);
        if (kind == Copied_kind::folder && (target.empty() || is_folder))
            return look_at(path, target);
        if (target.empty())
            return;
        replaced.push_back(shown_name(target));
        struct stat state {};
        const bool is_there = stat(target.c_str(), &state) == 0;
        if (kind == Copied_kind::folder || is_folder)
            note(is_folder ? EISDIR : ENOTDIR, target);
        else if (is_there && !S_ISREG(state.st_mode))
            note(EEXIST, target);
        else if (is_there && is_write_protected(AT_FDCWD, target.c_str()))
            note(write_failure(Write_error::read_only), target);
    }

    void note(int error, const std::string& path) { note(write_result_from_errno(error), path); }
    void note(const Write_result& failure, const std::string& path) {
        if (result.ok())
            static_cast<Write_result&>(result) = failure;
        result.not_copied.push_back(shown_name(path));
    }
};

// Makes the copy aside, and moves it into place. Each step gives false when it failed, with the failure in
// the result.
class Tree_copy {
public:
    explicit Tree_copy(Copy_result& result) : result_(result) {}
    Tree_copy(const Tree_copy&) = delete;
    Tree_copy& operator=(const Tree_copy&) = delete;
    // What was moved into place goes again unless all of it came there.
    ~Tree_copy() {
        if (result_.ok())
            return;
        for (const std::string& path : moved_)
            remove_host_entry(AT_FDCWD, path.c_str());
        for (const auto& [path, target] : exchanged_)
            if (exchange(path, target) != 0)
                result_.replaced.push_back(shown_name(target));
        for (const Overwritten& old : overwritten_)
            if (!put_back(old).ok())
                result_.replaced.push_back(shown_name(old.target));
    }

    bool copy_folder(const std::string& from, const std::string& to) {
        struct stat state {};
        const Host_entries entries = sorted_entries(from);
        if (entries.error != 0 || stat(from.c_str(), &state) != 0)
            return failed(entries.error != 0 ? entries.error : errno, from);
        for (const std::string& entry : entries.names)
            if (!copy_entry(join_host_path(from, entry), join_host_path(to, entry)))
                return false;
        chmod(to.c_str(), (state.st_mode & 0777) | S_IRWXU);
        return true;
    }

    // Moves what the folder of the copy holds into the target; `from` is where it was copied from.
    bool move_into(const std::string& copy, const std::string& from, const std::string& target) {
        const Host_entries entries = sorted_entries(copy);
        if (entries.error != 0)
            return failed(entries.error, copy);
        for (const std::string& entry : entries.names) {
            const std::string path = join_host_path(copy, entry);
            std::string there;
            if (const int error = find_target(from, target, entry, entries.names, there))
                return failed(error, target);
            const bool is_moved = !host_entry_exists(there) ? move_new(path, there)
                                  : kind_of(path) == Copied_kind::folder
                                      ? move_into(path, join_host_path(from, entry), there)
                                      : replace(path, there);
            if (!is_moved)
                return false;
        }
        return true;
    }

    bool move_new(const std::string& path, const std::string& target) {
        Folder_change change(host_folder_of(target));
        if (const int error =
                outcome_of(Write_step::rename, [&] { return std::rename(path.c_str(), target.c_str()); }))
            return failed(error, target);
        change.added(host_entry_of(target));
        moved_.push_back(target);
        return true;
    }

private:
    bool copy_entry(const std::string& from, const std::string& to) {
        const auto text = link_text(from);
        switch (kind_of(from)) {
        case Copied_kind::file: return done(copy_host_file(from, to), from);
        case Copied_kind::link: return text ? done(replace_by_link(to, *text), from) : failed(errno, from);
        case Copied_kind::folder:
            if (const int error =
                    outcome_of(Write_step::make_folder, [&] { return mkdir(to.c_str(), S_IRWXU); }))
                return failed(error, from);
            return copy_folder(from, to);
        default: return true;
        }
    }

    // The old entry changes places with the new one or, where that cannot be, is copied before, so that it
    // can come back.
    bool replace(const std::string& path, const std::string& target) {
        struct stat old {};
        const auto text = link_text(path);
        const bool is_alone =
            lstat(target.c_str(), &old) == 0 && (S_ISREG(old.st_mode) ? old.st_nlink == 1 : text.has_value());
        if (is_alone && !text)
            if (const int error = make_ready_for(path, old))
                return failed(error, target);
        if (is_alone && exchange(path, target) == 0) {
            exchanged_.emplace_back(path, target);
            return true;
        }
        return overwrite(path, text, target);
    }

    // A file is written to the end of a link; a link takes the place of what is there.
    bool overwrite(const std::string& path, const std::optional<std::string>& text,
                   const std::string& target) {
        const Overwritten kept{path + '-' + unique_digits(), target, text.has_value()};
        const auto old_text = text ? link_text(target) : std::nullopt;
        const Write_result keeping =
            old_text ? replace_by_link(kept.copy, *old_text) : copy_host_file(target, kept.copy);
        if (keeping.error != Write_error::absent && !done(keeping, target))
            return false;
        overwritten_.push_back(kept);
        return done(text ? replace_by_link(target, *text) : copy_host_file(path, target), target);
    }

    struct Overwritten {
        std::string copy; // absent for a link to nowhere
        std::string target;
        bool was_entry; // not what stands at the end of a link
    };
    static Write_result put_back(const Overwritten& old) {
        if (const auto text = old.was_entry ? link_text(old.copy) : std::nullopt)
            return replace_by_link(old.target, *text);
        if (old.was_entry && link_text(old.target))
            unlink(old.target.c_str());
        return copy_host_file(old.copy, old.target);
    }

    // The file takes the place of an old one: with its permissions, and on the disk before.
    static int make_ready_for(const std::string& path, const struct stat& old) {
        const Host_handle file = open_to_read(path);
        if (!file.is_open())
            return errno;
        if (const int error = take_over_permissions(file, old))
            return error;
        return outcome_of(Write_step::flush, [&] { return fsync(file.get()); });
    }

    static int exchange(const std::string& path, const std::string& target) {
        Folder_change change(host_folder_of(target));
        return outcome_of(Write_step::rename, [&] {
            return renameat2(AT_FDCWD, path.c_str(), AT_FDCWD, target.c_str(), RENAME_EXCHANGE);
        });
    }

    bool failed(int error, const std::string& path) { return done(write_result_from_errno(error), path); }
    bool done(const Write_result& outcome, const std::string& path) {
        if (outcome.ok())
            return true;
        static_cast<Write_result&>(result_) = outcome;
        result_.not_copied.push_back(shown_name(path));
        return false;
    }

    Copy_result& result_;
    std::vector<std::string> moved_;                             // the paths of what was not there before
    std::vector<std::pair<std::string, std::string>> exchanged_; // where the old and the new entries are
    std::vector<Overwritten> overwritten_;
};

// The levels of folders above a target: those that were missing are gone again unless they are kept.
class Levels_above {
public:
    int make(const std::string& path) {
        for (std::string level = path; level.size() > 1 && !host_entry_exists(level);
             level = host_folder_of(level))
            missing_.push_back(level);
        return make_host_levels(path);
    }
    void keep() { missing_.clear(); }
    ~Levels_above() {
        for (const std::string& level : missing_)
            rmdir(level.c_str());
    }

private:
    std::vector<std::string> missing_; // the deepest first
};

void copy_into_place(const std::string& from, const std::string& to,
                     const std::function<Write_result()>& finish, Copy_result& result) {
    const bool is_there = is_folder_at(to);
    const std::string folder = is_there ? to : host_folder_of(to);
    Levels_above levels;
    Unfinished_folder copy;
    int error = levels.make(folder);
    if (error == 0) {
        clear_unfinished_saves(folder);
        error = copy.create(folder);
    }
    if (error != 0) {
        static_cast<Write_result&>(result) = write_result_from_errno(error);
        result.not_copied.push_back(shown_name(from));
        return;
    }
    Tree_copy tree(result);
    if (!tree.copy_folder(from, copy.path()))
        return;
    if (is_there ? !tree.move_into(copy.path(), from, to) : !tree.move_new(copy.path(), to))
        return;
    if (finish)
        static_cast<Write_result&>(result) = finish();
    if (!result.ok())
        return;
    if (!is_there)
        copy.forget();
    levels.keep();
}

// Why a folder cannot be copied there at all.
Write_result refusal_of(const std::string& from, const std::string& to) {
    struct stat state {};
    if (to.empty())
        return write_failure(Write_error::bad_name);
    if (stat(from.c_str(), &state) != 0)
        return write_result_from_errno(errno);
    if (!S_ISDIR(state.st_mode))
        return write_result_from_errno(ENOTDIR);
    if (lies_in(to, state))
        return write_failure(Write_error::into_itself);
    return host_entry_exists(to) && !is_folder_at(to) ? write_failure(Write_error::not_a_file)
                                                      : Write_result();
}

Copy_check checked(const std::string& from, const std::string& to) {
    Copy_check check;
    static_cast<Write_result&>(check.result) = refusal_of(from, to);
    if (check.result.ok())
        check.look_at(from, is_folder_at(to) ? to : "");
    return check;
}

} // namespace

Write_result copy_file(std::string_view from, std::string_view to) {
    const std::string target = path_to_write(to);
    if (target.empty())
        return write_failure(Write_error::bad_name);
    clear_unfinished_saves(host_folder_of(target));
    return copy_host_file(host_path(from), target);
}

Copy_result copy_tree(std::string_view from, std::string_view to,
                      const std::function<Write_result()>& finish) {
    const std::string source = host_path(from);
    const std::string target = host_path(to);
    Copy_result result = checked(source, target).result;
    if (result.ok())
        copy_into_place(source, target, finish, result);
    return result;
}

std::vector<std::string> replaced_by_copy(std::string_view from, std::string_view to) {
    return checked(host_path(from), host_path(to)).replaced;
}

} // namespace platform
