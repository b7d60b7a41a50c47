// The streams that a command talks on, and what is known of who listens.
#pragma once

#include <array>
#include <cstddef>
#include <ostream>
#include <streambuf>
#include <string>

// Standard output through a buffer, for the command alone: from then on what programs that it starts print
// goes to standard error, so that nothing stands between the rows of a table. A reader that has gone is no
// fault: what is written then is dropped.
class Output_buffer : public std::streambuf {
public:
    Output_buffer();
    int descriptor() const { return descriptor_; }
    // Whether what was written can still reach anybody.
    bool has_reader() const { return error_ == 0; }
    // Why it cannot, but for a reader that has gone; "" when all is well.
    std::string failure() const;

protected:
    int overflow(int character) override;
    int sync() override;

private:
    std::array<char, 1 << 16> buffer_{};
    int descriptor_;
    int error_ = 0; // of the system
};

class Console {
public:
    Console();

    std::ostream& out() { return out_; }
    Output_buffer& output() { return buffer_; }
    bool out_is_terminal() const { return out_is_terminal_; }
    // Columns of the terminal that the output goes to.
    std::size_t width() const { return width_; }
    bool has_colours() const { return has_colours_; }

    // Says a sentence (in UTF-8) on standard error, behind the program's name.
    void say(const std::string& sentence);

    // Whether there is anybody to be asked: a terminal to read an answer from.
    bool can_ask() const;
    // Asks a question there that has a yes or a no. False for anything but a yes.
    bool ask(const std::string& question);

    // Shows how far a long operation is, where standard error is a terminal, a few times a second.
    void show_progress(const std::string& what, std::size_t done, std::size_t total);
    void show_progress(const std::string& line);
    // Takes that line away.
    void end_progress();

private:
    Output_buffer buffer_;
    std::ostream out_;
    bool out_is_terminal_;
    bool err_is_terminal_;
    bool has_colours_;
    std::size_t width_;
    long last_progress_ = 0; // milliseconds
    bool shows_progress_ = false;
};
