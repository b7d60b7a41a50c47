#include "runs/local_engine.h"

#include "names/file_name.h"
#include "platform/files.h"
#include "runs/run_folders.h"
#include "trees/scenario_directory.h"

using Clock = platform::Watched_programs::Clock;

namespace {

double seconds_since(Clock::time_point began) {
    return std::chrono::duration<double>(Clock::now() - began).count();
}

// The record of a run that ended, but for its output.
Run_record record_of(const platform::Program_end& end) {
    Run_record record;
    record.code = end.code;
    record.outcome = end.cause == platform::Program_end::Cause::exited ? Run_record::Outcome::exited
                                                                       : Run_record::Outcome::signalled;
    // Whatever a program says that was asked to end, it was not let finish.
    if (end.was_too_slow)
        record.outcome = Run_record::Outcome::too_slow;
    else if (end.was_asked)
        record.outcome = Run_record::Outcome::stopped;
    return record;
}

} // namespace

Local_engine::Local_engine(const std::string& folder, Run_set set, std::chrono::milliseconds grace)
    : folder_(folder), set_(std::move(set)), journal_(folder),
      programs_(*this, set_.number_at_once(), grace) {}

Local_engine::~Local_engine() {
    if (!is_owner_)
        return;
    is_stopping_ = true;
    for (const auto& [run, running] : running_) {
        Run_record record;
        record.outcome = Run_record::Outcome::stopped;
        record.seconds = seconds_since(running.began);
        journal_.end(run, record);
    }
    finish();
}

std::string Local_engine::start() {
    if (!journal_.state().ok())
        return journal_.state().reason;
    if (std::string reason = reason_not_claimed(folder_, set_.scenarios.size(), journal_); !reason.empty())
        return reason;
    is_owner_ = true;
    Run_journal journal(folder_, set_.scenarios.size());
    journal.update();
    left_ = journal.left();
    start_next();
    return "";
}

bool Local_engine::may_start() const {
    return !is_stopping_ && !(has_failure_ && set_.stops_at_first_failure) && next_ < left_.size();
}

bool Local_engine::poll() {
    if (!is_owner_)
        return false;
    programs_.poll();
    if (journal_.flush())
        start_next();
    if (programs_.running() > 0 || may_start())
        return true;
    // A stopped set does not wait for a disk that stays full: what is not written down is run again.
    if (!journal_.state().ok() && !is_stopping_)
        return true;
    finish();
    return false;
}

void Local_engine::stop() {
    is_stopping_ = true;
    programs_.end_all();
}

void Local_engine::finish() {
    const bool is_done = next_ == left_.size() && programs_.running() == 0 && !is_stopping_;
    journal_.leave(is_done ? "done" : has_failure_ && !is_stopping_ ? "failure" : "stopped");
    is_owner_ = false;
}

void Local_engine::start_next() {
    while (may_start() && programs_.has_room() && journal_.state().ok())
        if (!start_run(left_[next_]))
            return;
}

// False when the host cannot take any more at present.
bool Local_engine::start_run(std::size_t run) {
    const std::string& record = set_.scenarios[run];
    if (!platform::exists(record) && !platform::is_out_of_reach(record)) {
        ++next_;
        note_not_started(run, Run_record::no_record);
        return true;
    }
    Running& running = running_[run];
    running.output_folder = output_folder_of(TESK::File_name(record.c_str()));
    running.output_before = platform::folder_mark(running.output_folder);
    running.printed = std::make_unique<Printed_text>(printed_file(folder_, run));
    running.began = Clock::now();
    const int result = programs_.start(run, set_.command_line(run), set_.folder, set_.longest);
    const bool is_for_now =
        result == platform::result_too_many_open || result == platform::result_out_of_memory;
    if (is_for_now && programs_.running() > 0) {
        running_.erase(run);
        return false;
    }
    ++next_;
    if (result == platform::result_started) {
        journal_.start(run);
    } else {
        note_not_started(run, result);
        running_.erase(run);
    }
    return true;
}

void Local_engine::note_not_started(std::size_t run, int result) {
    Run_record record;
    record.outcome = Run_record::Outcome::not_started;
    record.code = result;
    journal_.start(run);
    journal_.end(run, record);
    has_failure_ = true;
}

void Local_engine::printed(std::size_t run, std::string_view bytes) {
    running_.at(run).printed->add(bytes);
}

void Local_engine::ended(std::size_t run, const platform::Program_end& end) {
    const Running& running = running_.at(run);
    Run_record record = record_of(end);
    record.seconds = seconds_since(running.began);
    const platform::Folder_mark output = platform::folder_mark(running.output_folder);
    record.left_output = output.files > 0 && output != running.output_before;
    journal_.end(run, record);
    has_failure_ = has_failure_ || record.has_failed();
    running_.erase(run);
}
