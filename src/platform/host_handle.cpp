#include "platform/host_handle.h"

#include "platform/file_steps.h"

#include <cerrno>
#include <fcntl.h>
#include <string_view>
#include <sys/stat.h>

namespace platform {

Host_handle open_to_read(const std::string& path) {
    int descriptor = -1;
    errno = outcome_of(Write_step::open, [&] {
        return descriptor = open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    });
    return Host_handle(descriptor);
}

Folder_stream::Folder_stream(const std::string& path)
    : Folder_stream(Host_handle(open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC))) {}

Folder_stream::Folder_stream(const Host_handle& folder) {
    if (!folder.is_open()) {
        error_ = errno;
        return;
    }
    // The stream closes what it reads from, so it gets a descriptor of its own.
    Host_handle own(openat(folder.get(), ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (own.is_open())
        stream_ = fdopendir(own.get());
    if (stream_ != nullptr)
        own.release();
    else
        error_ = errno;
    if (const File_faults::Fault* fault = File_faults::at(Write_step::list)) {
        entries_left_ = fault->after_bytes;
        error_ = fault->error_number;
    }
}

Folder_stream::~Folder_stream() {
    if (stream_ != nullptr)
        closedir(stream_);
}

const dirent* Folder_stream::next() {
    if (stream_ == nullptr || entries_left_ == 0)
        return nullptr;
    const dirent* entry = nullptr;
    do {
        errno = 0;
        entry = readdir(stream_);
    } while (entry != nullptr &&
             (std::string_view(entry->d_name) == "." || std::string_view(entry->d_name) == ".."));
    if (entry == nullptr)
        error_ = errno;
    else
        --entries_left_;
    return entry;
}

Host_entries entries_of(const Host_handle& folder) {
    Host_entries entries;
    Folder_stream stream(folder);
    while (const dirent* entry = stream.next())
        entries.names.emplace_back(entry->d_name);
    entries.error = stream.error();
    return entries;
}

bool remove_host_entry(int folder_descriptor, const char* entry) {
    if (unlinkat(folder_descriptor, entry, 0) == 0 || errno == ENOENT)
        return true;
    if (errno != EISDIR && errno != EPERM)
        return false;
    if (const Host_handle below(
            openat(folder_descriptor, entry, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
        below.is_open())
        for (const std::string& inner : entries_of(below).names)
            remove_host_entry(below.get(), inner.c_str());
    return unlinkat(folder_descriptor, entry, AT_REMOVEDIR) == 0 || errno == ENOENT;
}

bool is_write_protected(int folder_descriptor, const char* entry) {
    struct stat state {};
    return fstatat(folder_descriptor, entry, &state, 0) == 0 &&
           ((state.st_mode & 0222) == 0 || faccessat(folder_descriptor, entry, W_OK, AT_EACCESS) != 0);
}

} // namespace platform
