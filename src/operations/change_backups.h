// What an operation on many files of a project will replace or take away, put aside beforehand, so that the
// last change can be undone. The sets lie in the folder "backups" of the project, one folder for each
// operation, named by number, time and operation; in each the files lie as they lay in the project, and
// "changes.txt" says what they were. All of it may be deleted at any time.
//
// The files are copied and not linked: other programs write a file in place, and through a link they would
// write into its copy. What an operation makes anew or deletes is moved instead, which costs nothing.
//
// Whenever the program is killed, what it leaves can be undone: a set counts from the moment when all that it
// needs is on the disk, and nothing is replaced or moved before that.
#pragma once

#include "names/directory_name.h"
#include "operations/operation_outcome.h"
#include "platform/write_result.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

class Change_backups {
public:
    static constexpr std::size_t most_kept = 10;
    static constexpr std::uint64_t most_bytes = std::uint64_t{1} << 30;

    // The project's folder must be there before anything is put aside.
    explicit Change_backups(const TESK::Directory_name& project_folder);
    Change_backups(Change_backups&& other) noexcept
        : project_(std::move(other.project_)), current_(std::exchange(other.current_, {})) {}
    Change_backups& operator=(Change_backups&& other) noexcept {
        project_.swap(other.project_);
        current_.swap(other.current_);
        return *this;
    }
    // The change that was begun last is over: what is written to its files from now on, others write.
    ~Change_backups() { mark_end(); }

    // Whether it lies in the project, so that it can be put aside.
    bool can_hold(const std::string& name) const { return !relative_name(name).empty(); }

    // What there is to put aside of the files and folders: how many of them are there, and how much it is.
    struct Need {
        std::size_t entries = 0;
        std::uint64_t bytes = 0;

        // When it does not fit, an operation can only go on without.
        bool fits() const { return bytes <= most_bytes; }
    };
    static Need need(const std::vector<std::string>& names);

    // Begins the set of an operation that is called by a word or two, and copies the files; those that are
    // not there yet, the operation will make. Names are full or count from the current directory, and must
    // lie in the project. When the outcome is refused or stopped there is no set, and the operation must not
    // be begun. Older sets beyond the bounds are deleted.
    Operation_outcome put_copies_aside(const std::string& operation, const std::vector<std::string>& names,
                                       const Operation_progress& progress);

    // The same without copies, for files and folders that move() will take one by one.
    Operation_outcome announce(const std::string& operation, const std::vector<std::string>& names);
    // Moves what the set was announced with out of its place, or back there. False when that cannot be.
    platform::Write_result move(const std::string& name) const;
    bool move_back(const std::string& name) const;

    struct Change {
        std::string set;       // the name of its folder
        std::string operation; // "reset"
        std::string time;      // "2026-11-25 08-30-12", local
        std::size_t entries = 0;
    };
    // The changes that can be undone, the newest first. `failure`, which may be null, is told why these are
    // not all; it becomes empty when they are.
    std::vector<Change> list(std::string* failure = nullptr) const;

    // The newest of them alone, which costs the reading of no other; nothing when there is none, and when
    // `failure` is told why nobody knows.
    std::optional<Change> newest(std::string* failure = nullptr) const;

    // Brings back what was there before the change: files that it replaced, moved away or deleted come back,
    // those that it made go. What is there now becomes a set of its own, so that this can be undone too. What
    // the project holds already is left alone. Refused when there is no such set, and for the reason that
    // `refusal`, which may be empty, gives of the files that would be replaced or go (full names).
    // `changed_since`: those of them that others have written after the change (names from the project's
    // folder on); none where the program was killed during the change, so that nobody knows.
    using Refusal = std::function<std::string(const std::vector<std::string>& files,
                                              const std::vector<std::string>& changed_since)>;
    Operation_outcome undo(const std::string& set, const Operation_progress& progress,
                           const Refusal& refusal = {});
    // The same with the newest change that left anything to undo.
    Operation_outcome undo_last(const Operation_progress& progress, const Refusal& refusal = {});

private:
    enum class Kind : std::uint8_t { copied, moved, made };
    struct Entry {
        Kind kind;
        std::string name; // from the project's folder on
    };
    struct Set {
        std::string operation;
        std::uint64_t bytes = 0;
        std::vector<Entry> entries;
    };

    // Each gives why it failed; nothing when it did not.
    std::string add_entries(Set& set, const std::vector<std::string>& names, Kind kind_of_present) const;
    std::string make_set(const std::string& operation);
    std::string copy_entries(const Set& set, const Operation_progress& progress, bool& stopped) const;
    std::string write_changes(const Set& set) const;
    bool read_changes(const std::string& name, Set& set) const;

    Operation_outcome begin(const Set& set, const Operation_progress& progress);
    std::vector<std::string> set_names(std::string& failure) const;
    void forget_old_sets() const;
    void remove(const std::string& set) const;
    void mark_end() const;
    std::vector<std::string> changed_since(const std::string& set, const Set& now) const;
    Set plan_undo(const std::string& name, const Set& old, Operation_outcome& outcome) const;
    std::string bring_back(const std::string& old_name, const Entry& entry) const;

    std::string place(const std::string& relative) const { return project_ + '\\' + relative; }
    // From the project's folder on; "" for what does not lie in it.
    std::string relative_name(const std::string& name) const;
    std::string folder_of(const std::string& set) const { return place("backups\\" + set); }
    // Where the entry lies in the set.
    std::string kept(const std::string& set, const std::string& relative) const {
        return folder_of(set) + "\\files\\" + relative;
    }

    std::string project_; // its full name, without a separator at the end
    std::string current_; // the set that was begun last
};
