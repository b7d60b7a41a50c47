// The state of each scenario of a project, worked out from the journals of its run sets and from the times of
// its files; nothing of it is stored.
#pragma once

#include "platform/change_times.h"
#include "runs/run_journal.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

enum class Scenario_state : std::uint8_t {
    never_run,
    waiting, // in a set that is being run
    running,
    done,
    failed,
    stopped,     // with its set, or its set crashed
    out_of_date, // its record, or a parameter file that this names, is newer than the output, or than the
                 // beginning of the run that left it
    unknown      // what would tell it cannot be read
};
// For users: "out of date".
const char* word_for(Scenario_state state);

struct Scenario_status {
    Scenario_state state = Scenario_state::never_run;
    std::string reason;     // why it failed, is out of date, stopped or not known; else ""
    std::string set_folder; // of the last set that had it; "" for none
    std::size_t run = 0;    // its number there
    Run_record record;      // what that set's journal tells
    Moment output_time = 0; // of the newest file of an output that no journal tells of; else 0
};

// Scenarios, by name, that are not to be changed or deleted.
struct Busy_scenarios {
    std::vector<std::string> running; // a set at work runs them, or has still to run them
    std::vector<std::string> unknown; // of which that cannot be told
    std::string doubt;                // why not, a plain English sentence; "" when there are none

    bool empty() const { return running.empty() && unknown.empty(); }
    void add(const Busy_scenarios& others);
};

class Scenario_states {
public:
    // Of the project whose folder is `project_folder` and whose run sets lie in `runs_folder` (full names).
    // Relative names in records count from the project's folder.
    Scenario_states(std::string project_folder, std::string runs_folder);
    ~Scenario_states();

    // Reads what is new in the journals, and looks at files anew from then on. To be called before states are
    // asked for; costs next to nothing when nothing has changed.
    void refresh();

    // What refresh() could not read, a plain English sentence each: the folder of the sets, or a set of runs.
    // Scenarios of which nothing newer is known are in an unknown state then.
    const std::vector<std::string>& failures() const { return failures_; }

    // The state of the scenario with that file (full name). Asks the host for the times of its record and of
    // its output, and of each parameter file once for all scenarios.
    Scenario_status status_of(const std::string& scenario_file);

    // Takes those that are busy out of the files.
    Busy_scenarios take_busy(std::vector<std::string>& scenarios) const;

private:
    struct Set;
    struct Place {
        std::size_t set = 0;
        std::size_t run = 0;
    };
    // What a record names, as long as it is not changed.
    struct Named_files {
        platform::Change_time record_time = 0;
        std::vector<std::string> files; // full names
    };

    void add_set(const std::string& folder);
    void read_sets(const std::vector<std::string>& folders);
    // What could not be read and is newer than the set of that place, or alone what of that may be at work;
    // null for nothing.
    const std::string* doubt_since(std::size_t set, bool only_at_work) const;
    void take_last_run(const std::string& scenario_file, Scenario_status& status,
                       bool only_at_work = false) const;
    void judge_by_files(const std::string& scenario_file, Scenario_status& status);
    const std::vector<std::string>& files_named_by(const std::string& scenario_file,
                                                   platform::Change_time record_time);
    platform::Change_time time_of(const std::string& parameter_file);

    std::string project_folder_;
    std::string runs_folder_;
    std::vector<std::string> failures_;
    bool is_folder_readable_ = true;
    std::vector<std::unique_ptr<Set>> sets_;                   // the oldest first
    std::unordered_map<std::string, std::vector<Place>> runs_; // by the scenario's file in lower case
    std::unordered_map<std::string, Named_files> named_;
    std::unordered_map<std::string, platform::Change_time> times_; // of parameter files, since refresh()
};

// Those of the scenarios (full names) that are busy, by what the journals tell now.
Busy_scenarios busy_among(Scenario_states& states, std::vector<std::string> scenarios);
// "base, clay soil", of many the first.
std::string enumerated(const std::vector<std::string>& names);

// The parameter files that a scenario's record names, by the extensions that such files have, as they stand
// in the text of the record.
std::vector<std::string> parameter_files_in(std::string_view record_text);
