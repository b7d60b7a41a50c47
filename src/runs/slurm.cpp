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

// Adds a line for each task: its place, a blank, its state, and whatever stands behind that.
void add_tasks(const std::string& lines, Job& job) {
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
        job.tasks[*number] = task;
    }
}

// What the scheduler's book-keeping tells, where it has one: "17_4|NODE_FAIL" with a line for each task.
void ask_accounting(const std::string& number, Job& job) {
    const platform::Tool_answer answer = platform::ask_tool(
        "sacct", {"--jobs=" + number, "--noheader", "--parsable2", "--allocations", "--format=JobID,State"},
        longest_answer);
    if (!answer.ok())
        return;
    std::string lines = answer.text;
    std::replace(lines.begin(), lines.end(), '|', ' ');
    std::string places;
    std::istringstream stream(lines);
    for (std::string line; std::getline(stream, line);)
        if (line.starts_with(number + '_'))
            places += line.substr(number.size() + 1) + '\n';
    add_tasks(places, job);
}

} // namespace

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
    std::string text = answer.text;
    text.erase(text.find_last_not_of('\n') + 1);
    if (answer.exit_code != 0)
        return {"", text.empty() ? "Slurm does not answer." : text};
    // Warnings may stand above it, and the name of the cluster behind it.
    const std::string last = text.substr(text.rfind('\n') + 1);
    return {last.substr(0, last.find(';')), ""};
}

std::optional<Job> ask_for(const std::string& number) {
    const platform::Tool_answer answer = platform::ask_tool(
        "squeue", {"--jobs=" + number, "--array", "--noheader", "--states=all", "--format=%K %T"},
        longest_answer);
    if (!answer.was_started)
        return std::nullopt;
    Job job;
    const bool is_forgotten = answer.text.find("Invalid job id") != std::string::npos;
    if (answer.exit_code != 0 && !is_forgotten)
        return std::nullopt;
    if (!is_forgotten)
        add_tasks(answer.text, job);
    job.is_known = !job.tasks.empty();
    if (!job.is_known)
        ask_accounting(number, job);
    return job;
}

bool cancel(const std::string& job) {
    return platform::ask_tool("scancel", {job}, longest_answer).ok();
}

} // namespace slurm
