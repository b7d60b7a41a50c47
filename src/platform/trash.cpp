#include "platform/trash.h"

#include "platform/entry_names.h"
#include "platform/file_replacement.h"
#include "platform/host_handle.h"
#include "platform/percent_encoding.h"
#include "platform/user_folders.h"

#include <climits>
#include <ctime>
#include <fcntl.h>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>

namespace platform {

namespace {

constexpr mode_t for_the_user_alone = 0700;
// The longest name that leaves room for a number and for the extension of the record beside it.
constexpr std::size_t longest_trashed_name = NAME_MAX - 40;

struct Trash {
    std::string folder;
    std::string recorded_from; // the folder that recorded paths are relative to; "" when they are absolute
};

std::optional<struct stat> state_of(const std::string& path) {
    struct stat state {};
    return lstat(path.c_str(), &state) == 0 ? std::optional(state) : std::nullopt;
}

// Makes the folder where it is missing. False when it then is a link, or belongs to somebody else.
bool make_own_folder(const std::string& path) {
    mkdir(path.c_str(), for_the_user_alone);
    const auto state = state_of(path);
    return state && S_ISDIR(state->st_mode) && state->st_uid == geteuid();
}

// The highest folder above the real path that is on the same file system.
std::string top_folder(const std::string& real_folder, dev_t device) {
    std::string top = real_folder;
    while (top != "/") {
        std::string above = host_folder_of(top);
        const auto state = state_of(above);
        if (!state || state->st_dev != device)
            break;
        top = std::move(above);
    }
    return top;
}

std::optional<Trash> trash_of_file_system(const std::string& top) {
    const std::string user = std::to_string(geteuid());
    const std::string shared = join_host_path(top, ".Trash");
    const auto state = state_of(shared);
    // Without the sticky bit, one user could put a link in place of the folder of another.
    if (state && S_ISDIR(state->st_mode) && (state->st_mode & S_ISVTX) != 0)
        if (const std::string own = join_host_path(shared, user); make_own_folder(own))
            return Trash{own, top};
    const std::string own = join_host_path(top, ".Trash-" + user);
    return make_own_folder(own) ? std::optional(Trash{own, top}) : std::nullopt;
}

std::optional<Trash> trash_for(const std::string& real_folder, dev_t device) {
    const std::string home_trash = join_host_path(user_data_folder(), "Trash");
    const bool is_ready = make_host_folders(home_trash);
    const auto state = state_of(real_path(is_ready ? home_trash : home_folder()));
    if (!state || state->st_dev != device)
        return trash_of_file_system(top_folder(real_folder, device));
    return is_ready ? std::optional(Trash{home_trash, ""}) : std::nullopt;
}

std::string deletion_time() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    tzset();
    localtime_r(&now, &local);
    char text[32];
    return {text, std::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%S", &local)};
}

std::string record_of(const Trash& trash, const std::string& path) {
    const std::size_t begin = trash.recorded_from.empty()  ? 0
                              : trash.recorded_from == "/" ? 1
                                                           : trash.recorded_from.size() + 1;
    return "[Trash Info]\nPath=" + percent_encoded(std::string_view(path).substr(begin)) +
           "\nDeletionDate=" + deletion_time() + "\n";
}

// The name that the entry gets in the trash at a later try: one that is hardly taken, with the same
// extension.
std::string other_name(const std::string& entry) {
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    const std::size_t point = entry.rfind('.');
    const std::size_t stem = point == std::string::npos || point == 0 ? entry.size() : point;
    return entry.substr(0, stem) + '.' + std::to_string(now.tv_sec * 1'000'000'000LL + now.tv_nsec) +
           entry.substr(stem);
}

// Where an entry and its record are to be in a trash.
struct Place {
    std::string entry;
    std::string record;
};

// Finds a name that neither an entry nor a record has yet, and makes the record, still empty, so that nobody
// else takes it.
std::optional<Place> reserve_place(const Trash& trash, const std::string& entry) {
    const std::string entries = join_host_path(trash.folder, "files");
    const std::string records = join_host_path(trash.folder, "info");
    if (!make_host_folders(entries) || !make_host_folders(records))
        return std::nullopt;
    const std::string first_name = entry.size() > longest_trashed_name ? "long-name" : entry;
    std::string name = first_name;
    constexpr int most_tries = 100;
    for (int tries = 0; tries < most_tries; ++tries) {
        Place place{join_host_path(entries, name), join_host_path(records, name + ".trashinfo")};
        if (!host_entry_exists(place.entry) &&
            Host_handle(open(place.record.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600)).is_open())
            return place;
        name = other_name(first_name);
    }
    return std::nullopt;
}

// The record comes first and is taken back when the entry cannot follow.
bool move_into(const Trash& trash, const std::string& path) {
    const std::string entry = host_entry_of(path);
    const auto place = reserve_place(trash, entry);
    if (!place)
        return false;
    const std::string record = record_of(trash, path);
    Folder_change change(host_folder_of(path));
    if (replace_file(place->record, Content(record), 0600, Durability::durable).ok() &&
        rename(path.c_str(), place->entry.c_str()) == 0) {
        change.removed(entry);
        return true;
    }
    unlink(place->record.c_str());
    return false;
}

} // namespace

bool move_to_trash(const std::string& path) {
    const std::string folder = real_path(host_folder_of(path));
    const std::string real = join_host_path(folder, host_entry_of(path));
    const auto state = state_of(folder);
    if (!state || real == "/" || !host_entry_exists(real))
        return false;
    const auto trash = trash_for(folder, state->st_dev);
    return trash && move_into(*trash, real);
}

} // namespace platform
