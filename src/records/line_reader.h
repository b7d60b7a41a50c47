// Takes the lines of a record file one by one, from a text in memory or from a stream.
#pragma once

#include <functional>
#include <istream>
#include <string>
#include <string_view>
#include <utility>

namespace TESK {

class Line_reader {
public:
    // The text must outlive the reader.
    explicit Line_reader(std::string_view text) : pending_(text) {}
    // Reads from the stream's place on, some way ahead of the line that it hands out.
    explicit Line_reader(std::istream& in) : in_(&in) {}

    // The next line, without the white space in front of it, its line feed and the carriage returns before
    // that. False when nothing is left. The line stands until the next call.
    bool next(std::string_view& line);

    // Is asked every now and then, with taken(), whether to go on: next() gives no more once it says false.
    void set_watch(std::function<bool(std::size_t taken)> watch) { watch_ = std::move(watch); }
    bool is_stopped() const { return stopped_; }

    // Says that the line that next() gave last is not this reader's to take.
    void refuse_line() { refused_ = true; }
    bool is_line_refused() const { return refused_; }

    // How many bytes stand before the line that next() gave last, and before the one that it gives next.
    std::size_t line_start() const { return line_start_; }
    std::size_t taken() const { return taken_; }

    // How many empty lines next() has given since the last other one, and where they begin.
    int empty_lines() const { return empty_lines_; }
    std::size_t empty_start() const { return empty_start_; }

private:
    bool read_more();

    std::istream* in_ = nullptr;
    std::string buffer_;
    std::string_view pending_;
    std::size_t taken_ = 0;
    std::size_t line_start_ = 0;
    std::size_t empty_start_ = 0;
    int empty_lines_ = 0;
    bool refused_ = false;
    std::function<bool(std::size_t)> watch_;
    std::size_t watched_at_ = 0;
    bool stopped_ = false;
};

} // namespace TESK
