// Keeps the programs of the suite, and several of one, from changing the same files at the same time.
#pragma once

#include <string_view>

namespace platform {

// Holds a folder while it lives: another Folder_lock on it waits, in whatever process. It waits for a few
// seconds at most, since a program that hangs must keep nobody from working, and not at all where the folder
// or its file system cannot be locked.
class Folder_lock {
public:
    explicit Folder_lock(std::string_view folder);
    Folder_lock(const Folder_lock&) = delete;
    Folder_lock& operator=(const Folder_lock&) = delete;
    ~Folder_lock();

    // Whether another one holds the folder still: who changes its files all the same may undo that one's
    // changes, or have them undone.
    bool is_refused() const { return is_refused_; }

private:
    int descriptor_;
    bool is_refused_ = false;
};

} // namespace platform
