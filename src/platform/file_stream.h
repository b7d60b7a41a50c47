// Files that are read and written piece by piece, in place.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace platform {

// A regular file with a place in it from which it is read and written, through a buffer. What fails makes the
// stream not good: a read that meets the end until the next seek, a write for ever.
class File_stream {
public:
    // Opens the file for reading and writing where that is allowed, otherwise for reading only. With
    // `create`, a file that is not there is made. A stream that could not be opened is not good.
    File_stream(std::string_view name, bool create);
    // Writes what is still in the buffer, and closes.
    ~File_stream();
    File_stream(const File_stream&) = delete;
    File_stream& operator=(const File_stream&) = delete;

    // Takes bytes, fewer only at the end of the file; returns how many there were.
    std::size_t read(char* bytes, std::size_t count);
    // Puts bytes over those that are there, and behind the end.
    void write(const char* bytes, std::size_t count);

    // Moves to the place, which may be behind the end; before the beginning there is none.
    void seek(std::int64_t place);
    std::int64_t tell() const { return start_ + static_cast<std::int64_t>(place_); }
    // The length of the file, with what has been written so far.
    std::int64_t size();

    // Brings to the file what has been written so far, so that the answer holds for it.
    bool good();

private:
    bool is_usable() const { return descriptor_ >= 0 && !read_failed_ && !write_failed_; }
    bool fill();
    void flush();
    void move_buffer(std::int64_t start);

    int descriptor_ = -1;
    bool writable_ = false;
    bool read_failed_ = false;
    bool write_failed_ = false;

    // The buffer holds the bytes of the file from `start_` on, `filled_` of them.
    std::int64_t start_ = 0;
    std::size_t filled_ = 0;
    std::size_t place_ = 0;
    // What of the buffer is not yet in the file; nothing while these are equal.
    std::size_t changed_begin_ = 0;
    std::size_t changed_end_ = 0;
    char buffer_[8192];
};

} // namespace platform
