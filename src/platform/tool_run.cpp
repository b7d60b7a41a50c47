#include "platform/tool_run.h"

#include "platform/child_process.h"
#include "platform/host_handle.h"
#include "platform/host_tools.h"
#include "platform/process.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

namespace platform {

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::size_t longest_text = std::size_t{4} << 20;

// Reads until the other end is closed; false when that took too long.
bool read_to_end(const Host_handle& pipe, Clock::time_point limit, std::string& text) {
    std::array<char, 8192> bytes;
    while (true) {
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(limit - Clock::now()).count();
        pollfd watched{pipe.get(), POLLIN, 0};
        if (left <= 0 || ::poll(&watched, 1, static_cast<int>(left)) == 0)
            return false;
        const ssize_t count = read(pipe.get(), bytes.data(), bytes.size());
        if (count == 0)
            return true;
        if (count > 0 && text.size() < longest_text)
            text.append(bytes.data(), static_cast<std::size_t>(count));
    }
}

} // namespace

bool has_tool(const std::string& tool) {
    return !find_tool(tool).empty();
}

Tool_answer ask_tool(const std::string& tool, const std::vector<std::string>& arguments,
                     std::chrono::milliseconds longest) {
    Tool_answer answer;
    int ends[2];
    const std::string path = find_tool(tool);
    if (path.empty() || pipe2(ends, O_CLOEXEC) != 0)
        return answer;
    const Host_handle reading(ends[0]);
    Host_handle writing(ends[1]);
    Group_start how;
    how.folder = "/";
    how.output = writing.get();
    pid_t child = -1;
    answer.was_started = start_in_group({path, arguments, {}}, how, child) == result_started;
    writing.close_now();
    if (!answer.was_started)
        return answer;
    const bool has_ended = read_to_end(reading, Clock::now() + longest, answer.text);
    if (!has_ended)
        kill(-child, SIGKILL);
    int status = 0;
    while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    if (has_ended && WIFEXITED(status))
        answer.exit_code = WEXITSTATUS(status);
    return answer;
}

} // namespace platform
