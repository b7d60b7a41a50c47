#include "command_line/console.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <iostream>
#include <sys/ioctl.h>
#include <unistd.h>

namespace {

constexpr std::size_t usual_width = 80;

std::size_t terminal_width(int descriptor) {
    winsize size{};
    if (ioctl(descriptor, TIOCGWINSZ, &size) == 0 && size.ws_col > 0)
        return size.ws_col;
    const char* columns = std::getenv("COLUMNS");
    const int width = columns == nullptr ? 0 : std::atoi(columns);
    return width > 0 ? static_cast<std::size_t>(width) : usual_width;
}

bool is_wanted(const char* no_variable) {
    const char* value = std::getenv(no_variable);
    return value == nullptr || *value == 0;
}

} // namespace

Output_buffer::Output_buffer() : descriptor_(fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1)) {
    if (descriptor_ >= 0)
        dup2(STDERR_FILENO, STDOUT_FILENO);
    setp(buffer_.data(), buffer_.data() + buffer_.size());
    // A write to a reader that has gone is to fail. A handler, unlike an ignored signal, is not inherited by
    // programs that are started.
    std::signal(SIGPIPE, [](int) {});
}

int Output_buffer::overflow(int character) {
    if (sync() != 0)
        return traits_type::eof();
    if (character != traits_type::eof()) {
        *pptr() = static_cast<char>(character);
        pbump(1);
    }
    return 0;
}

int Output_buffer::sync() {
    const char* at = pbase();
    while (error_ == 0 && at < pptr()) {
        const ssize_t written = ::write(descriptor_, at, static_cast<std::size_t>(pptr() - at));
        if (written >= 0)
            at += written;
        else if (errno != EINTR)
            error_ = errno;
    }
    setp(buffer_.data(), buffer_.data() + buffer_.size());
    return error_ == 0 ? 0 : -1;
}

std::string Output_buffer::failure() const {
    return error_ == 0 || error_ == EPIPE ? "" : std::strerror(error_);
}

Console::Console()
    : out_(&buffer_), out_is_terminal_(isatty(buffer_.descriptor()) != 0),
      err_is_terminal_(isatty(STDERR_FILENO) != 0), has_colours_(out_is_terminal_ && is_wanted("NO_COLOR")),
      width_(terminal_width(buffer_.descriptor())) {
    const char* terminal = std::getenv("TERM");
    if (terminal != nullptr && std::strcmp(terminal, "dumb") == 0)
        has_colours_ = false;
}

void Console::say(const std::string& sentence) {
    end_progress();
    out_.flush();
    std::cerr << "tvs_project: " + sentence + '\n' << std::flush;
}

bool Console::can_ask() const {
    return isatty(STDIN_FILENO) != 0 && err_is_terminal_;
}

bool Console::ask(const std::string& question) {
    std::cerr << question + " [y/N] " << std::flush;
    std::string answer;
    std::getline(std::cin, answer);
    return answer == "y" || answer == "Y" || answer == "yes";
}

void Console::show_progress(const std::string& what, std::size_t done, std::size_t total) {
    show_progress(what + ' ' + std::to_string(done) + (total > 0 ? " of " + std::to_string(total) : ""));
}

void Console::show_progress(const std::string& line) {
    constexpr long apart = 200;
    using namespace std::chrono;
    const long now = duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
    if (!err_is_terminal_ || now - last_progress_ < apart)
        return;
    last_progress_ = now;
    shows_progress_ = true;
    std::cerr << "\r\033[K" << line.substr(0, width_ - 1) << std::flush;
}

void Console::end_progress() {
    if (shows_progress_)
        std::cerr << "\r\033[K" << std::flush;
    shows_progress_ = false;
}
