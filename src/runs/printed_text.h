// What a run prints, kept in a file that cannot grow without end: the beginning, a note of how much was left
// out, and the last of it.
#pragma once

#include "platform/file_stream.h"

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

class Printed_text {
public:
    static constexpr std::size_t longest_beginning = std::size_t{256} << 10;
    static constexpr std::size_t longest_ending = std::size_t{16} << 10;

    // Of a run whose file has that name. The file, and its folder, are made when there is something to keep;
    // to one that is there (from an earlier attempt) it is added.
    explicit Printed_text(std::string file) : file_(std::move(file)) {}
    // Writes the last of it. What a full disk cannot take is dropped: no run fails for it.
    ~Printed_text();
    Printed_text(const Printed_text&) = delete;
    Printed_text& operator=(const Printed_text&) = delete;

    void add(std::string_view bytes);

private:
    void write(std::string_view bytes);

    std::string file_;
    std::unique_ptr<platform::File_stream> stream_; // null as long as nothing was printed
    std::size_t beginning_ = 0;                     // bytes written of it
    std::string ending_;
    std::size_t left_out_ = 0; // bytes between the two
};
