#include "platform/folder_watch.h"

#include "platform/entry_names.h"
#include "platform/host_names.h"

#include <algorithm>
#include <cstring>
#include <sys/inotify.h>
#include <unistd.h>
#include <utility>

namespace platform {

Folder_watch::Folder_watch() : descriptor_(inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {}

Folder_watch::~Folder_watch() {
    if (descriptor_ >= 0)
        close(descriptor_);
}

std::optional<int> Folder_watch::watch_folder(std::string_view name) {
    return add(real_path(host_path(name)), "");
}

std::optional<int> Folder_watch::watch_file(std::string_view name) {
    const std::string path = host_path(name);
    const std::string real = real_path(path);
    const std::string& file = real.empty() ? path : real;
    return file.empty() ? std::nullopt : add(host_folder_of(file), host_entry_of(file));
}

std::optional<int> Folder_watch::add(const std::string& folder, const std::string& entry) {
    if (watched_.size() >= most_watches)
        return std::nullopt;
    const int kernel_number =
        inotify_add_watch(descriptor_, folder.c_str(),
                          IN_CREATE | IN_DELETE | IN_MOVED_FROM | IN_MOVED_TO | IN_CLOSE_WRITE |
                              IN_DELETE_SELF | IN_MOVE_SELF | IN_ONLYDIR);
    if (kernel_number < 0)
        return std::nullopt;
    watched_[++last_number_] = {kernel_number, entry};
    return last_number_;
}

void Folder_watch::forget(int watch) {
    const auto found = watched_.find(watch);
    if (found == watched_.end())
        return;
    const int kernel_number = found->second.kernel_number;
    watched_.erase(found);
    changed_.erase(watch);
    const bool is_used = std::any_of(watched_.begin(), watched_.end(), [&](const auto& other) {
        return other.second.kernel_number == kernel_number;
    });
    if (!is_used)
        inotify_rm_watch(descriptor_, kernel_number);
}

void Folder_watch::note(int kernel_number, std::string_view entry, unsigned mask) {
    // A folder that was renamed is another one by name.
    const bool has_ended = (mask & (IN_IGNORED | IN_DELETE_SELF | IN_MOVE_SELF)) != 0;
    if (!has_ended && is_unfinished_save(entry))
        return;
    for (const auto& [number, watched] : watched_) {
        const bool is_meant =
            (mask & IN_Q_OVERFLOW) != 0 || (watched.kernel_number == kernel_number &&
                                            (has_ended || watched.entry.empty() || watched.entry == entry));
        if (is_meant)
            changed_[number] = changed_[number] || has_ended;
    }
}

std::vector<Folder_watch::Change> Folder_watch::take_changes() {
    alignas(inotify_event) char buffer[16384];
    ssize_t size = 0;
    while ((size = read(descriptor_, buffer, sizeof buffer)) > 0)
        for (const char* at = buffer; at < buffer + size;) {
            inotify_event event{};
            std::memcpy(&event, at, sizeof event);
            note(event.wd, event.len > 0 ? at + sizeof event : "", event.mask);
            at += sizeof event + event.len;
        }
    std::vector<Change> changes;
    for (const auto& [number, has_ended] : std::exchange(changed_, {})) {
        changes.push_back({number, has_ended});
        if (has_ended)
            forget(number);
    }
    return changes;
}

} // namespace platform
