// The journal of a run set: the file in the set's folder that grows by one line for each start and each end
// of a run, and for each process that takes the set on or leaves it. It is all the state that a set has.
// Lines are only ever added, each in one write, so whoever reads it sees the same: the editor after a crash,
// a command, a machine on the same disk. A line that was cut, or that is none, is passed over.
//
//     owner TIME HOST BOOT PROCESS STARTED .     a process has the set run
//     job TIME NUMBER TASKS PER_TASK LIST .      a scheduler has, in so many tasks of so many runs, which
//     stand
//                                                in the file LIST of the folder
//     cancel TIME NUMBER .                       somebody has the scheduler end that job
//     closed TIME NUMBER .                       that job is over
//     start TIME RUN [HOST BOOT PROCESS STARTED] .
//                                                with who runs it where no owner does: a line of a list
//     end TIME RUN exit CODE SECONDS output .    how it ended: "exit", "signal", "unstarted" (with the
//     launch's
//                                                result, or no_record), "stopped", "slow", "lost" (with the
//                                                scheduler's reason in place of the code); then whether it
//                                                left output: "output" or "nothing"
//     left TIME REASON HOST BOOT PROCESS STARTED .
//                                                that owner has gone: "done", "stopped", "failure" (the set
//                                                was to stop at the first), "submitted" (to the scheduler),
//                                                or "gone" (said of one that was found dead by the next one)
//
// Of several owners, the first counts until it has left.
//
// TIME is of the form 2026-03-01T12:00:00.000Z, RUN is the run's number in the set, from 0.
#pragma once

#include "platform/append_file.h"
#include "platform/process_identity.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

// Milliseconds since the beginning of 1970, in UTC.
using Moment = std::int64_t;
Moment moment_now();
std::string text_of_moment(Moment moment);

// What the journal tells of one run; the latest of several attempts.
struct Run_record {
    enum class Outcome : std::uint8_t {
        waiting, // no attempt
        running, // started, no end
        exited,
        signalled,
        not_started, // the program could not be, or there was no record for it
        stopped,     // because the user had the set stopped: it is to be run again
        too_slow,    // ended because its time had run out
        lost         // by the scheduler
    };
    // The code of a run that was not started since the scenario's record was gone.
    static constexpr int no_record = -1;

    Outcome outcome = Outcome::waiting;
    bool left_output = false;
    bool is_abandoned = false; // running by its journal, and the process that ran it has gone
    int code = 0;              // exit code, signal, or result of the launch (platform/process.h)
    Moment started = 0;
    Moment ended = 0;
    double seconds = 0;

    bool has_ended() const { return outcome > Outcome::running; }
    bool is_done() const { return outcome == Outcome::exited && code == 0 && left_output; }
    bool has_failed() const { return has_ended() && !is_done() && outcome != Outcome::stopped; }
    // What is left for a set that goes on: what never began, and what was stopped or never ended.
    bool is_left() const { return !has_ended() || outcome == Outcome::stopped; }
};

// A job that has the runs of a set done elsewhere: the scheduler's, or a list for whoever runs such lists.
struct Scheduler_job {
    static constexpr const char* list_number = "list";

    std::string number;
    std::size_t tasks = 0;
    std::size_t per_task = 1;
    std::string
        list; // name of the file with the runs, a number a line; task t has those from t * per_task on
    bool is_cancelled = false;

    // Nobody can be asked what became of a list.
    bool is_list() const { return number == list_number; }
};

// Reads a journal, as often as asked, each time what is new.
class Run_journal {
public:
    // Of the set in the folder (a full name), which has so many runs.
    Run_journal(const std::string& folder, std::size_t runs);

    // Reads what has been added. True when anything was; changed() tells which runs.
    bool update();
    // Why the journal that is there could not be read at the last update(), a plain English sentence; "" when
    // it could. What was read before is still told.
    const std::string& failure() const { return failure_; }
    // Takes bytes of a journal, as update() does with those of the file: what follows on those taken before.
    void take(std::string_view bytes);

    const std::string& folder() const { return folder_; }
    const std::vector<Run_record>& runs() const { return runs_; }
    // The numbers of the runs that are left, in order.
    std::vector<std::size_t> left() const;
    // The runs of which the last update() read anything new, in no order, some perhaps twice.
    const std::vector<std::size_t>& changed() const { return changed_; }
    // The scheduler's reason why it lost a run; "" when it gave none.
    std::string reason(std::size_t run) const;

    // The machine that a run of a list is on and that cannot be asked from here; "" for any other run.
    std::string elsewhere(std::size_t run) const;

    // The process that has the set run; nothing when none does, or the last one has left.
    const std::optional<platform::Process_identity>& owner() const { return owner_; }
    // Whether that process had ended without leaving when update() was called. All that it wrote has been
    // read.
    bool is_abandoned() const { return is_abandoned_; }
    // When the present or last owner took it on, and how many runs have ended since; 0 for never.
    Moment owned_since() const { return owned_since_; }
    std::size_t ended_since() const { return ended_since_; }
    // The job that has the set run; nothing when there is none, or it is over.
    const std::optional<Scheduler_job>& job() const { return job_; }

private:
    class Words;
    bool read_on();
    bool look_after_workers();
    void take_line(std::string_view line);
    void take_end(std::size_t run, Moment time, Words& words);
    void take_owner(Moment time, std::string_view identity);
    void take_job(Moment time, Words& words);
    void take_job_end(std::string_view kind, std::string_view number);
    void forget_all();

    std::string folder_;
    std::string failure_;
    std::vector<Run_record> runs_;
    std::vector<std::size_t> changed_;
    std::unordered_map<std::size_t, std::string> reasons_;
    std::unordered_map<std::size_t, platform::Process_identity> workers_; // of runs that have not ended
    std::optional<platform::Process_identity> owner_;
    std::optional<Scheduler_job> job_;
    bool is_abandoned_ = false;
    Moment owned_since_ = 0;
    std::size_t ended_since_ = 0;
    std::int64_t place_ = 0;
    std::string rest_; // of a line whose end has not been read
};

// Adds lines. One that cannot be written (the disk is full) is kept and tried again before the next one:
// nothing that was done is forgotten as long as the process lives.
class Journal_writer {
public:
    explicit Journal_writer(const std::string& folder);

    void own();
    void own_job(const Scheduler_job& job);
    void cancel_job(const std::string& number);
    void close_job(const std::string& number);
    // Says that the owner, this process unless told otherwise, has gone.
    void leave(std::string_view reason, const platform::Process_identity& owner = platform::own_identity());
    void start(std::size_t run);
    // `record`: outcome, code, left_output and seconds. `reason`: of a lost run.
    void end(std::size_t run, const Run_record& record, const std::string& reason = "");

    // Tries once more what could not be written; true when nothing is left of it.
    bool flush();
    // Why the journal cannot be written at present; ok when it can.
    const platform::Write_result& state() const { return state_; }

private:
    void add(std::string line);

    platform::Append_file file_;
    std::deque<std::string> unwritten_;
    platform::Write_result state_;
};

// Makes this process the owner of the set. False when another one has it, also one of a machine that cannot
// be asked (what that has left can be repeated in a set of its own), or the journal cannot be read or
// written. Of several that try at once, one succeeds.
bool claim_set(const std::string& folder, std::size_t runs, Journal_writer& writer);
// The same: "" when it is the owner, else why not, in a plain English sentence.
std::string reason_not_claimed(const std::string& folder, std::size_t runs, Journal_writer& writer);

// Whether a process of this machine or another one, or a job, had the set run at the last update(), as far as
// can be told: one elsewhere counts.
bool is_owned(const Run_journal& journal);
