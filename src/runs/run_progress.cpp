#include "runs/run_progress.h"

#include "platform/process.h"

#include <array>
#include <cmath>
#include <cstring>
#include <iterator>

namespace {

using Outcome = Run_record::Outcome;

constexpr const char* run_state_words[] = {"waiting", "running", "done", "failed", "stopped", "stopped"};

// "10,000"
std::string with_commas(std::size_t number) {
    std::string text = std::to_string(number);
    for (std::size_t place = text.size(); place > 3;)
        text.insert(place -= 3, 1, ',');
    return text;
}

std::string about(double seconds) {
    struct Unit {
        double from; // seconds from which it is used
        double length;
        const char* name;
    };
    constexpr Unit units[] = {{2.0 * 24 * 60 * 60, 24.0 * 60 * 60, " days left"},
                              {90.0 * 60, 60.0 * 60, " h left"},
                              {45, 60, " min left"}};
    for (const Unit& unit : units)
        if (seconds >= unit.from)
            return "about " + std::to_string(std::lround(seconds / unit.length)) + unit.name;
    return "less than a minute left";
}

std::string reason_not_started(int result) {
    switch (result) {
    case Run_record::no_record: return "not started: its record was not there";
    case platform::result_file_not_found:
    case platform::result_path_not_found: return "the model is not there";
    case platform::result_access_denied: return "the model may not be started";
    case platform::result_bad_format: return "the model is no program that can be started here";
    case platform::result_too_many_open:
    case platform::result_out_of_memory: return "this machine can start no more programs";
    default: return "the model could not be started";
    }
}

} // namespace

Run_state state_of(const Run_record& record, bool is_owned) {
    if (record.outcome == Outcome::waiting)
        return Run_state::waiting;
    if (record.outcome == Outcome::running)
        return is_owned && !record.is_abandoned ? Run_state::running : Run_state::crashed;
    if (record.outcome == Outcome::stopped)
        return Run_state::stopped;
    return record.is_done() ? Run_state::done : Run_state::failed;
}

const char* word_for(Run_state state) {
    return run_state_words[static_cast<std::size_t>(state)];
}

std::string describe_run(const Run_journal& journal, std::size_t run, bool is_owned) {
    const Run_record& record = journal.runs()[run];
    switch (state_of(record, is_owned)) {
    case Run_state::crashed: return "its process has gone";
    case Run_state::running: {
        const std::string host = journal.elsewhere(run);
        return host.empty() ? "" : "on " + host + ", which cannot be asked from here";
    }
    default: return describe_end(record, journal.reason(run));
    }
}

std::string describe_end(const Run_record& record, const std::string& lost_reason) {
    switch (record.outcome) {
    case Outcome::waiting:
    case Outcome::running: return "";
    case Outcome::exited:
        if (record.code != 0)
            return "exit code " + std::to_string(record.code);
        return record.left_output ? "" : "no output";
    case Outcome::signalled: {
        const char* const name = sigdescr_np(record.code);
        return "signal " + std::to_string(record.code) +
               (name != nullptr ? std::string(" (") + name + ")" : "");
    }
    case Outcome::not_started: return reason_not_started(record.code);
    case Outcome::stopped: return "stopped";
    case Outcome::too_slow: return "longer than the time allowed";
    case Outcome::lost: return lost_reason.empty() ? "lost by the scheduler" : "scheduler: " + lost_reason;
    }
    return "";
}

Run_progress progress_of(const Run_journal& journal, bool is_owned, Moment now) {
    Run_progress progress;
    progress.total = journal.runs().size();
    for (const Run_record& record : journal.runs()) {
        switch (state_of(record, is_owned)) {
        case Run_state::waiting: ++progress.waiting; break;
        case Run_state::running: ++progress.running; break;
        case Run_state::done: ++progress.done; break;
        case Run_state::failed: ++progress.failed; break;
        case Run_state::stopped:
        case Run_state::crashed: ++progress.stopped; break;
        }
    }
    if (is_owned && journal.ended_since() > 0) {
        const double elapsed = std::max(0.0, static_cast<double>(now - journal.owned_since()) / 1000);
        // Runs that were stopped before are done again.
        const auto rest = static_cast<double>(progress.running + progress.waiting + progress.stopped);
        progress.seconds_left = elapsed / static_cast<double>(journal.ended_since()) * rest;
    }
    return progress;
}

Run_state state_of(const Run_progress& progress) {
    return progress.running > 0                                    ? Run_state::running
           : progress.failed > 0                                   ? Run_state::failed
           : progress.stopped > 0                                  ? Run_state::stopped
           : progress.total > 0 && progress.done == progress.total ? Run_state::done
                                                                   : Run_state::waiting;
}

std::string describe(const Run_progress& progress) {
    std::string text = with_commas(progress.done) + " of " + with_commas(progress.total) + " done";
    if (progress.failed > 0)
        text += ", " + with_commas(progress.failed) + " failed";
    if (progress.stopped > 0)
        text += ", " + with_commas(progress.stopped) + " stopped";
    if (!progress.seconds_left && progress.running == 0 && progress.waiting > 0 &&
        progress.waiting < progress.total)
        text += ", " + with_commas(progress.waiting) + " waiting";
    if (progress.seconds_left && !progress.is_over())
        text += ", " + about(*progress.seconds_left);
    return text;
}
