#include "platform/file_stream.h"

#include "platform/host_names.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace platform {

File_stream::File_stream(std::string_view name, bool create) {
    int listing_error = 0;
    const std::string path = host_path(name, &listing_error);
    if (path.empty())
        return;
    struct stat state {};
    const bool is_there = stat(path.c_str(), &state) == 0;
    // Opening a device can already do something to it.
    if (is_there ? !S_ISREG(state.st_mode) : !create || listing_error != 0)
        return;
    constexpr int usual = O_CLOEXEC | O_NOCTTY | O_NONBLOCK;
    // A file without write permission is not written, whoever the user is.
    if (!is_there || (state.st_mode & 0222) != 0)
        descriptor_ = open(path.c_str(), O_RDWR | (is_there ? 0 : O_CREAT) | usual, 0666);
    writable_ = descriptor_ >= 0;
    if (is_there && !writable_)
        descriptor_ = open(path.c_str(), O_RDONLY | usual);
}

File_stream::~File_stream() {
    flush();
    if (descriptor_ >= 0)
        close(descriptor_);
}

std::size_t File_stream::read(char* bytes, std::size_t count) {
    std::size_t taken = 0;
    while (taken < count && is_usable() && (place_ < filled_ || fill())) {
        const std::size_t piece = std::min(count - taken, filled_ - place_);
        std::memcpy(bytes + taken, buffer_ + place_, piece);
        place_ += piece;
        taken += piece;
    }
    read_failed_ = read_failed_ || taken < count;
    return taken;
}

void File_stream::write(const char* bytes, std::size_t count) {
    write_failed_ = write_failed_ || !writable_;
    while (count > 0 && is_usable()) {
        if (place_ == sizeof buffer_)
            move_buffer(tell());
        const std::size_t piece = std::min(count, sizeof buffer_ - place_);
        std::memcpy(buffer_ + place_, bytes, piece);
        changed_begin_ = changed_begin_ == changed_end_ ? place_ : std::min(changed_begin_, place_);
        place_ += piece;
        changed_end_ = std::max(changed_end_, place_);
        filled_ = std::max(filled_, place_);
        bytes += piece;
        count -= piece;
    }
}

void File_stream::seek(std::int64_t place) {
    read_failed_ = place < 0;
    if (read_failed_)
        return;
    if (place >= start_ && place <= start_ + static_cast<std::int64_t>(filled_))
        place_ = static_cast<std::size_t>(place - start_);
    else
        move_buffer(place);
}

bool File_stream::good() {
    flush();
    return is_usable();
}

std::int64_t File_stream::size() {
    flush();
    struct stat state {};
    return fstat(descriptor_, &state) == 0 ? state.st_size : 0;
}

bool File_stream::fill() {
    move_buffer(tell());
    ssize_t count = 0;
    do
        count = pread(descriptor_, buffer_, sizeof buffer_, start_);
    while (count < 0 && errno == EINTR);
    filled_ = count > 0 ? static_cast<std::size_t>(count) : 0;
    return filled_ > 0;
}

void File_stream::move_buffer(std::int64_t start) {
    flush();
    start_ = start;
    filled_ = place_ = 0;
}

void File_stream::flush() {
    while (changed_begin_ < changed_end_) {
        const ssize_t count = pwrite(descriptor_, buffer_ + changed_begin_, changed_end_ - changed_begin_,
                                     start_ + static_cast<std::int64_t>(changed_begin_));
        if (count > 0)
            changed_begin_ += static_cast<std::size_t>(count);
        else if (count == 0 || errno != EINTR)
            break;
    }
    write_failed_ = write_failed_ || changed_begin_ < changed_end_;
    changed_begin_ = changed_end_ = 0;
}

} // namespace platform
