#include "platform/recent_documents.h"

#include "platform/entry_names.h"
#include "platform/host_handle.h"
#include "platform/user_folders.h"

#include <algorithm>
#include <ctime>
#include <fcntl.h>
#include <string_view>
#include <sys/stat.h>
#include <tuple>
#include <unistd.h>

namespace platform {

namespace {

constexpr std::size_t most_shortcuts = 50;
constexpr std::string_view extension = ".lnk";

struct Shortcut {
    std::string path;
    std::string target;
    timespec made{};
};

bool is_newer(const Shortcut& a, const Shortcut& b) {
    return std::tie(a.made.tv_sec, a.made.tv_nsec) > std::tie(b.made.tv_sec, b.made.tv_nsec);
}

bool ends_in_extension(std::string_view entry) {
    return entry.size() > extension.size() && entry.substr(entry.size() - extension.size()) == extension;
}

// The newest first.
std::vector<Shortcut> shortcuts_in(const std::string& folder) {
    std::vector<Shortcut> shortcuts;
    for (const std::string& entry : entries_of(open_to_read(folder)).names) {
        Shortcut shortcut{join_host_path(folder, entry), "", {}};
        struct stat state {};
        if (!ends_in_extension(entry) || lstat(shortcut.path.c_str(), &state) != 0 || !S_ISLNK(state.st_mode))
            continue;
        shortcut.target = target_of_link(shortcut.path);
        shortcut.made = state.st_mtim;
        shortcuts.push_back(std::move(shortcut));
    }
    std::stable_sort(shortcuts.begin(), shortcuts.end(), is_newer);
    return shortcuts;
}

void remove_shortcut(const std::string& path) {
    Folder_change change(host_folder_of(path));
    if (unlink(path.c_str()) == 0)
        change.removed(host_entry_of(path));
}

// The name of the document in front of its extension. Of a file whose name is all extension, such as the
// record in a project's folder, the folder's name tells the user more.
std::string stem_of(const std::string& path) {
    const std::string entry = host_entry_of(path);
    const std::size_t point = entry.rfind('.');
    return point == 0 ? host_entry_of(host_folder_of(path)) : entry.substr(0, point);
}

std::string extension_of(const std::string& path) {
    const std::string entry = host_entry_of(path);
    const std::size_t point = entry.rfind('.');
    return point == std::string::npos ? "" : entry.substr(point);
}

// Makes the link under the first free name. Gives its path, or "" when that cannot be.
std::string make_link(const std::string& folder, const std::string& target) {
    const std::string stem = stem_of(target);
    const std::string ending = extension_of(target).append(extension);
    Folder_change change(folder);
    for (std::size_t number = 1; number <= most_shortcuts + 1; ++number) {
        const std::string entry = stem + (number == 1 ? "" : " (" + std::to_string(number) + ")") + ending;
        const std::string path = join_host_path(folder, entry);
        if (symlink(target.c_str(), path.c_str()) == 0) {
            change.added(entry);
            return path;
        }
    }
    return "";
}

// The present, or a moment after the newest shortcut: the host's clock ticks slowly and can be put back.
timespec time_after(const std::vector<Shortcut>& shortcuts) {
    Shortcut now;
    clock_gettime(CLOCK_REALTIME, &now.made);
    if (!shortcuts.empty() && !is_newer(now, shortcuts.front())) {
        constexpr long nanoseconds_per_second = 1'000'000'000;
        now.made = shortcuts.front().made;
        now.made.tv_nsec = (now.made.tv_nsec + 1) % nanoseconds_per_second;
        now.made.tv_sec += now.made.tv_nsec == 0 ? 1 : 0;
    }
    return now.made;
}

} // namespace

std::string recent_documents_folder() {
    std::string folder = join_host_path(user_data_folder(), "tilverra/recent");
    make_host_folders(folder);
    return folder;
}

void note_recent_document(const std::string& path) {
    const std::string folder = recent_documents_folder();
    std::vector<Shortcut> shortcuts = shortcuts_in(folder);
    const timespec time = time_after(shortcuts);
    for (const Shortcut& shortcut : shortcuts)
        if (shortcut.target == path)
            remove_shortcut(shortcut.path);
    const std::string link = make_link(folder, path);
    const timespec times[2] = {time, time};
    utimensat(AT_FDCWD, link.c_str(), times, AT_SYMLINK_NOFOLLOW);

    shortcuts = shortcuts_in(folder);
    for (std::size_t i = most_shortcuts; i < shortcuts.size(); ++i)
        remove_shortcut(shortcuts[i].path);
}

std::vector<std::string> recent_shortcuts() {
    std::vector<std::string> paths;
    for (Shortcut& shortcut : shortcuts_in(recent_documents_folder()))
        paths.push_back(std::move(shortcut.path));
    return paths;
}

std::string target_of_link(const std::string& path) {
    const auto text = link_text(path);
    return text ? linked_path(host_folder_of(path), *text) : "";
}

} // namespace platform
