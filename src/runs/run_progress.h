// How far a run set is: counts, an estimate, and a sentence of both.
#pragma once

#include "runs/run_journal.h"

#include <cstddef>
#include <optional>
#include <string>

// The state of a run of a set, as the journal and its owner tell it.
enum class Run_state : std::uint8_t {
    waiting,
    running,
    done,
    failed,
    stopped, // with the set; the rest of a set that was stopped is still waiting
    crashed  // was running when the process that ran it, or had it run, was lost: stopped, for users
};
// `is_owned`: whether anybody has the set run (is_owned() of the journal, asked once for all runs).
Run_state state_of(const Run_record& record, bool is_owned);
// One word for users: "waiting".
const char* word_for(Run_state state);

// Why a run failed, or how it ended, for users: "exit code 3", "no output". "" for a run that is done or has
// not ended. `lost_reason`: the scheduler's.
std::string describe_end(const Run_record& record, const std::string& lost_reason = "");

// The same for a run of a set, and of one that has not ended what is to be known of its process.
std::string describe_run(const Run_journal& journal, std::size_t run, bool is_owned);

struct Run_progress {
    std::size_t total = 0;
    std::size_t done = 0;
    std::size_t failed = 0;
    std::size_t stopped = 0; // crashed ones too
    std::size_t running = 0;
    std::size_t waiting = 0;
    // How long the rest will take, from how long the ended runs took; nothing as long as that is not known,
    // and for a set that nobody has run.
    std::optional<double> seconds_left;

    std::size_t ended() const { return done + failed; }
    bool is_over() const { return running == 0 && waiting == 0 && stopped == 0; }
};

// `now`: the present moment.
Run_progress progress_of(const Run_journal& journal, bool is_owned, Moment now);

// The state of a set as a whole: what deserves the first look in it.
Run_state state_of(const Run_progress& progress);

// "812 of 10,000 done, 3 failed, about 14 min left"; what is none is left out. Those that
// wait are told of a set that nobody runs.
std::string describe(const Run_progress& progress);
