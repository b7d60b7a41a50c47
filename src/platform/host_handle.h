// An open file or folder of the host, closed with its owner; for the use of this folder alone.
#pragma once

#include <dirent.h>
#include <string>
#include <unistd.h>
#include <utility>
#include <vector>

namespace platform {

class Host_handle {
public:
    // Takes a descriptor over; negative for none.
    explicit Host_handle(int descriptor = -1) : descriptor_(descriptor) {}
    Host_handle(Host_handle&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}
    Host_handle& operator=(Host_handle&& other) noexcept {
        std::swap(descriptor_, other.descriptor_);
        return *this;
    }
    ~Host_handle() { close_now(); }

    bool is_open() const { return descriptor_ >= 0; }
    int get() const { return descriptor_; }
    // Gives the descriptor away.
    int release() { return std::exchange(descriptor_, -1); }
    // Closes before the end of life; the answer of the system.
    int close_now() { return descriptor_ < 0 ? 0 : ::close(release()); }

private:
    int descriptor_;
};

// Opens without waiting, whatever kind of file it is; none when that fails, with the reason in errno.
Host_handle open_to_read(const std::string& path);

// The entries of a host folder one after the other, without "." and ".."; none when it cannot be read.
class Folder_stream {
public:
    explicit Folder_stream(const std::string& path) : stream_(opendir(path.c_str())) {}
    explicit Folder_stream(const Host_handle& folder);
    Folder_stream(const Folder_stream&) = delete;
    Folder_stream& operator=(const Folder_stream&) = delete;
    ~Folder_stream();

    // The next entry, good until the next call; null at the end.
    const dirent* next();
    // For calls that take an entry's folder; only while next() gives entries.
    int descriptor() const { return dirfd(stream_); }

private:
    DIR* stream_;
};

// The host names of the entries of an open folder.
std::vector<std::string> entries_of(const Host_handle& folder);

// Whether the file or folder has no permission bit for writing, or this user may not write to it.
bool is_write_protected(int folder_descriptor, const char* entry);

} // namespace platform
