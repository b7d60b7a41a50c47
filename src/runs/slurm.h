// What is asked of the scheduler Slurm, by its own commands.
#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace slurm {

// How many tasks the array of a job can have; nothing when the scheduler does not answer.
std::optional<std::size_t> largest_array();

struct Submission {
    std::string job;    // its number; "" when it was refused
    std::string reason; // why, as the scheduler says it
};
// Gives sbatch the options and, behind them, the script with its arguments.
Submission submit(const std::vector<std::string>& arguments);

struct Task {
    bool is_over = false;
    std::string state; // as the scheduler calls it: "NODE_FAIL"
};
struct Job {
    bool is_known = false;             // false when the scheduler has forgotten it: then it is over
    std::map<std::size_t, Task> tasks; // by their places in the array; without those that it has forgotten
};
// Nothing when the scheduler does not answer.
std::optional<Job> ask_for(const std::string& job);

// Has it end the job, with all its tasks. False when it does not answer.
bool cancel(const std::string& job);

} // namespace slurm
