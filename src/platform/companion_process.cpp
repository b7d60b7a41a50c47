#include "platform/companion_process.h"

#include "platform/child_process.h"
#include "platform/entry_names.h"
#include "platform/process.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <sys/signalfd.h>
#include <sys/wait.h>
#include <unistd.h>

namespace platform {

namespace {

constexpr char go_on = 'g';
constexpr const char* own_program = "/proc/self/exe";

// By its path where that still leads to it, so that lists of processes show its name.
std::string own_program_path() {
    const std::string path = link_text(own_program).value_or("");
    return access(path.c_str(), X_OK) == 0 ? path : own_program;
}

bool is_readable(int descriptor, std::chrono::milliseconds longest) {
    pollfd watched{descriptor, POLLIN, 0};
    return ::poll(&watched, 1, static_cast<int>(longest.count())) > 0;
}

} // namespace

bool Companion_process::start(const std::vector<std::string>& arguments) {
    int life_line[2];
    int words[2];
    if (pipe2(life_line, O_CLOEXEC) != 0)
        return false;
    const Host_handle its_life_line(life_line[0]);
    life_line_ = Host_handle(life_line[1]);
    if (pipe2(words, O_CLOEXEC) != 0)
        return false;
    words_ = Host_handle(words[0]);
    const Host_handle its_words(words[1]);
    fcntl(words_.get(), F_SETFL, O_NONBLOCK);
    fcntl(its_words.get(), F_SETFL, O_NONBLOCK);

    Group_start how;
    how.folder = "/";
    how.input = its_life_line.get();
    how.output = its_words.get();
    how.own_session = true;
    has_ended_ = start_in_group({own_program_path(), arguments, {}}, how, number_) != result_started;
    return !has_ended_;
}

std::string Companion_process::heard(std::chrono::milliseconds longest) {
    std::string text;
    if (has_ended_ || (longest.count() > 0 && !is_readable(words_.get(), longest)))
        return text;
    std::array<char, 4096> bytes;
    ssize_t count = 0;
    while ((count = read(words_.get(), bytes.data(), bytes.size())) > 0)
        text.append(bytes.data(), static_cast<std::size_t>(count));
    if (count == 0) {
        has_ended_ = true;
        // It has closed its end a moment before it is over.
        int status = 0;
        while (waitpid(number_, &status, 0) < 0 && errno == EINTR) {
        }
        number_ = -1;
    }
    return text;
}

void Companion_process::set_free() {
    if (life_line_.is_open()) [[maybe_unused]]
        const ssize_t count = write(life_line_.get(), &go_on, 1);
}

void Companion_process::ask_to_end() const {
    if (!has_ended_)
        kill(number_, SIGTERM);
}

// It is left to the host to take leave of a companion that lives on.
void Companion_process::let_go() {
    life_line_.close_now();
    int status = 0;
    if (number_ > 0)
        waitpid(number_, &status, WNOHANG);
}

Companion_life::Companion_life() {
    sigset_t asking;
    sigemptyset(&asking);
    for (const int signal : {SIGTERM, SIGINT, SIGHUP})
        sigaddset(&asking, signal);
    sigprocmask(SIG_BLOCK, &asking, nullptr);
    signal(SIGPIPE, SIG_IGN);
    signals_ = Host_handle(signalfd(-1, &asking, SFD_CLOEXEC | SFD_NONBLOCK));
}

void Companion_life::say(const std::string& words) const {
    // Nobody may be listening, or not fast enough.
    [[maybe_unused]] const ssize_t count = write(STDOUT_FILENO, words.data(), words.size());
}

void Companion_life::wait(int descriptor, std::chrono::milliseconds longest) {
    pollfd watched[] = {{signals_.get(), POLLIN, 0},
                        {is_free_ || is_to_end_ ? -1 : STDIN_FILENO, POLLIN, 0},
                        {descriptor, POLLIN, 0}};
    ::poll(watched, std::size(watched), static_cast<int>(longest.count()));
    signalfd_siginfo asked{};
    if (watched[0].revents != 0 && read(signals_.get(), &asked, sizeof asked) > 0)
        is_to_end_ = true;
    if (watched[1].revents == 0)
        return;
    char byte = 0;
    const ssize_t count = read(STDIN_FILENO, &byte, 1);
    is_free_ = count == 1 && byte == go_on;
    is_to_end_ = is_to_end_ || !is_free_;
}

} // namespace platform
