// Which scenarios of a project a command is to take.
#pragma once

#include "command_line/opened_project.h"

#include <string>
#include <vector>

// What a scenario is called: its file's name without its extension.
std::string scenario_name(const std::string& file_name);

struct Scenario_choice {
    std::vector<std::string> patterns; // names, wildcards, or files
    std::vector<std::string> states;
    std::vector<std::string> conditions; // "section.key=value"
    bool all = false;
    bool generated = false;

    Scenario_folder folder() const {
        return generated ? Scenario_folder::generated : Scenario_folder::created;
    }
    // States and conditions only leave some of them out.
    bool is_empty() const { return patterns.empty() && !all; }
};

// Adds what chooses scenarios: PATTERN... as arguments, or as an option --scenarios PATTERN where the command
// has other arguments.
void add_choice(CLI::App& command, Scenario_choice& choice, bool as_option = false);

// The file names of the scenarios chosen, in the order of lists. A pattern that no scenario matches fails,
// before anything is done, and so does a choice of nothing where one is `needed`: "all" must be said.
std::vector<std::string> choose_scenarios(Opened_project& project, const Scenario_choice& choice,
                                          bool needed);

// The one scenario that the first pattern of the choice names.
std::string choose_one(Opened_project& project, const Scenario_choice& choice);

// Fails with exit_found, and names them, where a set at work runs any of the scenarios (full names), or has
// still to run it: none of them is to be changed then.
void must_be_idle(Scenario_states& states, const std::vector<std::string>& scenarios);

// The same for a record file of its own, whose folder of names is the current one.
void must_be_idle(const TESK::File_name& file);

// Makes the files of the choice full names. To be done before the project is opened.
void resolve_files(const Session& session, Scenario_choice& choice);
