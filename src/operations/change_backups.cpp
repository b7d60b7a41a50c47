#include "operations/change_backups.h"

#include "foundation/code_page_1252.h"
#include "platform/change_times.h"
#include "platform/file_writer.h"
#include "platform/files.h"
#include "platform/host_names.h"
#include "platform/listing.h"
#include "platform/moving.h"
#include "records/line_reader.h"
#include "temporal/local_clock.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <cstdlib>

namespace {

constexpr const char* changes_file = "\\changes.txt";
constexpr const char* end_file = "\\end.txt"; // its time is that of the change's end, by the disk's clock
constexpr std::size_t largest_changes_file = std::size_t{64} << 20;
constexpr std::string_view kind_words[] = {"copied", "moved", "made"};
constexpr std::size_t number_width = 4;
constexpr std::size_t time_width = 19;

std::string time_text(const TESK::Local_moment& now) {
    char text[64];
    std::snprintf(text, sizeof text, "%04d-%02d-%02d %02d-%02d-%02d", now.year, now.month, now.day_of_month,
                  now.hour, now.minute, now.second);
    return text;
}

// The parts of "0007 2026-11-25 08-30-12 reset".
unsigned number_of(const std::string& set) {
    unsigned number = 0;
    std::from_chars(set.data(), set.data() + set.size(), number);
    return number;
}

std::string time_of(const std::string& set) {
    const std::size_t blank = set.find(' ');
    return blank == std::string::npos ? std::string() : set.substr(blank + 1, time_width);
}

// Not for a name by which a damaged or foreign set could reach what is not the project's, nor for one that
// the list of a set cannot hold.
bool stays_inside(std::string_view relative) {
    const auto is_refused = [](char c) {
        return c == ':' || c == '/' || (static_cast<unsigned char>(c) < ' ');
    };
    if (relative.empty() || std::any_of(relative.begin(), relative.end(), is_refused))
        return false;
    for (std::size_t begin = 0; begin <= relative.size();) {
        const std::size_t end = std::min(relative.find('\\', begin), relative.size());
        const std::string_view part = relative.substr(begin, end - begin);
        if (part.empty() || part == "." || part == "..")
            return false;
        begin = end + 1;
    }
    return true;
}

} // namespace

Change_backups::Change_backups(const TESK::Directory_name& project_folder)
    : project_(platform::full_name(project_folder)) {
    while (project_.ends_with('\\'))
        project_.pop_back();
}

Change_backups::Need Change_backups::need(const std::vector<std::string>& names) {
    Need need;
    for (const std::string& name : names) {
        if (!platform::exists(name))
            continue;
        ++need.entries;
        need.bytes += platform::bytes_below(name);
    }
    return need;
}

std::string Change_backups::relative_name(const std::string& name) const {
    const std::string full = platform::full_name(name);
    if (full.size() <= project_.size() || full[project_.size()] != '\\' ||
        !TESK::equal_ignoring_case(std::string_view(full).substr(0, project_.size()), project_))
        return {};
    return full.substr(project_.size() + 1);
}

std::string Change_backups::add_entries(Set& set, const std::vector<std::string>& names,
                                        Kind kind_of_present) const {
    for (const std::string& name : names) {
        const std::string relative = relative_name(name);
        if (!stays_inside(relative))
            return "It is no file of the project: " + name;
        const bool is_there = platform::exists(name);
        set.entries.push_back({is_there ? kind_of_present : Kind::made, relative});
        if (is_there)
            set.bytes += platform::bytes_below(name);
    }
    if (set.bytes > most_bytes)
        return "There is too much to put aside.";
    return {};
}

Operation_outcome Change_backups::put_copies_aside(const std::string& operation,
                                                   const std::vector<std::string>& names,
                                                   const Operation_progress& progress) {
    Set set{operation, 0, {}};
    Operation_outcome outcome;
    outcome.refused = add_entries(set, names, Kind::copied);
    if (outcome.refused.empty())
        outcome = begin(set, progress);
    forget_old_sets();
    return outcome;
}

Operation_outcome Change_backups::announce(const std::string& operation,
                                           const std::vector<std::string>& names) {
    Set set{operation, 0, {}};
    Operation_outcome outcome;
    outcome.refused = add_entries(set, names, Kind::moved);
    if (outcome.refused.empty())
        outcome = begin(set, {});
    forget_old_sets();
    return outcome;
}

platform::Write_result Change_backups::move(const std::string& name) const {
    return current_.empty() ? platform::write_failure(platform::Write_error::absent)
                            : platform::move_entry(name, kept(current_, relative_name(name)));
}

bool Change_backups::move_back(const std::string& name) const {
    return !current_.empty() && platform::move_entry(kept(current_, relative_name(name)), name).ok();
}

// Makes the set: it counts once the list of its entries is on the disk, behind all that it needs.
Operation_outcome Change_backups::begin(const Set& set, const Operation_progress& progress) {
    Operation_outcome outcome;
    outcome.refused = make_set(set.operation);
    if (!outcome.refused.empty())
        return outcome;
    outcome.refused = copy_entries(set, progress, outcome.stopped);
    if (outcome.refused.empty() && !outcome.stopped && !platform::flush_file_system(folder_of(current_)))
        outcome.refused = "The disk has a fault.";
    if (outcome.refused.empty() && !outcome.stopped)
        outcome.refused = write_changes(set);
    if (!outcome.refused.empty() || outcome.stopped) {
        remove(current_);
        current_.clear();
        if (!outcome.refused.empty())
            outcome.refused = "What will be changed cannot be put aside. " + outcome.refused;
        return outcome;
    }
    outcome.done = set.entries.size();
    return outcome;
}

std::string Change_backups::make_set(const std::string& operation) {
    mark_end();
    std::string failure;
    const std::vector<std::string> sets = set_names(failure);
    if (!failure.empty())
        return failure; // a number that is taken would put the changes out of order
    unsigned number = sets.empty() ? 0 : number_of(sets.back());
    const std::string time = time_text(TESK::local_now());
    const std::string folder = place("backups");
    platform::Write_result made;
    if (platform::make_folders(folder, &made))
        made = platform::permission_to_remove(folder_of("x"));
    if (!made.ok())
        return "The folder " + folder + " cannot be made or written: " + made.reason;
    constexpr int most_tries = 100;
    for (int tries = 0; tries < most_tries; ++tries) {
        std::string digits = std::to_string(++number);
        digits.insert(0, number_width - std::min(number_width, digits.size()), '0');
        current_ = digits + ' ' + time + ' ' + operation;
        if (platform::make_folder(folder_of(current_)))
            return {};
    }
    return "The folder cannot be made: " + folder_of(current_) + ".";
}

std::string Change_backups::copy_entries(const Set& set, const Operation_progress& progress,
                                         bool& stopped) const {
    std::string last_folder;
    for (std::size_t i = 0; i < set.entries.size(); ++i) {
        const Entry& entry = set.entries[i];
        if (entry.kind != Kind::copied)
            continue;
        stopped = !goes_on(progress, i, set.entries.size());
        if (stopped)
            return {};
        const std::string copy = kept(current_, entry.name);
        std::string folder = copy.substr(0, copy.rfind('\\'));
        if (folder != last_folder)
            platform::make_folders(folder);
        last_folder = std::move(folder);
        const platform::Write_result result = platform::copy_file(place(entry.name), copy);
        if (!result.ok())
            return place(entry.name) + ": " + result.reason;
    }
    return {};
}

std::string Change_backups::write_changes(const Set& set) const {
    std::string text = "operation=" + set.operation + "\r\nbytes=" + std::to_string(set.bytes) + "\r\n";
    for (const Entry& entry : set.entries) {
        text.append(kind_words[static_cast<std::size_t>(entry.kind)]).append("=");
        text.append(entry.name).append("\r\n");
    }
    return platform::write_file(folder_of(current_) + changes_file, text, platform::Durability::durable)
        .reason;
}

// False when the set is not whole, or no set.
bool Change_backups::read_changes(const std::string& name, Set& set) const {
    const platform::Read_result file =
        platform::read_file(folder_of(name) + changes_file, largest_changes_file);
    if (!file.ok())
        return false;
    TESK::Line_reader lines(file.contents);
    for (std::string_view line; lines.next(line);) {
        const std::size_t equals = std::min(line.find('='), line.size());
        const std::string_view word = line.substr(0, equals);
        const std::string value(line.substr(std::min(equals + 1, line.size())));
        if (word == "operation")
            set.operation = value;
        else if (word == "bytes")
            set.bytes = std::strtoull(value.c_str(), nullptr, 10);
        for (std::size_t kind = 0; kind < std::size(kind_words); ++kind)
            if (word == kind_words[kind] && stays_inside(value))
                set.entries.push_back({static_cast<Kind>(kind), value});
    }
    return true;
}

// In the order in which they were made; `failure` is empty when these are all.
std::vector<std::string> Change_backups::set_names(std::string& failure) const {
    std::vector<std::string> names;
    const platform::Folder_listing listing = platform::list_folder(folder_of(""));
    failure = told_listing(folder_of(""), listing.result);
    for (const platform::Folder_entry& entry : listing)
        if ((entry.attributes & platform::attribute_directory) != 0 && !entry.is_link &&
            number_of(entry.name) > 0)
            names.push_back(entry.name);
    std::sort(names.begin(), names.end(), [](const std::string& a, const std::string& b) {
        return number_of(a) != number_of(b) ? number_of(a) < number_of(b) : a < b;
    });
    return names;
}

std::vector<Change_backups::Change> Change_backups::list(std::string* failure) const {
    std::string reason;
    std::vector<std::string> names = set_names(failure != nullptr ? *failure : reason);
    std::reverse(names.begin(), names.end());
    std::vector<Change> changes;
    for (const std::string& name : names)
        if (Set set; read_changes(name, set))
            changes.push_back({name, set.operation, time_of(name), set.entries.size()});
    return changes;
}

std::optional<Change_backups::Change> Change_backups::newest(std::string* failure) const {
    std::string reason;
    const std::vector<std::string> names = set_names(reason);
    if (failure != nullptr)
        *failure = reason;
    for (auto name = names.rbegin(); reason.empty() && name != names.rend(); ++name)
        if (Set set; read_changes(*name, set))
            return Change{*name, set.operation, time_of(*name), set.entries.size()};
    return std::nullopt;
}

// Deletes the oldest sets beyond the bounds, and those of earlier days that never became whole.
void Change_backups::forget_old_sets() const {
    constexpr std::size_t day_width = 10;
    const std::string today = time_text(TESK::local_now()).substr(0, day_width);
    std::string failure;
    std::vector<std::string> names = set_names(failure);
    std::reverse(names.begin(), names.end());
    std::size_t count = 0;
    std::uint64_t bytes = 0;
    for (const std::string& name : names) {
        Set set;
        if (!read_changes(name, set)) {
            if (!time_of(name).starts_with(today))
                remove(name);
            continue;
        }
        bytes += set.bytes;
        if (++count > most_kept || (count > 1 && bytes > most_bytes))
            remove(name);
    }
}

void Change_backups::remove(const std::string& set) const {
    // First it ceases to count: half a set must not be brought back.
    platform::delete_file(folder_of(set) + changes_file);
    platform::remove_tree(folder_of(set));
}

// ---- undo

Operation_outcome Change_backups::undo_last(const Operation_progress& progress, const Refusal& refusal) {
    std::string failure;
    const std::vector<Change> changes = list(&failure);
    for (const Change& change : failure.empty() ? changes : std::vector<Change>()) {
        Operation_outcome outcome = undo(change.set, progress, refusal);
        if (!outcome.refused.empty() || outcome.stopped || outcome.done > 0 || !outcome.not_done.empty())
            return outcome;
        remove(change.set);
    }
    Operation_outcome outcome;
    outcome.refused = failure.empty() ? "There is no change that could be undone." : failure;
    return outcome;
}

Operation_outcome Change_backups::undo(const std::string& name, const Operation_progress& progress,
                                       const Refusal& refusal) {
    Operation_outcome outcome;
    Set old;
    if (name.find_first_of("\\/:") != std::string::npos || !read_changes(name, old)) {
        outcome.refused = "There is no such change: " + name + '.';
        return outcome;
    }
    const Set now = plan_undo(name, old, outcome);
    if (now.entries.empty())
        return outcome;
    std::vector<std::string> files;
    for (const Entry& entry : now.entries)
        files.push_back(place(entry.name));
    if (refusal && !(outcome.refused = refusal(files, changed_since(name, now))).empty())
        return outcome;
    // What is moved needs no room: it lies in the project already.
    const Operation_outcome begun = begin(now, {});
    if (!begun.ok()) {
        outcome.refused = begun.refused;
        return outcome;
    }
    for (std::size_t i = 0; i < now.entries.size() && !outcome.stopped; ++i) {
        outcome.stopped = !goes_on(progress, i, now.entries.size());
        const Entry& entry = now.entries[i];
        const std::string reason = outcome.stopped ? std::string() : bring_back(name, entry);
        if (!reason.empty())
            outcome.not_done.push_back({place(entry.name), reason});
        else if (!outcome.stopped)
            ++outcome.done;
    }
    const bool holds_copies = std::any_of(old.entries.begin(), old.entries.end(),
                                          [](const Entry& entry) { return entry.kind == Kind::copied; });
    if (!holds_copies && outcome.not_done.empty() && !outcome.stopped)
        remove(name);  // nothing is left in it
    forget_old_sets(); // only now: the set that is brought back may be an old one
    return outcome;
}

void Change_backups::mark_end() const {
    if (!current_.empty())
        platform::write_file(folder_of(current_) + end_file, "", platform::Durability::quick);
}

std::vector<std::string> Change_backups::changed_since(const std::string& set, const Set& now) const {
    std::vector<std::string> changed;
    const auto end = platform::change_time(folder_of(set) + end_file);
    for (const Entry& entry : end ? now.entries : std::vector<Entry>()) {
        const std::string name = place(entry.name);
        if (std::max(platform::change_time(name).value_or(0), platform::folder_mark(name).newest) > *end)
            changed.push_back(entry.name);
    }
    return changed;
}

// What has to be put aside to undo a set: nothing for what is as it was.
Change_backups::Set Change_backups::plan_undo(const std::string& name, const Set& old,
                                              Operation_outcome& outcome) const {
    constexpr std::string_view undo_words = "undo of ";
    Set now;
    now.operation = old.operation.starts_with(undo_words) ? old.operation.substr(undo_words.size())
                                                          : std::string(undo_words) + old.operation;
    for (const Entry& entry : old.entries) {
        const bool is_there = platform::exists(place(entry.name));
        const bool is_kept = platform::exists(kept(name, entry.name));
        if (entry.kind == Kind::made ? !is_there : !is_kept) {
            if (entry.kind == Kind::copied)
                outcome.not_done.push_back({place(entry.name), "Its copy is gone."});
            continue;
        }
        if (!is_there) {
            now.entries.push_back({Kind::made, entry.name});
            continue;
        }
        if (entry.kind == Kind::copied) {
            const platform::Read_result copy = platform::read_file(kept(name, entry.name));
            if (copy.ok() && copy.contents == platform::read_file(place(entry.name)).contents)
                continue;
        }
        now.entries.push_back({entry.kind == Kind::copied ? Kind::copied : Kind::moved, entry.name});
        now.bytes += platform::bytes_below(place(entry.name));
    }
    return now;
}

// Puts what the old set keeps of the entry, or nothing, where the entry is. Gives why it could not.
std::string Change_backups::bring_back(const std::string& old_name, const Entry& entry) const {
    const std::string old_copy = kept(old_name, entry.name);
    const bool is_kept = platform::exists(old_copy);
    if (entry.kind == Kind::copied)
        return platform::copy_file(old_copy, place(entry.name)).reason;
    if (entry.kind == Kind::moved)
        if (std::string reason = move(place(entry.name)).reason; !reason.empty())
            return reason;
    return is_kept ? platform::move_entry(old_copy, place(entry.name)).reason : std::string();
}
