// The record files that `get` and `set` work on: the one that is named, or those of a project's scenarios.
#pragma once

#include "command_line/scenario_choice.h"

#include <memory>
#include <string>
#include <vector>

struct Record_targets {
    struct Target {
        TESK::File_name file;
        std::string name; // of the scenario, else of the file; in UTF-8
    };
    std::vector<Target> targets;
    bool is_one_file = false;                // the one that was named
    std::unique_ptr<Opened_project> project; // null for one file
};

// Finds them, and makes the folder current from which their names count. A choice that is not empty is one of
// the scenarios of the project that `argument` names.
Record_targets find_targets(Session& session, const std::string& argument, Scenario_choice& choice);

// Says, and notes, that a record could not be read. True when it was.
class Record_settings;
bool was_read(Session& session, const Record_settings& settings);
