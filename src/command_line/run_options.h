// How a set of runs is to be made, and having one done from a terminal.
#pragma once

#include "command_line/scenario_choice.h"
#include "runs/run_journal.h"
#include "runs/run_set.h"

#include <string>

struct Run_options {
    Scenario_choice choice;
    std::string project;
    std::size_t jobs = 0;
    std::string engine = "local";
    unsigned time_limit = 0; // seconds
    bool only_stale = false;
    bool only_failed = false;
    bool stops_at_failure = false;
    bool common_format = false;
    bool only_shows = false;
    bool in_background = false;
    Slurm_request slurm;
};

// A scenario (full name) that is left out of a set, and why, in UTF-8: no program can be handed its name, or
// it is being run.
struct Unusable {
    std::string file;
    std::string reason;
};

// The set of scenarios of the project, by their full names.
Run_set make_set(Opened_project& project, const Run_options& options, std::vector<std::string> scenarios);

// Has the set in the folder done, or what is left of it, until it is over or this process is asked to end;
// then reports what became of each run, behind the scenarios (full names) that were left out. In
// the background it is left to a process of its own.
void have_done(Session& session, const std::string& folder, const Run_set& set, bool in_background,
               const std::vector<Unusable>& unusable = {});

// Reports the runs of a set. Without a journal, which may be null, there is none.
void report_runs(Session& session, const Run_set& set, const Run_journal* journal,
                 const std::vector<Unusable>& unusable = {});

// Prints command lines; in JSON rows with the scenarios (full names) that they are for, and those that
// were left out.
struct Shown_command {
    std::string scenario;
    std::string command; // in UTF-8
};
void report_commands(Session& session, const std::vector<Shown_command>& commands,
                     const std::vector<Unusable>& unusable);
// Those of a set that would lie in the folder: of a list the lines that this would hold. Fails with
// exit_found when that could not be written.
std::vector<Shown_command> commands_of(Session& session, const Run_set& set, const std::string& folder);

// Tells programs of a set that was left to a process of its own, by its name, empty where there is none, and
// of how many runs; people see the same without what failed.
void report_background(Session& session, const std::string& set, std::size_t runs,
                       const std::vector<Unusable>& unusable);
