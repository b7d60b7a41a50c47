#include "platform/trash.h"

#include "platform/entry_names.h"
#include "platform/file_steps.h"
#include "platform/host_handle.h"
#include "platform/percent_encoding.h"
#include "platform/user_folders.h"

#include <algorithm>
#include <climits>
#include <ctime>
#include <fcntl.h>
#include <map>
#include <optional>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <unordered_set>

namespace platform {

namespace {

constexpr std::string_view record_ending = ".trashinfo";
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

// Takes the records away that a killed program has left without an entry. Others may be about to move it.
void clear_lone_records(const Trash& trash) {
    constexpr std::time_t young = 60; // seconds
    const std::string folder = join_host_path(trash.folder, "info");
    const Host_entries records = entries_of(open_to_read(folder));
    const Host_entries entries = entries_of(open_to_read(join_host_path(trash.folder, "files")));
    if (entries.error != 0)
        return;
    const std::unordered_set<std::string_view> there(entries.names.begin(), entries.names.end());
    for (const std::string& name : records.names) {
        if (!name.ends_with(record_ending) ||
            there.count(std::string_view(name).substr(0, name.size() - record_ending.size())) > 0)
            continue;
        const std::string path = join_host_path(folder, name);
        const Host_handle record = open_to_read(path);
        struct stat state {};
        if (record.is_open() && fstat(record.get(), &state) == 0 && S_ISREG(state.st_mode) &&
            std::time(nullptr) - state.st_mtim.tv_sec > young && flock(record.get(), LOCK_EX | LOCK_NB) == 0)
            unlink(path.c_str());
    }
}

// The same with the folders in it, which are cleared when this program first uses them.
std::optional<Trash> ready_trash_for(const std::string& real_folder, dev_t device) {
    auto trash = trash_for(real_folder, device);
    const bool is_ready = trash && make_host_folders(join_host_path(trash->folder, "files")) &&
                          make_host_folders(join_host_path(trash->folder, "info"));
    static std::unordered_set<std::string> cleared;
    if (is_ready && cleared.insert(trash->folder).second)
        clear_lone_records(*trash);
    return is_ready ? trash : std::nullopt;
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

// Takes a name that neither an entry nor a record has yet, by making the record.
std::optional<Place> reserve_place(const Trash& trash, const std::string& entry, Host_handle& record) {
    const std::string entries = join_host_path(trash.folder, "files");
    const std::string records = join_host_path(trash.folder, "info");
    const std::string first_name = entry.size() > longest_trashed_name ? "long-name" : entry;
    std::string name = first_name;
    constexpr int most_tries = 100;
    for (int tries = 0; tries < most_tries; ++tries) {
        Place place{join_host_path(entries, name),
                    join_host_path(records, name + std::string(record_ending))};
        if (!host_entry_exists(place.entry)) {
            record = Host_handle(open(place.record.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
            if (record.is_open()) {
                flock(record.get(), LOCK_EX | LOCK_NB); // while its entry is to follow
                return place;
            }
        }
        name = other_name(first_name);
    }
    return std::nullopt;
}

// Entries that go to the trash together: their records come first and are on the disk before the entries
// follow. A record whose entry cannot follow is taken back.
class Trash_batch {
public:
    Trash_batch() = default;
    Trash_batch(const Trash_batch&) = delete;
    Trash_batch& operator=(const Trash_batch&) = delete;
    ~Trash_batch() {
        for (const Entry& entry : entries_)
            unlink(entry.place.record.c_str());
    }

    void add(std::size_t number, const Trash& trash, const std::string& path) {
        Entry entry{number, path, {}, Host_handle()};
        const auto place = reserve_place(trash, host_entry_of(path), entry.record);
        if (!place)
            return;
        entry.place = *place;
        const std::string record = record_of(trash, path);
        if (write_all(Write_step::write, entry.record, Content(record)) == 0)
            entries_.push_back(std::move(entry));
        else
            unlink(entry.place.record.c_str());
    }

    // Moves them until `done`, which is told the number of each, says stop by false.
    bool move(const std::function<bool(std::size_t number)>& done) {
        if (!flush())
            return true;
        while (!entries_.empty()) {
            const Entry entry = std::move(entries_.back());
            entries_.pop_back();
            Folder_change change(host_folder_of(entry.path));
            const int error = outcome_of(
                Write_step::rename, [&] { return rename(entry.path.c_str(), entry.place.entry.c_str()); });
            if (error != 0) {
                unlink(entry.place.record.c_str());
                continue;
            }
            change.removed(host_entry_of(entry.path));
            if (!done(entry.number))
                return false;
        }
        return true;
    }

private:
    struct Entry {
        std::size_t number;
        std::string path;
        Place place;
        Host_handle record;
    };

    // All at once costs less than many one by one.
    bool flush() {
        constexpr std::size_t few = 4;
        const auto brought = [](const Host_handle& record) {
            return outcome_of(Write_step::flush, [&] { return fsync(record.get()); }) == 0;
        };
        if (entries_.size() <= few)
            return std::all_of(entries_.begin(), entries_.end(),
                               [&](const Entry& entry) { return brought(entry.record); });
        return outcome_of(Write_step::flush, [&] { return syncfs(entries_.front().record.get()); }) == 0;
    }

    std::vector<Entry> entries_;
};

} // namespace

bool move_to_trash(const std::string& path) {
    return move_to_trash(std::vector{path}, nullptr).front();
}

std::vector<bool> move_to_trash(const std::vector<std::string>& paths,
                                const std::function<bool(std::size_t done)>& progress) {
    constexpr std::size_t batch_size = 64;
    std::vector<bool> moved(paths.size(), false);
    std::map<std::string, std::optional<Trash>> trashes; // by the folder of the entries
    std::size_t done = 0;
    const auto one_more = [&](std::size_t number) {
        moved[number] = true;
        return !progress || progress(++done);
    };
    for (std::size_t begin = 0; begin < paths.size(); begin += batch_size) {
        Trash_batch batch;
        // From behind, since a batch moves its last entry first.
        for (std::size_t number = std::min(begin + batch_size, paths.size()); number-- > begin;) {
            const std::string folder = real_path(host_folder_of(paths[number]));
            const std::string path = join_host_path(folder, host_entry_of(paths[number]));
            const auto state = state_of(folder);
            if (!state || path == "/" || !host_entry_exists(path))
                continue;
            const auto [known, is_new] = trashes.try_emplace(folder);
            if (is_new)
                known->second = ready_trash_for(folder, state->st_dev);
            if (known->second)
                batch.add(number, *known->second, path);
        }
        if (!batch.move(one_more))
            break;
    }
    return moved;
}

} // namespace platform
