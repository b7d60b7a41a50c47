// A run set: which scenarios of a project are to be run by which model, and how. What it will do can be shown
// without doing it: command_line() tells it for each scenario. Names and texts are in code page 1252.
#pragma once

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

enum class Engine_kind {
    local, // on this machine
    slurm, // as a job of that scheduler
    list   // by any other runner of command lines
};

// What a job asks of the scheduler, as its user would write it; "" for what the cluster gives by itself.
struct Slurm_request {
    std::string partition;
    std::string time;    // of one task: "30", "2:00:00"
    std::string memory;  // of one task: "2G"
    std::string options; // further ones of sbatch, with blanks between them
};

struct Run_set {
    std::string project_file; // full name
    std::string folder;       // of the project, full: where the model is started
    std::string model;
    std::optional<std::string> report_format; // for all runs; nothing for each scenario's own
    std::vector<std::string> scenarios; // full names of their files; a run's number is its place here, from 0

    Engine_kind engine = Engine_kind::local;
    std::size_t at_once = 0;         // how many runs at a time; 0 for one on each core
    std::chrono::seconds longest{0}; // of one run; 0 for no limit
    bool stops_at_first_failure = false;
    Slurm_request slurm;

    std::string command_line(std::size_t run) const;
    // at_once, with the number of cores for 0.
    std::size_t number_at_once() const;
};

// The first name or text of the set that no command line or journal can hold: one with a double quote or a
// control character. "" when all can.
std::string unusable_name(const Run_set& set);

// The set as the text file that its folder keeps, and back; nothing for a text that is none, or not the
// whole.
std::string text_of(const Run_set& set);
std::optional<Run_set> run_set_from_text(std::string_view text);
