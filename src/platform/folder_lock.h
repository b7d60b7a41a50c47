// Keeps the programs of the suite, and several of one, from changing the same files at the same time.
#pragma once

#include <string_view>

namespace platform {

// Holds a folder while it lives: another Folder_lock on it waits, in whatever process. It waits for a few
// seconds at most, and not at all where the folder or its file system cannot be locked: a program that hangs
// keeps nobody from working.
class Folder_lock {
public:
    explicit Folder_lock(std::string_view folder);
    Folder_lock(const Folder_lock&) = delete;
    Folder_lock& operator=(const Folder_lock&) = delete;
    ~Folder_lock();

private:
    int descriptor_;
};

} // namespace platform
