// The sets of runs of a project, by which commands look after them.
#pragma once

#include "command_line/opened_project.h"
#include "runs/run_journal.h"
#include "runs/run_set.h"

#include <memory>
#include <string>

struct Found_set {
    std::string folder;
    Run_set set;
    std::unique_ptr<Run_journal> journal; // up to date

    // By which it can be found again.
    std::string name() const;
};

// Adds the option that names a set.
void add_set(CLI::App& command, std::string& set);

// The set of that name, or for an empty one the newest. Fails with exit_found where there is none, and with
// exit_unreachable where it cannot be read.
Found_set find_set(Opened_project& project, const std::string& name);
