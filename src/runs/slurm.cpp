#include "runs/slurm.h"

#include "platform/tool_run.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <sstream>
#include <string_view>

namespace slurm {

namespace {

constexpr std::chrono::milliseconds longest_answer(60000);

constexpr std::string_view states_of_the_end[] = {"BOOT_FAIL", "CANCELLED", "COMPLETED",     "DEADLINE",
                                                  "FAILED",    "NODE_FAIL", "OUT_OF_MEMORY", "PREEMPTED",
                                                  "REVOKED",   "TIMEOUT"};

bool is_of_the_end(std::string_view state) {
    return std::find(std::begin(states_of_the_end), std::end(states_of_the_end), state) !=
           std::end(states_of_the_end);
}

std::optional<std::size_t> number_from(std::string_view text) {
    std::size_t number = 0;
    if (std::from_chars(text.data(), text.data() + text.size(), number).ec != std::errc())
        return std::nullopt;
    return number;
}

// From a line for each task: its place, a blank, its state, and whatever stands behind that.
Tasks tasks_of(const std::string& lines) {
    Tasks tasks;
    std::istringstream stream(lines);
    for (std::string line; std::getline(stream, line);) {
        std::istringstream words(line);
        std::string place;
        Task task;
        words >> place >> task.state;
        const auto number = number_from(place);
        if (!number || task.state.empty())
            continue;
        task.is_over = is_of_the_end(task.state);
        tasks[*number] = task;
    }
    return tasks;
}

std::string trimmed(std::string text) {
    text.erase(text.find_last_not_of('\n') + 1);
    return text;
}

// Why it did not do what it was asked to.
std::string reason_of(const platform::Tool_answer& answer) {
    const std::string text = trimmed(answer.text);
    return text.empty() ? "The scheduler does not answer." : text;
}

} // namespace

bool is_there() {
    return platform::has_tool("sbatch");
}

std::optional<std::size_t> largest_array() {
    constexpr std::string_view key = "MaxArraySize";
    const platform::Tool_answer answer = platform::ask_tool("scontrol", {"show", "config"}, longest_answer);
    const std::size_t place = answer.text.find(key);
    if (!answer.ok() || place == std::string::npos)
        return std::nullopt;
    const std::size_t digits = answer.text.find_first_of("0123456789", place);
    return digits == std::string::npos ? std::nullopt
                                       : number_from(std::string_view(answer.text).substr(digits));
}

Submission submit(const std::vector<std::string>& arguments) {
    const platform::Tool_answer answer = platform::ask_tool("sbatch", arguments, longest_answer);
    if (!answer.was_started)
        return {"", "There is no Slurm on this machine."};
    if (answer.exit_code != 0)
        return {"", reason_of(answer)};
    const std::string text = trimmed(answer.text);
    // Warnings may stand above it, and the name of the cluster behind it.
    const std::string last = text.substr(text.rfind('\n') + 1);
    return {last.substr(0, last.find(';')), ""};
}

std::optional<Tasks> ask_for(const std::string& job) {
    const platform::Tool_answer answer = platform::ask_tool(
        "squeue", {"--jobs=" + job, "--array", "--noheader", "--states=all", "--format=%K %T"},
        longest_answer);
    const bool is_forgotten = answer.text.find("Invalid job id") != std::string::npos;
    if (!answer.ok() && !is_forgotten)
        return std::nullopt;
    return is_forgotten ? Tasks() : tasks_of(answer.text);
}

// A line of them: "17_4|CANCELLED by 1000".
Tasks ask_books_for(const std::string& job) {
    const platform::Tool_answer answer = platform::ask_tool(
        "sacct", {"--jobs=" + job, "--noheader", "--parsable2", "--allocations", "--format=JobID,State"},
        longest_answer);
    std::string lines;
    std::istringstream stream(answer.ok() ? answer.text : "");
    for (std::string line; std::getline(stream, line);) {
        std::replace(line.begin(), line.end(), '|', ' ');
        if (line.starts_with(job + '_'))
            lines += line.substr(job.size() + 1) + '\n';
    }
    return tasks_of(lines);
}

std::string cancel(const std::string& job) {
    const platform::Tool_answer answer = platform::ask_tool("scancel", {job}, longest_answer);
    return answer.ok() ? "" : reason_of(answer);
}

} // namespace slurm
