#include "platform/host_handle.h"

#include <fcntl.h>
#include <string_view>
#include <sys/stat.h>

namespace platform {

Host_handle open_to_read(const std::string& path) {
    return Host_handle(open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
}

Folder_stream::Folder_stream(const Host_handle& folder) : stream_(nullptr) {
    // The stream closes what it reads from, so it gets a descriptor of its own.
    Host_handle own(openat(folder.get(), ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (own.is_open())
        stream_ = fdopendir(own.get());
    if (stream_ != nullptr)
        own.release();
}

Folder_stream::~Folder_stream() {
    if (stream_ != nullptr)
        closedir(stream_);
}

const dirent* Folder_stream::next() {
    const dirent* entry = nullptr;
    do
        entry = stream_ != nullptr ? readdir(stream_) : nullptr;
    while (entry != nullptr &&
           (std::string_view(entry->d_name) == "." || std::string_view(entry->d_name) == ".."));
    return entry;
}

std::vector<std::string> entries_of(const Host_handle& folder) {
    std::vector<std::string> entries;
    Folder_stream stream(folder);
    while (const dirent* entry = stream.next())
        entries.emplace_back(entry->d_name);
    return entries;
}

bool is_write_protected(int folder_descriptor, const char* entry) {
    struct stat state {};
    return fstatat(folder_descriptor, entry, &state, 0) == 0 &&
           ((state.st_mode & 0222) == 0 || faccessat(folder_descriptor, entry, W_OK, AT_EACCESS) != 0);
}

} // namespace platform
