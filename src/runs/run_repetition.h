// Which runs of a set are to be done once more.
#pragma once

#include "runs/run_journal.h"
#include "runs/run_set.h"
#include "runs/scenario_states.h"

#include <vector>

enum class Repetition {
    all,
    failed,
    out_of_date, // those whose scenario is
    left // of a set that was stopped or crashed; to go on in the set itself, an engine is started on it
};

// The set with the scenarios of it that are to be repeated; without scenarios when there are none. `states`
// has been refreshed.
Run_set repetition_of(const Run_set& set, const Run_journal& journal, Scenario_states& states,
                      Repetition which);

// Of the scenarios, those in one of the states.
std::vector<std::string> scenarios_in(const std::vector<std::string>& scenarios, Scenario_states& states,
                                      const std::vector<Scenario_state>& wanted);
