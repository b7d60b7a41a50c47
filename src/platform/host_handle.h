// An open file or folder of the host, closed with its owner; for the use of this folder alone.
#pragma once

#include <cstddef>
#include <dirent.h>
#include <limits>
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

// The entries of a host folder one after the other, without "." and "..".
class Folder_stream {
public:
    explicit Folder_stream(const std::string& path);
    explicit Folder_stream(const Host_handle& folder);
    Folder_stream(const Folder_stream&) = delete;
    Folder_stream& operator=(const Folder_stream&) = delete;
    ~Folder_stream();

    // The next entry, good until the next call; null at the end, and where the folder cannot be read.
    const dirent* next();
    // After next() has given null: 0 when that was the end, otherwise the error number.
    int error() const { return error_; }
    // For calls that take an entry's folder; only while next() gives entries.
    int descriptor() const { return dirfd(stream_); }

private:
    DIR* stream_ = nullptr;
    int error_ = 0;
    std::size_t entries_left_ =
        std::numeric_limits<std::size_t>::max(); // before a fault that a test asks for
};

// The host names of the entries of a folder, as many as could be read.
struct Host_entries {
    std::vector<std::string> names;
    int error = 0; // 0 when these are all, otherwise the error number
};
Host_entries entries_of(const Host_handle& folder);

// Deletes the entry of the open folder, and all that is below it. A link is itself deleted. Goes on after a
// failure; true when nothing is left.
bool remove_host_entry(int folder_descriptor, const char* entry);

// Whether the file or folder has no permission bit for writing, or this user may not write to it.
bool is_write_protected(int folder_descriptor, const char* entry);

} // namespace platform
