// The copying of files and folders that files.h promises.
#include "platform/copy_undo.h"
#include "platform/entry_names.h"
#include "platform/file_replacement.h"
#include "platform/file_steps.h"
#include "platform/files.h"
#include "platform/host_handle.h"
#include "platform/host_names.h"
#include "platform/unfinished_file.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace platform {

namespace {

bool is_same(const struct stat& a, const struct stat& b) {
    return a.st_dev == b.st_dev && a.st_ino == b.st_ino;
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
        if (result_.ok()) {
            if (undo_)
                undo_->end();
            return;
        }
        if (!moved_folder_.empty())
            remove_host_entry(AT_FDCWD, moved_folder_.c_str());
        if (undo_ && !undo_->take_back()) {
            for (const std::string& path : undo_->not_put_back())
                result_.replaced.push_back(shown_name(path));
            aside_.forget(); // for the next try
        }
    }

    // Makes the copy below the host folder.
    bool copy_aside(const std::string& from, const std::string& folder) {
        int error = aside_.create(folder);
        copy_ = join_host_path(aside_.path(), "new");
        if (error == 0)
            error = outcome_of(Write_step::make_folder, [&] { return mkdir(copy_.c_str(), S_IRWXU); });
        return error == 0 ? copy_folder(from, copy_) : failed(error, from);
    }

    // Gives the copy its place where nothing is yet.
    bool move_to(const std::string& target) {
        if (!move_entry_to(copy_, target))
            return false;
        moved_folder_ = target;
        return true;
    }

    // Moves what the copy holds into the folder in which it was made; `from` is where it was copied from.
    bool move_into(const std::string& from, const std::string& target) {
        undo_.emplace(aside_.path(), target);
        if (!plan(copy_, from, target) || !done(undo_->begin(), target))
            return false;
        return std::all_of(moves_.begin(), moves_.end(), [&](const Move& move) {
            return move.is_renamed ? move_entry_to(move.path, move.target)
                                   : done(copy_host_file(move.path, move.target), move.target);
        });
    }

private:
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

    bool move_entry_to(const std::string& path, const std::string& target) {
        Folder_change change(host_folder_of(target));
        if (const int error =
                outcome_of(Write_step::rename, [&] { return std::rename(path.c_str(), target.c_str()); }))
            return failed(error, target);
        change.added(host_entry_of(target));
        return true;
    }

    bool plan(const std::string& copy, const std::string& from, const std::string& target) {
        const Host_entries entries = sorted_entries(copy);
        if (entries.error != 0)
            return failed(entries.error, copy);
        for (const std::string& entry : entries.names) {
            const std::string path = join_host_path(copy, entry);
            std::string there;
            if (const int error = find_target(from, target, entry, entries.names, there))
                return failed(error, target);
            const bool is_planned = !host_entry_exists(there) ? plan_new(path, there)
                                    : kind_of(path) == Copied_kind::folder
                                        ? plan(path, join_host_path(from, entry), there)
                                        : plan_over(path, there);
            if (!is_planned)
                return false;
        }
        return true;
    }

    bool plan_new(const std::string& path, const std::string& target) {
        moves_.push_back({path, target, true});
        return note_new(path, target);
    }

    bool note_new(const std::string& path, const std::string& target) {
        struct stat made {};
        if (lstat(path.c_str(), &made) != 0)
            return failed(errno, target);
        undo_->will_add(target, made);
        if (!S_ISDIR(made.st_mode))
            return true;
        const Host_entries entries = sorted_entries(path);
        if (entries.error != 0)
            return failed(entries.error, target);
        return std::all_of(entries.names.begin(), entries.names.end(), [&](const std::string& entry) {
            return note_new(join_host_path(path, entry), join_host_path(target, entry));
        });
    }

    // The new entry takes the place of the old one. But a file is written to the end of a link, to one with
    // several hard links, and to one whose folder does not let it be replaced.
    bool plan_over(const std::string& path, const std::string& target) {
        struct stat old {};
        struct stat made {};
        if (lstat(target.c_str(), &old) != 0 || lstat(path.c_str(), &made) != 0)
            return failed(errno, target);
        const bool is_file = S_ISREG(made.st_mode);
        const bool is_renamed =
            !is_file || (S_ISREG(old.st_mode) && old.st_nlink == 1 && old.st_dev == made.st_dev &&
                         faccessat(AT_FDCWD, host_folder_of(target).c_str(), W_OK | X_OK, AT_EACCESS) == 0);
        moves_.push_back({path, target, is_renamed});
        if (!is_renamed)
            return done(undo_->will_write_to(target), target);
        if (const int error = is_file ? make_ready_for(path, old) : 0)
            return failed(error, target);
        return done(undo_->will_replace(target, made), target);
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

    bool failed(int error, const std::string& path) { return done(write_result_from_errno(error), path); }
    bool done(const Write_result& outcome, const std::string& path) {
        if (outcome.ok())
            return true;
        static_cast<Write_result&>(result_) = outcome;
        result_.not_copied.push_back(shown_name(path));
        return false;
    }

    struct Move {
        std::string path; // in the copy
        std::string target;
        bool is_renamed; // otherwise written to the target
    };

    Copy_result& result_;
    Unfinished_folder aside_;
    std::string copy_;         // the folder of the copy
    std::string moved_folder_; // where the whole copy was moved to, "" when it was not
    std::optional<Copy_undo> undo_;
    std::vector<Move> moves_;
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
    if (const int error = levels.make(folder)) {
        static_cast<Write_result&>(result) = write_result_from_errno(error);
        result.not_copied.push_back(shown_name(from));
        return;
    }
    clear_unfinished_saves(folder);
    Tree_copy tree(result);
    if (!tree.copy_aside(from, folder) || !(is_there ? tree.move_into(from, to) : tree.move_to(to)))
        return;
    if (finish)
        static_cast<Write_result&>(result) = finish();
    if (result.ok())
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
    Write_result failure;
    const std::string target = path_to_write(to, failure);
    if (target.empty())
        return failure;
    clear_unfinished_saves(host_folder_of(target));
    return copy_host_file(host_path(from), target);
}

Copy_result copy_tree(std::string_view from, std::string_view to,
                      const std::function<Write_result()>& finish) {
    const std::string source = host_path(from);
    int listing_error = 0;
    const std::string target = host_path(to, &listing_error);
    Copy_result result = checked(source, target).result;
    if (result.ok() && listing_error != 0) {
        static_cast<Write_result&>(result) = failed_lookup(listing_error);
        result.not_copied.push_back(shown_name(target));
    }
    if (result.ok())
        copy_into_place(source, target, finish, result);
    return result;
}

std::vector<std::string> replaced_by_copy(std::string_view from, std::string_view to) {
    return checked(host_path(from), host_path(to)).replaced;
}

Undone_copy undo_interrupted_copy(std::string_view folder) {
    Undone_copy undone;
    for (const Copy_undo& undo : take_back_unfinished_copies(host_path(folder))) {
        undone.was_interrupted = true;
        for (const std::string& path : undo.not_put_back())
            undone.not_put_back.push_back(shown_name(path));
    }
    return undone;
}

} // namespace platform
