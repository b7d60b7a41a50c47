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

// Whether it is a save of the file during which the program was killed. What lies aside without need is
// removed.
bool damaged(const Aside& aside, const std::string& path) {
    const Host_handle copy = open_to_read(aside.copy());
    if (!copy.is_open() && errno == ENOENT)
        aside.remove();
    if (!copy.is_open() || flock(copy.get(), LOCK_EX | LOCK_NB) != 0)
        return false;
    const auto text = text_in(aside.record());
    if (!text)
        return false;
    const auto record = rescue_record_in(*text);
    if (!record)
        aside.remove(); // the writing had not begun, or was over
    if (!record || !is_same_file(record->path, path))
        return false;
    const Host_handle file = open_to_read(path);
    if (!file.is_open() && errno == ENOENT)
        return false;
    if (!file.is_open() || !is_whole(file, *record, copy))
        return true;
    aside.remove();
    return false;
}

// The first of several saves holds what was there before the damage.
std::vector<Aside> all_aside() {
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
    std::vector<Aside> all;
    for (auto& [time, aside] : found)
        all.push_back(std::move(aside));
    return all;
}

Aside aside_of(const Interrupted_save& save) {
    return {join_host_path(rescue_folder(), save.entry)};
}

} // namespace

std::optional<Interrupted_save> interrupted_save(std::string_view name) {
    const std::vector<Aside> all = all_aside();
    // Only now: nearly always nothing lies aside, and the path costs more than to see that.
    const std::string path = all.empty() ? "" : real_path(host_path(name));
    if (path.empty())
        return std::nullopt;
    for (const Aside& aside : all)
        if (damaged(aside, path))
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

void discard(const Interrupted_save& save) {
    aside_of(save).remove();
}

} // namespace platform
