#include "command_line/scenario_choice.h"

#include "foundation/code_page_1252.h"
#include "operations/record_settings.h"
#include "operations/scenario_overview.h"
#include "platform/current_directory.h"
#include "platform/host_names.h"
#include "platform/listing.h"
#include "runs/scenario_states.h"

#include <cmath>
#include <cstdlib>

namespace {

bool is_file_pattern(const std::string& pattern) {
    return pattern.find_first_of("/\\") != std::string::npos;
}

// Whether the value is the one wanted: the same number, or a text that the wildcard matches.
bool is_value(const std::string& value, const std::string& wanted) {
    char* end = nullptr;
    const double wanted_number = std::strtod(wanted.c_str(), &end);
    if (*end == 0 && !wanted.empty()) {
        const double number = std::strtod(value.c_str(), &end);
        if (*end == 0 && !value.empty())
            return static_cast<float>(number) == static_cast<float>(wanted_number);
    }
    return value.empty() ? wanted.empty() : platform::matches_mask(value, wanted);
}

class Condition {
public:
    explicit Condition(const std::string& text) {
        const std::size_t equals = text.find('=');
        if (equals == std::string::npos || equals == 0)
            throw Command_failure(exit_misused,
                                  "'" + text + "' is no condition such as 'submodels.salinity=true'.");
        name_ = record_text(text.substr(0, equals));
        value_ = record_text(text.substr(equals + 1));
    }
    bool holds(const Record_settings& settings) {
        const Setting* setting = settings.find(name_);
        is_known_ = is_known_ || setting != nullptr;
        return setting != nullptr && is_value(setting->value(), value_);
    }
    // Fails for a setting that none of the scenarios has: it is mistyped.
    void must_be_known() const {
        if (!is_known_)
            throw Command_failure(exit_found, "No scenario has a setting '" + screen_text(name_) +
                                                  "' (--where). Nothing was done.");
    }

private:
    std::string name_;
    std::string value_;
    bool is_known_ = false;
};

void keep_where_all_hold(std::vector<std::string>& scenarios, const Scenario_choice& choice,
                         const Opened_project& project) {
    std::vector<Condition> conditions(choice.conditions.begin(), choice.conditions.end());
    if (conditions.empty() || scenarios.empty())
        return;
    std::erase_if(scenarios, [&](const std::string& scenario) {
        const Record_settings settings(project.scenario_file(scenario, choice.folder()));
        if (!settings.failure().empty()) {
            project.tell_unreadable(scenario, settings.failure());
            return true;
        }
        return std::count_if(conditions.begin(), conditions.end(),
                             [&](Condition& condition) { return !condition.holds(settings); }) > 0;
    });
    for (const Condition& condition : conditions)
        condition.must_be_known();
}

// The words for states, with "-" for blanks.
std::string word_in_shell(Scenario_state state) {
    std::string word = word_for(state);
    std::replace(word.begin(), word.end(), ' ', '-');
    return word;
}

constexpr Scenario_state all_states[] = {
    Scenario_state::never_run, Scenario_state::waiting, Scenario_state::running,     Scenario_state::done,
    Scenario_state::failed,    Scenario_state::stopped, Scenario_state::out_of_date, Scenario_state::unknown};

// "stale" is what a run would change.
std::vector<Scenario_state> states_of(const std::vector<std::string>& words) {
    std::vector<Scenario_state> states;
    for (const std::string& word : words) {
        if (word == "stale")
            states.insert(states.end(), {Scenario_state::never_run, Scenario_state::out_of_date});
        for (const Scenario_state state : all_states)
            if (word == word_in_shell(state))
                states.push_back(state);
    }
    return states;
}

std::vector<std::string> state_words() {
    std::vector<std::string> words{"stale"};
    for (const Scenario_state state : all_states)
        words.push_back(word_in_shell(state));
    return words;
}

// Takes the scenarios that any of the patterns matches.
std::vector<std::string> matching(const std::vector<std::string>& scenarios, const Scenario_choice& choice,
                                  const Opened_project& project) {
    std::vector<bool> is_chosen(scenarios.size(), false);
    for (const std::string& pattern : choice.patterns) {
        std::string mask = record_text(pattern);
        if (is_file_pattern(pattern)) {
            const std::string folder = project.folder_of(choice.folder()) + '\\';
            if (!TESK::equal_ignoring_case(mask.substr(0, folder.size()), folder))
                throw Command_failure(exit_misused, "'" + pattern +
                                                        "' does not lie in the project's folder " +
                                                        screen_text(folder) + ".");
            mask.erase(0, folder.size());
        }
        bool is_matched = false;
        for (std::size_t i = 0; i < scenarios.size(); ++i) {
            if (!platform::matches_mask(scenarios[i], mask) &&
                !platform::matches_mask(scenario_name(scenarios[i]), mask))
                continue;
            is_chosen[i] = true;
            is_matched = true;
        }
        if (!is_matched)
            throw Command_failure(exit_found, "No scenario matches '" + pattern + "'. Nothing was done.");
    }
    std::vector<std::string> chosen;
    for (std::size_t i = 0; i < scenarios.size(); ++i)
        if (is_chosen[i])
            chosen.push_back(scenarios[i]);
    return chosen;
}

} // namespace

std::string scenario_name(const std::string& file_name) {
    return file_name.substr(0, file_name.rfind('.'));
}

void add_choice(CLI::App& command, Scenario_choice& choice, bool as_option) {
    CLI::Option* patterns =
        as_option ? command
                        .add_option("--scenarios", choice.patterns,
                                    "A scenario's name, or a wildcard such as 'plot*'")
                        ->allow_extra_args(false)
                  : command.add_option("PATTERN", choice.patterns,
                                       "Scenarios: names, or wildcards such as 'plot*' in quotes");
    patterns->type_name(as_option ? "PATTERN" : "");
    command.add_flag("--all", choice.all, "All scenarios of the folder");
    command.add_flag("--generated", choice.generated, "Those of the folder of generated scenarios");
    command.add_option("--state", choice.states, "Those in one of the states, with commas between")
        ->delimiter(',')
        ->allow_extra_args(false)
        ->type_name("")
        ->check(CLI::IsMember(state_words()));
    command
        .add_option("--where", choice.conditions,
                    "Those with a setting of that value, such as 'submodels.salinity=true'")
        ->type_name("SECTION.KEY=VALUE")
        ->allow_extra_args(false);
}

void resolve_files(const Session& session, Scenario_choice& choice) {
    for (std::string& pattern : choice.patterns)
        if (is_file_pattern(pattern))
            pattern = screen_text(session.file_of_argument(pattern));
}

void must_be_idle(Scenario_states& states, const std::vector<std::string>& scenarios) {
    const Busy_scenarios busy = busy_among(states, scenarios);
    if (!busy.running.empty())
        throw Command_failure(exit_found,
                              "Scenarios of these are being run: " + screen_text(enumerated(busy.running)) +
                                  ". Stop the runs (tvs_project stop), or wait for their end. "
                                  "Nothing was done.");
    if (!busy.unknown.empty())
        throw Command_failure(exit_unreachable,
                              "Whether these scenarios are being run cannot be told: " +
                                  screen_text(enumerated(busy.unknown)) + ". " + screen_text(busy.doubt) +
                                  " See to it that it can be read or, where a set of runs is damaged, delete "
                                  "that (tvs_project delete-runs). Nothing was done.");
}

void must_be_idle(const TESK::File_name& file) {
    const std::string folder = platform::current_directory();
    Scenario_states states(folder, folder + "\\Runs");
    must_be_idle(states, {file});
}

std::string choose_one(Opened_project& project, const Scenario_choice& choice) {
    const std::vector<std::string> chosen = choose_scenarios(project, choice, true);
    if (chosen.size() != 1)
        throw Command_failure(exit_misused,
                              "'" + choice.patterns.front() + "' names more than one scenario.");
    return chosen.front();
}

std::vector<std::string> choose_scenarios(Opened_project& project, const Scenario_choice& choice,
                                          bool needed) {
    if (needed && choice.is_empty())
        throw Command_failure(exit_misused, "Say which scenarios: their names, wildcards, or --all.");
    if (choice.all && !choice.patterns.empty())
        throw Command_failure(exit_misused, "Say either --all or which scenarios, not both.");
    std::string failure;
    std::vector<std::string> scenarios = list_scenarios(project.folder_of(choice.folder()), &failure);
    if (!failure.empty())
        throw Command_failure(exit_unreachable, failure);
    if (scenarios.empty() && choice.all)
        project.say(choice.generated ? "The project has no generated scenarios."
                                     : "The project has no scenarios.");
    if (!choice.patterns.empty())
        scenarios = matching(scenarios, choice, project);
    if (!choice.states.empty()) {
        const std::vector<Scenario_state> wanted = states_of(choice.states);
        std::erase_if(scenarios, [&](const std::string& scenario) {
            const Scenario_state state =
                project.states().status_of(project.scenario_file(scenario, choice.folder())).state;
            return std::find(wanted.begin(), wanted.end(), state) == wanted.end();
        });
    }
    keep_where_all_hold(scenarios, choice, project);
    const bool is_filtered = !choice.states.empty() || !choice.conditions.empty();
    if (needed && is_filtered && scenarios.empty())
        throw Command_failure(exit_found,
                              "No scenario is of that state and has such settings. Nothing was done.");
    return scenarios;
}
