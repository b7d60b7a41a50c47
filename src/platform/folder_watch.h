// Tells when something changes in folders and files, by what the host's kernel notifies: no thread, and no
// cost while nothing happens.
#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

// What changes on another machine, in a folder that is shared over the network, is not told.
class Folder_watch {
public:
    static constexpr std::size_t most_watches = 1000;

    Folder_watch();
    ~Folder_watch();
    Folder_watch(const Folder_watch&) = delete;
    Folder_watch& operator=(const Folder_watch&) = delete;

    // Each begins to watch, and gives the number of the watch: a folder, that is the entries that it has
    // itself, or a file, which need not be there as long as its folder is. An entry has changed when it was
    // made, removed, renamed or closed after writing. Nothing, when the host cannot watch it or there are too
    // many watches: who wants to know must look from time to time.
    std::optional<int> watch_folder(std::string_view name);
    std::optional<int> watch_file(std::string_view name);
    void forget(int watch);

    // The file descriptor that becomes readable when something has changed; negative when the host cannot
    // watch anything.
    int descriptor() const { return descriptor_; }

    struct Change {
        int watch = 0;
        bool has_ended = false; // its folder is gone: the watch tells no more, and its number is free
    };
    // The watches in which something has changed since the last call, each once, in the order of their
    // numbers. Never waits.
    std::vector<Change> take_changes();

private:
    struct Watched {
        int kernel_number = 0; // the same for all watches in a folder
        std::string entry;     // "" for all of them
    };
    std::optional<int> add(const std::string& folder, const std::string& entry);
    void note(int kernel_number, std::string_view entry, unsigned mask);

    int descriptor_;
    int last_number_ = 0;
    std::map<int, Watched> watched_;
    std::map<int, bool> changed_; // by number, with whether it has ended
};

} // namespace platform
