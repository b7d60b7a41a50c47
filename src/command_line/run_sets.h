// The sets of runs of a project, by which commands look after them.
#pragma once

#include "command_line/opened_project.h"
#include "runs/run_journal.h"
#include "runs/run_set.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

struct Found_set {
    std::string folder;
    Run_set set;
    std::unique_ptr<Run_journal> journal; // up to date

    // By which it can be found again.
    std::string name() const;
    // Why it, or its journal, cannot be read; "" when they can.
    std::string failure() const;
};

// The folders of the project's sets, the newest first. Fails with exit_unreachable.
std::vector<std::string> folders_of_sets(Opened_project& project);

// The set in the folder; without a journal when it cannot be read.
Found_set read_set(const std::string& folder);

// Adds the option that names a set.
void add_set(CLI::App& command, std::string& set);

enum class Newest { of_all, at_work };

// The set of that name, or for an empty one the newest; on demand the newest that is at work, where any is.
// Fails with exit_found where there is none, and with exit_unreachable where it cannot be read.
Found_set find_set(Opened_project& project, const std::string& name, Newest which = Newest::of_all);

// The machines that have runs of the set and cannot be asked from here, each with the moment of its last
// sign.
std::map<std::string, Moment> silent_machines(const Run_journal& journal);

// Fails with exit_found for a set that came with a copied or moved project.
void must_be_own(const Found_set& found);
