// What is asked of the scheduler Slurm, by its own commands.
#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace slurm {

// Whether this machine has its commands.
bool is_there();

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
// By their places in the array.
using Tasks = std::map<std::size_t, Task>;
// The tasks of a job, without those that the scheduler has forgotten since they were over. Nothing when it
// does not answer.
std::optional<Tasks> ask_for(const std::string& job);
// The same of what its book-keeping tells, which forgets none; none where the cluster keeps no books.
Tasks ask_books_for(const std::string& job);

// Has it end the job, with all its tasks. "" when it does, else why not, as it says it.
std::string cancel(const std::string& job);

} // namespace slurm
