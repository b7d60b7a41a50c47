#include "runs/run_repetition.h"

#include <algorithm>

namespace {

bool is_wanted(const std::string& scenario, const Run_record& record, Scenario_states& states,
               Repetition which) {
    switch (which) {
    case Repetition::all: return true;
    case Repetition::failed: return record.has_failed();
    case Repetition::out_of_date: return states.status_of(scenario).state == Scenario_state::out_of_date;
    case Repetition::left: return record.is_left();
    }
    return false;
}

} // namespace

Run_set repetition_of(const Run_set& set, const Run_journal& journal, Scenario_states& states,
                      Repetition which) {
    Run_set repeated = set;
    repeated.scenarios.clear();
    for (std::size_t run = 0; run < set.scenarios.size() && run < journal.runs().size(); ++run)
        if (is_wanted(set.scenarios[run], journal.runs()[run], states, which))
            repeated.scenarios.push_back(set.scenarios[run]);
    return repeated;
}

std::vector<std::string> scenarios_in(const std::vector<std::string>& scenarios, Scenario_states& states,
                                      const std::vector<Scenario_state>& wanted) {
    std::vector<std::string> found;
    std::copy_if(
        scenarios.begin(), scenarios.end(), std::back_inserter(found), [&](const std::string& scenario) {
            return std::find(wanted.begin(), wanted.end(), states.status_of(scenario).state) != wanted.end();
        });
    return found;
}
