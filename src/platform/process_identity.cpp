#include "platform/process_identity.h"

#include "platform/process_status.h"

#include <cerrno>
#include <charconv>
#include <climits>
#include <csignal>
#include <sstream>
#include <unistd.h>
#include <vector>

namespace platform {

namespace {

std::vector<std::string> words_of(std::string_view text) {
    std::istringstream stream{std::string(text)};
    std::vector<std::string> words;
    for (std::string word; stream >> word;)
        words.push_back(word);
    return words;
}

std::string host_name() {
    char name[HOST_NAME_MAX + 1] = {};
    if (gethostname(name, sizeof name - 1) != 0 || name[0] == '\0')
        return "localhost";
    return name;
}

// "" when there is no such process, or it has ended.
std::string start_time(int number) {
    const auto status = process_status(number);
    return status && !status->has_ended ? status->started : "";
}

} // namespace

const Process_identity& own_identity() {
    static Process_identity own;
    // A forked child is another process.
    if (own.number != getpid())
        own = {host_name(), host_text("/proc/sys/kernel/random/boot_id"), getpid(), start_time(getpid())};
    return own;
}

std::string text_of(const Process_identity& process) {
    return process.host + ' ' + (process.boot.empty() ? "-" : process.boot) + ' ' +
           std::to_string(process.number) + ' ' + process.started;
}

std::optional<Process_identity> identity_from_text(std::string_view text) {
    const std::vector<std::string> words = words_of(text);
    int number = 0;
    if (words.size() != 4 ||
        std::from_chars(words[2].data(), words[2].data() + words[2].size(), number).ec != std::errc() ||
        number <= 0)
        return std::nullopt;
    return Process_identity{words[0], words[1] == "-" ? "" : words[1], number, words[3]};
}

Process_presence presence_of(const Process_identity& process) {
    if (process.host != own_identity().host)
        return Process_presence::elsewhere;
    const bool is_there = process.boot == own_identity().boot && !process.started.empty() &&
                          start_time(process.number) == process.started;
    return is_there ? Process_presence::alive : Process_presence::gone;
}

End_request ask_to_end(const Process_identity& process) {
    if (presence_of(process) != Process_presence::alive)
        return End_request::not_here;
    if (kill(process.number, SIGTERM) == 0)
        return End_request::made;
    return errno == EPERM ? End_request::refused : End_request::not_here;
}

} // namespace platform
