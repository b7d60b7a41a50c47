// What a list tells of scenarios beside their names: description, time of the last change, state and last
// run. It is learnt file by file, and remembered until the file changes; nothing of it is stored.
#pragma once

#include "operations/scenario_overview.h"
#include "platform/change_times.h"
#include "runs/scenario_states.h"

#include <optional>
#include <string>
#include <unordered_map>

struct Scenario_fact {
    Scenario_overview overview;
    std::string folded_description; // in lower case
    Scenario_status status;
    bool is_certain = false; // else it is as it was when last looked at
};

class Scenario_facts {
public:
    // Null for nobody who knows states.
    void set_states(Scenario_states* states) { states_ = states; }

    // What is known of the scenario's file (a full name), certain or not, or null.
    const Scenario_fact* known(const std::string& file) const;
    // Reads what is to be known, unless it is certain already.
    const Scenario_fact& learn(const std::string& file);
    // Has what was learnt be looked at once more: files whose time is the same are not read again.
    void doubt_all();

private:
    struct Entry {
        Scenario_fact fact;
        std::optional<platform::Change_time> time; // of the file that the overview was read from
    };

    Scenario_states* states_ = nullptr;
    std::unordered_map<std::string, Entry> entries_;
};
