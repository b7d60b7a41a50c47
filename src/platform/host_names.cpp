#include "platform/host_names.h"

#include "foundation/code_page_1252.h"
#include "platform/current_directory.h"
#include "platform/entry_names.h"
#include "platform/user_folders.h"

#include <algorithm>
#include <cctype>
#include <climits>
#include <cstdlib>
#include <fcntl.h>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace platform {

namespace {

constexpr const char* drives_variable = "TVS_DRIVES";

struct Drive {
    char letter;           // in lower case
    std::string root;      // the host folder by the path that the drive's link gives
    std::string real_root; // the same without symbolic links
    std::string link{};    // the path of the drive's link; empty without one
};

struct Drives {
    std::string folder; // empty for the default drives
    std::vector<Drive> drives;
};

bool is_separator(char c) {
    return c == '\\' || c == '/';
}

// Appends the components of the text, "." left out and ".." worked out against what is there already.
void append_components(std::vector<std::string_view>& components, std::string_view text) {
    while (!text.empty()) {
        std::size_t length = 0;
        while (length < text.size() && !is_separator(text[length]))
            ++length;
        const std::string_view component = text.substr(0, length);
        text.remove_prefix(std::min(length + 1, text.size()));
        if (component.empty() || component == ".")
            continue;
        if (component != "..")
            components.push_back(component);
        else if (!components.empty())
            components.pop_back();
    }
}

// An absolute host path without "." and "..", and without links where ".." steps out of them.
std::string normal_host_path(std::string_view path) {
    std::string result;
    std::vector<std::string_view> components;
    while (!path.empty()) {
        const std::size_t length = std::min(path.find('/'), path.size());
        const std::string_view component = path.substr(0, length);
        path.remove_prefix(std::min(length + 1, path.size()));
        if (component.empty() || component == ".")
            continue;
        if (component != "..") {
            result.append("/").append(component);
            continue;
        }
        struct stat state {};
        if (lstat(result.c_str(), &state) == 0 && S_ISLNK(state.st_mode))
            if (const std::string real = real_path(result); !real.empty())
                result = real;
        result.resize(result.empty() ? 0 : result.rfind('/'));
    }
    return result.empty() ? "/" : result;
}

std::optional<Drive> linked_drive(const std::string& folder, char letter) {
    const std::string link = join_host_path(folder, std::string{letter, ':'});
    Drive drive{letter, "", real_path(link)};
    if (drive.real_root.empty())
        return std::nullopt;
    const auto target = link_text(link);
    drive.root = target ? normal_host_path(linked_path(folder, *target)) : link;
    drive.link = normal_host_path(link);
    return drive;
}

Drives load_drives() {
    const char* setting = std::getenv(drives_variable);
    Drives result;
    if (setting == nullptr || *setting == '\0') {
        const std::string c_root = join_host_path(user_data_folder(), "tilverra/drive_c");
        result.drives = {{'c', c_root, real_path(c_root)}, {'z', "/", "/"}};
        return result;
    }
    result.folder = setting;
    if (result.folder.front() != '/') {
        // The setting must mean the same after a change of directory, and to the programs started later.
        result.folder = join_host_path(real_path("."), result.folder);
        setenv(drives_variable, result.folder.c_str(), 1);
    }
    for (char letter = 'a'; letter <= 'z'; ++letter)
        if (auto drive = linked_drive(result.folder, letter))
            result.drives.push_back(std::move(*drive));
    return result;
}

std::optional<Drives>& loaded_drives() {
    static std::optional<Drives> drives;
    return drives;
}

Drives& drives_in_use() {
    std::optional<Drives>& drives = loaded_drives();
    if (!drives)
        drives = load_drives();
    return *drives;
}

// Null when there is no such drive.
const std::string* drive_root(char letter) {
    Drives& in_use = drives_in_use();
    for (Drive& drive : in_use.drives) {
        if (drive.letter != TESK::to_ascii_lower(letter))
            continue;
        if (drive.real_root.empty()) {
            make_host_folders(drive.root);
            drive.real_root = real_path(drive.root);
        }
        return &drive.root;
    }
    return nullptr;
}

// The number of characters of the path that the root takes up, or nothing when the path is not within it.
std::optional<std::size_t> head_length(std::string_view path, std::string_view root) {
    if (root == "/")
        return 0;
    const bool within = !root.empty() && path.substr(0, root.size()) == root &&
                        (path.size() == root.size() || path[root.size()] == '/');
    return within ? std::optional(root.size()) : std::nullopt;
}

bool has_drive(std::string_view name) {
    return name.size() >= 2 && name[1] == ':' && TESK::is_letter(name[0]);
}

// What exists in no spelling gets the host name of a new entry.
std::string resolve_components(std::string path, const std::vector<std::string_view>& components,
                               int& listing_error) {
    std::size_t next = 0;
    for (; next < components.size(); ++next) {
        int error = 0;
        const auto entry = find_entry(path, components[next], &error);
        listing_error = listing_error != 0 ? listing_error : error;
        if (!entry)
            break;
        path = join_host_path(path, *entry);
    }
    for (; next < components.size(); ++next) {
        if (components[next].find(':') != std::string_view::npos)
            return "";
        path = join_host_path(path, new_entry(components[next]));
    }
    return path;
}

std::string path_of_entry(std::string_view name, int& listing_error) {
    const std::string full = full_name(name);
    const std::string* root = full.empty() || full.size() > PATH_MAX ? nullptr : drive_root(full[0]);
    if (root == nullptr)
        return "";
    std::vector<std::string_view> components;
    append_components(components, std::string_view(full).substr(2));
    if (components.empty())
        return *root;

    // Nearly always everything is there as it stands, or all but the last component.
    std::string folder = *root;
    for (std::size_t i = 0; i + 1 < components.size(); ++i)
        folder = join_host_path(folder, TESK::utf8_from_code_page(components[i]));
    std::string path = join_host_path(folder, TESK::utf8_from_code_page(components.back()));
    if (host_entry_exists(path))
        return path;
    if (host_entry_exists(folder))
        return resolve_components(folder, {components.back()}, listing_error);
    return resolve_components(*root, components, listing_error);
}

} // namespace

bool is_suite_name(std::string_view argument) {
    return argument.find('\\') != std::string_view::npos || (argument.size() > 1 && argument[1] == ':');
}

std::string name_of_argument(const std::string& argument) {
    return is_suite_name(argument) || argument.empty() ? argument : name_from_host_path(argument);
}

std::string full_name(std::string_view name) {
    if (name.empty() || name.find('\0') != std::string_view::npos)
        return "";
    const bool with_drive = has_drive(name);
    const std::string_view rest = with_drive ? name.substr(2) : name;
    const bool rooted = !rest.empty() && is_separator(rest.front());

    std::string current;
    if (!with_drive || (!rooted && !rest.empty())) {
        current = current_directory();
        if (current.empty() && !with_drive)
            return "";
    }
    std::string drive(with_drive ? name.substr(0, 2) : std::string_view(current).substr(0, 2));
    std::vector<std::string_view> components;
    if (rooted) {
        if (!with_drive && TESK::to_ascii_lower(drive[0]) == 'z')
            drive = "C:";
    } else if (TESK::equal_ignoring_case(std::string_view(current).substr(0, 2), drive)) {
        append_components(components, std::string_view(current).substr(2));
    }
    append_components(components, rest);

    std::string result = drive;
    for (const std::string_view component : components)
        result.append("\\").append(component);
    return components.empty() ? result + '\\' : result;
}

std::string host_path(std::string_view name, int* listing_error) {
    int error = 0;
    std::string path = path_of_entry(name, error);
    if (listing_error != nullptr)
        *listing_error = error;
    if (!name.empty() && is_separator(name.back()))
        if (struct stat state{}; stat(path.c_str(), &state) == 0 && !S_ISDIR(state.st_mode))
            return "";
    return path;
}

std::string name_from_host_path(std::string_view path) {
    if (path.empty() || path.find('\0') != std::string_view::npos)
        return "";
    std::string absolute(path);
    if (path.front() != '/')
        absolute = join_host_path(host_path(current_directory()), path);
    absolute = normal_host_path(absolute);

    const Drive* best = nullptr;
    std::size_t best_length = 0;
    for (const Drive& drive : drives_in_use().drives)
        for (const std::string* root : {&drive.root, &drive.real_root, &drive.link})
            if (const auto length = head_length(absolute, *root);
                length && (best == nullptr || *length > best_length)) {
                best = &drive;
                best_length = *length;
            }
    if (best == nullptr)
        return "";

    std::string result{TESK::to_ascii_upper(best->letter), ':'};
    std::string folder = absolute.substr(0, best_length);
    const std::string_view below = std::string_view(absolute).substr(best_length);
    if (below.find('\\') != std::string_view::npos)
        return "";
    std::vector<std::string_view> components;
    append_components(components, below);
    for (const std::string_view component : components) {
        const std::string entry(component);
        result.append("\\").append(name_of_entry(folder, entry));
        folder = join_host_path(folder, entry);
    }
    return components.empty() ? result + '\\' : result;
}

std::string missing_drive(std::string_view name) {
    const bool has_drive =
        name.size() > 1 && name[1] == ':' && std::isalpha(static_cast<unsigned char>(name[0])) != 0;
    return has_drive && drive_root(name[0]) == nullptr ? std::string(name.substr(0, 2)) : "";
}

std::string drives_folder() {
    return drives_in_use().folder;
}

bool holds_drive_root(std::string_view name) {
    const std::string path = host_path(name);
    const std::vector<Drive>& drives = drives_in_use().drives;
    return !path.empty() && std::any_of(drives.begin(), drives.end(), [&](const Drive& drive) {
        return head_length(drive.root, path) || head_length(drive.real_root, path);
    });
}

Drives_guard::Drives_guard(const std::string& host_folder) {
    if (const char* setting = std::getenv(drives_variable)) {
        was_set_ = true;
        old_folder_ = setting;
    }
    old_directory_ = open(".", O_PATH | O_DIRECTORY | O_CLOEXEC);
    setenv(drives_variable, host_folder.c_str(), 1);
    loaded_drives().reset();
    forget_current_directory();
}

Drives_guard::~Drives_guard() {
    if (was_set_)
        setenv(drives_variable, old_folder_.c_str(), 1);
    else
        unsetenv(drives_variable);
    loaded_drives().reset();
    if (old_directory_ >= 0) {
        // When the directory is gone, there is none to go back to.
        [[maybe_unused]] const int result = fchdir(old_directory_);
        close(old_directory_);
    }
    forget_current_directory();
}

} // namespace platform
