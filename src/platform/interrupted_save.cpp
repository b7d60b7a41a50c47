#include "platform/interrupted_save.h"

#include "platform/entry_names.h"
#include "platform/host_names.h"
#include "platform/in_place_save.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace platform {

namespace {

int views = 0; // that live

struct Aside {
    std::string head; // the path without the ending
    std::string record() const { return head + std::string(rescue_record_ending); }
    std::string copy() const { return head + std::string(rescue_copy_ending); }
    void remove() const {
        unlink(record().c_str());
        unlink(copy().c_str());
    }
};

off_t size_of(const Host_handle& file) {
    struct stat state {};
    return fstat(file.get(), &state) == 0 ? state.st_size : 0;
}

// All of a small file; nothing when it cannot be read.
std::optional<std::string> text_in(const std::string& path) {
    constexpr off_t largest = 1 << 16;
    const Host_handle file = open_to_read(path);
    if (!file.is_open())
        return errno == ENOENT ? std::optional<std::string>("") : std::nullopt;
    std::string text(static_cast<std::size_t>(std::min(size_of(file), largest)), '\0');
    const ssize_t count = pread(file.get(), text.data(), text.size(), 0);
    return count == static_cast<ssize_t>(text.size()) ? std::optional(std::move(text)) : std::nullopt;
}

bool is_same_file(const std::string& a, const std::string& b) {
    struct stat state {};
    struct stat other {};
    return a == b || (stat(a.c_str(), &state) == 0 && stat(b.c_str(), &other) == 0 &&
                      state.st_dev == other.st_dev && state.st_ino == other.st_ino);
}

// Whether the file holds what the save was to write, or what it held before.
bool is_whole(const Host_handle& file, const Rescue_record& record, const Host_handle& copy) {
    const off_t size = size_of(file);
    const auto checksum = checksum_of(Content(file, size));
    if (!checksum)
        return false;
    return (size == record.size && *checksum == record.checksum) ||
           (size == size_of(copy) && checksum == checksum_of(Content(copy, size)));
}

// A file that a save is looked for, on the host.
struct Sought_file {
    explicit Sought_file(const std::string& the_path)
        : path(the_path), mark(mark_of(AT_FDCWD, path.c_str())) {}
    std::string path; // without links
    File_mark mark;
};

enum class Relation { other, replaced, same };

// What the file has to do with the one that the record tells of, which may have another name by now.
Relation relation_of(const Sought_file& file, const Rescue_record& record) {
    if (record.mark.born == 0 || file.mark.born == 0)
        return is_same_file(record.path, file.path) ? Relation::same : Relation::other;
    if (record.mark == file.mark)
        return Relation::same;
    return record.path == file.path ? Relation::replaced : Relation::other;
}

// The record of a save that no program is at; nothing when there is none. What lies aside without need is
// removed.
std::optional<Rescue_record> record_of(const Aside& aside, const Host_handle& copy) {
    if (!copy.is_open() && errno == ENOENT)
        aside.remove();
    if (!copy.is_open() || flock(copy.get(), LOCK_EX | LOCK_NB) != 0)
        return std::nullopt;
    const auto text = text_in(aside.record());
    if (!text)
        return std::nullopt;
    auto record = rescue_record_in(*text);
    if (!record)
        aside.remove(); // the writing had not begun, or was over
    return record;
}

// Whether it is a save of the file during which the program was killed.
bool damaged(const Aside& aside, const Sought_file& sought) {
    const Host_handle copy = open_to_read(aside.copy());
    const auto record = record_of(aside, copy);
    const Relation relation = record ? relation_of(sought, *record) : Relation::other;
    if (relation == Relation::replaced && record->links == 1)
        aside.remove(); // what was damaged is gone
    if (relation != Relation::same)
        return false;
    const Host_handle file = open_to_read(sought.path);
    if (!file.is_open() && errno == ENOENT)
        return false;
    if (!file.is_open() || !is_whole(file, *record, copy))
        return true;
    aside.remove();
    return false;
}

// The first of several saves holds what was there before the damage.
std::vector<Aside> all_aside() {
    if (nothing_lies_aside())
        return {};
    std::vector<std::pair<timespec, Aside>> found;
    const std::string folder = rescue_folder();
    for (const std::string& entry : entries_of(open_to_read(folder)).names)
        for (const std::string_view ending : {rescue_copy_ending, rescue_record_ending}) {
            struct stat state {};
            if (entry.ends_with(ending) && lstat(join_host_path(folder, entry).c_str(), &state) == 0)
                found.push_back({state.st_mtim,
                                 {join_host_path(folder, entry)
                                      .erase(folder.size() + 1 + entry.size() - ending.size())}});
        }
    std::sort(found.begin(), found.end(), [](const auto& a, const auto& b) {
        return std::pair(a.first.tv_sec, a.first.tv_nsec) < std::pair(b.first.tv_sec, b.first.tv_nsec);
    });
    set_nothing_lies_aside(views > 0 && found.empty());
    std::vector<Aside> all;
    for (auto& [time, aside] : found)
        all.push_back(std::move(aside));
    return all;
}

Aside aside_of(const Interrupted_save& save) {
    return {join_host_path(rescue_folder(), save.entry)};
}

} // namespace

Interruptions_view::Interruptions_view() {
    ++views;
}

Interruptions_view::~Interruptions_view() {
    if (--views == 0)
        set_nothing_lies_aside(false);
}

std::optional<Interrupted_save> interrupted_save(std::string_view name) {
    const std::vector<Aside> all = all_aside();
    // Only now: nearly always nothing lies aside, and the path costs more than to see that.
    const std::string path = all.empty() ? "" : real_path(host_path(name));
    if (path.empty())
        return std::nullopt;
    const Sought_file file(path);
    for (const Aside& aside : all)
        if (damaged(aside, file))
            return Interrupted_save{name_from_host_path(aside.copy()), host_entry_of(aside.head)};
    return std::nullopt;
}

Write_result restore(std::string_view name, const Interrupted_save& save) {
    Write_result failure;
    const std::string path = path_to_write(name, failure);
    const Aside aside = aside_of(save);
    const Host_handle copy = open_to_read(aside.copy());
    if (path.empty() || !copy.is_open())
        return path.empty() ? failure : write_result_from_errno(errno);
    Write_result result = replace_file(path, Content(copy, size_of(copy)), 0666, Durability::durable);
    if (result.ok())
        aside.remove();
    return result;
}

void forget_interrupted_saves(const std::string& path) {
    const Sought_file file(path);
    for (const Aside& aside : all_aside()) {
        const Host_handle copy = open_to_read(aside.copy());
        const auto record = record_of(aside, copy);
        if (record && relation_of(file, *record) == Relation::same)
            aside.remove();
    }
}

void discard(const Interrupted_save& save) {
    aside_of(save).remove();
}

} // namespace platform
