#include "platform/entry_names.h"

#include "foundation/code_page_1252.h"
#include "platform/host_handle.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdint>
#include <cstdlib>
#include <ctime>
#include <map>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>
#include <unordered_map>
#include <utility>

namespace platform {

namespace {

using nanoseconds = std::int64_t;
constexpr nanoseconds second = 1'000'000'000;
// How long a time of change stays doubtful: a few ticks of the kernel, or, where the file system counts in
// whole seconds, two of them.
constexpr nanoseconds fine_tick = second / 50;
constexpr nanoseconds coarse_tick = 2 * second + second / 10;
constexpr nanoseconds longest_use_of_mended = second;
constexpr std::size_t most_remembered_entries = 200'000;

struct Listing {
    nanoseconds changed = 0;      // the folder's time of change that the listing belongs to
    nanoseconds unsure_since = 0; // the last change that was not our own
    nanoseconds read_at = 0;
    int error = 0;       // why the folder could not be read to its end
    bool mended = false; // changed by ourselves so recently that someone else's change may hide behind it
    std::unordered_multimap<std::string, std::string> entries; // by folded name
};

using Folder_key = std::pair<dev_t, ino_t>;

struct Listing_memory {
    std::map<Folder_key, Listing> listings;
    std::size_t remembered_entries = 0;

    Listing* find(const Folder_key& key) {
        const auto found = listings.find(key);
        return found == listings.end() ? nullptr : &found->second;
    }
    void forget(const Folder_key& key) {
        if (const Listing* listing = find(key)) {
            remembered_entries -= listing->entries.size() + 1;
            listings.erase(key);
        }
    }
    Listing& store(const Folder_key& key, Listing listing) {
        forget(key);
        if (remembered_entries + listing.entries.size() > most_remembered_entries) {
            listings.clear();
            remembered_entries = 0;
        }
        remembered_entries += listing.entries.size() + 1;
        return listings.insert_or_assign(key, std::move(listing)).first->second;
    }
};

Listing_memory& memory() {
    static Listing_memory the_memory;
    return the_memory;
}

nanoseconds in_nanoseconds(const timespec& time) {
    return static_cast<nanoseconds>(time.tv_sec) * second + time.tv_nsec;
}

nanoseconds now() {
    timespec time{};
    clock_gettime(CLOCK_REALTIME, &time);
    return in_nanoseconds(time);
}

nanoseconds tick_of(nanoseconds time_of_change) {
    return time_of_change % second == 0 ? coarse_tick : fine_tick;
}

bool is_ascii(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

// Whether the text is UTF-8 of any plane.
bool is_utf8(std::string_view text) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    for (std::size_t i = 0; i < text.size();) {
        const unsigned lead = byte(i);
        const std::size_t length = lead < 0x80                   ? 1
                                   : lead >= 0xC2 && lead < 0xE0 ? 2
                                   : lead >= 0xE0 && lead < 0xF0 ? 3
                                   : lead >= 0xF0 && lead < 0xF5 ? 4
                                                                 : 0;
        if (length == 0 || text.size() - i < length)
            return false;
        for (std::size_t k = 1; k < length; ++k)
            if ((byte(i + k) & 0xC0) != 0x80)
                return false;
        const unsigned next = length > 1 ? byte(i + 1) : 0;
        const bool overlong = (lead == 0xE0 && next < 0xA0) || (lead == 0xF0 && next < 0x90);
        const bool no_character = (lead == 0xED && next > 0x9F) || (lead == 0xF4 && next > 0x8F);
        if (overlong || no_character)
            return false;
        i += length;
    }
    return true;
}

// Whether the name is the own bytes of a host name in characters that the code page lacks.
bool is_foreign(std::string_view name) {
    return is_utf8(name) && !TESK::code_page_from_utf8(name);
}

// The same for all names that differ only in case. The bytes of foreign characters are no letters of the
// page.
std::string folded(std::string_view name) {
    const bool ascii_only = !is_ascii(name) && is_foreign(name);
    std::string result(name);
    for (char& c : result)
        c = ascii_only ? TESK::to_ascii_lower(c) : TESK::fold_case(c);
    return ascii_only ? '\0' + result : result;
}

std::string folded_entry(const std::string& entry) {
    if (is_ascii(entry))
        return folded(entry);
    return folded(TESK::code_page_from_utf8(entry).value_or(entry));
}

void read_entries(const std::string& folder, Listing& listing) {
    Folder_stream stream(folder);
    while (const dirent* entry = stream.next())
        if (std::string host_name = entry->d_name; is_listable(host_name)) {
            std::string key = folded_entry(host_name);
            listing.entries.emplace(std::move(key), std::move(host_name));
        }
    listing.error = stream.error();
}

bool is_usable(const Listing& listing, nanoseconds changed) {
    return listing.error == 0 && listing.changed == changed &&
           listing.read_at - listing.unsure_since >= tick_of(changed) &&
           (!listing.mended || now() - listing.read_at < longest_use_of_mended);
}

// The listing of the folder, read when what is remembered may not be true any more; null without a folder.
// One that could not be read to its end is not used again.
const Listing* listing_of(const std::string& folder) {
    struct stat state {};
    if (stat(folder.c_str(), &state) != 0 || !S_ISDIR(state.st_mode))
        return nullptr;
    const Folder_key key(state.st_dev, state.st_ino);
    const nanoseconds changed = in_nanoseconds(state.st_mtim);
    const Listing* old = memory().find(key);
    if (old != nullptr && is_usable(*old, changed))
        return old;

    Listing listing;
    listing.read_at = now();
    listing.changed = changed;
    listing.unsure_since =
        old != nullptr && old->changed == changed ? old->unsure_since : std::min(changed, listing.read_at);
    listing.mended = listing.read_at - changed < tick_of(changed);
    read_entries(folder, listing);
    return &memory().store(key, std::move(listing));
}

// The entry whose own bytes are the name, or have climbed to it because the names below were taken.
std::optional<std::string> find_own_bytes(const std::string& folder, std::string_view name) {
    std::string entry(name);
    while (host_entry_exists(join_host_path(folder, entry))) {
        auto below = TESK::code_page_from_utf8(entry);
        if (!below)
            return entry;
        if (*below == entry)
            break;
        entry = std::move(*below);
    }
    return std::nullopt;
}

} // namespace

bool host_entry_exists(const std::string& path) {
    struct stat state {};
    return lstat(path.c_str(), &state) == 0;
}

std::string host_folder_of(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    return slash == 0 || slash == std::string::npos ? "/" : path.substr(0, slash);
}

std::string host_entry_of(const std::string& path) {
    return path.substr(path.rfind('/') + 1);
}

std::string join_host_path(const std::string& folder, std::string_view entry) {
    std::string path = folder;
    if (path.empty() || path.back() != '/')
        path += '/';
    return path.append(entry);
}

std::optional<std::string> link_text(const std::string& path) {
    char text[PATH_MAX];
    const ssize_t length = readlink(path.c_str(), text, sizeof text);
    return length < 0 ? std::nullopt : std::optional<std::string>({text, static_cast<std::size_t>(length)});
}

std::string linked_path(const std::string& folder, const std::string& text) {
    return text.starts_with('/') ? text : join_host_path(folder, text);
}

std::string real_path(const std::string& path) {
    const std::unique_ptr<char, decltype(&std::free)> real(realpath(path.c_str(), nullptr), &std::free);
    return real ? real.get() : "";
}

bool is_unfinished_save(std::string_view entry) {
    return entry.size() == unfinished_save_prefix.size() + unfinished_save_digits &&
           entry.substr(0, unfinished_save_prefix.size()) == unfinished_save_prefix &&
           entry.find_first_not_of("0123456789abcdef", unfinished_save_prefix.size()) ==
               std::string_view::npos;
}

bool is_listable(std::string_view entry) {
    return entry.find_first_of("\\:") == std::string_view::npos && !is_unfinished_save(entry);
}

std::string name_of_entry(const std::string& folder, const std::string& entry) {
    if (is_ascii(entry))
        return entry;
    if (auto name = TESK::code_page_from_utf8(entry))
        return std::move(*name);
    std::string name = entry;
    for (std::string above = TESK::utf8_from_code_page(name);
         host_entry_exists(join_host_path(folder, above)); above = TESK::utf8_from_code_page(name))
        name = above;
    return name;
}

std::optional<std::string> find_entry(const std::string& folder, std::string_view name, int* error) {
    if (error != nullptr)
        *error = 0;
    std::string entry = TESK::utf8_from_code_page(name);
    if (host_entry_exists(join_host_path(folder, entry)))
        return entry;
    if (!is_ascii(name))
        if (auto own = find_own_bytes(folder, name))
            return own;
    return find_entry_ignoring_case(folder, name, error);
}

std::optional<std::string> find_entry_ignoring_case(const std::string& folder, std::string_view name,
                                                    int* error) {
    const Listing* listing = is_listable(name) ? listing_of(folder) : nullptr;
    if (error != nullptr)
        *error = listing != nullptr ? listing->error : 0;
    if (listing == nullptr)
        return std::nullopt;
    std::optional<std::string> first;
    const auto [begin, end] = listing->entries.equal_range(folded(name));
    for (auto it = begin; it != end; ++it)
        if ((!first || it->second < *first) && host_entry_exists(join_host_path(folder, it->second)))
            first = it->second;
    return first;
}

std::string new_entry(std::string_view name) {
    return is_ascii(name) || is_foreign(name) ? std::string(name) : TESK::utf8_from_code_page(name);
}

int make_host_levels(const std::string& path) {
    struct stat state {};
    if (stat(path.c_str(), &state) == 0)
        return S_ISDIR(state.st_mode) ? 0 : ENOTDIR;
    if (path.size() <= 1)
        return ENOENT;
    const std::string folder = host_folder_of(path);
    if (const int error = make_host_levels(folder))
        return error;
    Folder_change change(folder);
    if (mkdir(path.c_str(), 0777) != 0)
        return errno;
    change.added(host_entry_of(path));
    return 0;
}

Folder_change::Folder_change(const std::string& folder) : folder_(folder) {
    struct stat state {};
    if (memory().listings.empty() || stat(folder.c_str(), &state) != 0)
        return;
    device_ = state.st_dev;
    number_ = state.st_ino;
    const Listing* listing = memory().find({device_, number_});
    remembered_ = listing != nullptr && listing->changed == in_nanoseconds(state.st_mtim);
}

Folder_change::~Folder_change() {
    Listing* listing = remembered_ ? memory().find({device_, number_}) : nullptr;
    struct stat state {};
    if (listing == nullptr || stat(folder_.c_str(), &state) != 0)
        return;
    listing->changed = in_nanoseconds(state.st_mtim);
    listing->mended = true;
}

void Folder_change::added(const std::string& entry) {
    Listing* listing = remembered_ ? memory().find({device_, number_}) : nullptr;
    if (listing == nullptr || !is_listable(entry))
        return;
    std::string key = folded_entry(entry);
    const auto [begin, end] = listing->entries.equal_range(key);
    if (std::none_of(begin, end, [&](const auto& known) { return known.second == entry; })) {
        listing->entries.emplace(std::move(key), entry);
        ++memory().remembered_entries;
    }
}

void Folder_change::removed(const std::string& entry) {
    Listing* listing = remembered_ ? memory().find({device_, number_}) : nullptr;
    if (listing == nullptr)
        return;
    const auto [begin, end] = listing->entries.equal_range(folded_entry(entry));
    const auto found = std::find_if(begin, end, [&](const auto& known) { return known.second == entry; });
    if (found != end) {
        listing->entries.erase(found);
        --memory().remembered_entries;
    }
}

} // namespace platform
