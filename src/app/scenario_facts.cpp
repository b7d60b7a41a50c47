#include "app/scenario_facts.h"

#include "foundation/code_page_1252.h"

const Scenario_fact* Scenario_facts::known(const std::string& file) const {
    const auto found = entries_.find(file);
    return found == entries_.end() ? nullptr : &found->second.fact;
}

const Scenario_fact& Scenario_facts::learn(const std::string& file) {
    Entry& entry = entries_[file];
    if (entry.fact.is_certain)
        return entry.fact;
    const std::optional<platform::Change_time> time = platform::change_time(file);
    if (!time || time != entry.time) {
        entry.fact.overview = read_scenario_overview(file);
        entry.fact.folded_description = entry.fact.overview.description;
        for (char& c : entry.fact.folded_description)
            c = TESK::fold_case(c);
    }
    entry.time = time;
    entry.fact.status = states_ == nullptr ? Scenario_status() : states_->status_of(file);
    entry.fact.is_certain = true;
    return entry.fact;
}

void Scenario_facts::doubt_all() {
    for (auto& [file, entry] : entries_)
        entry.fact.is_certain = false;
}
