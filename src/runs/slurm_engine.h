// Has the runs of a set done by the scheduler Slurm: one job, whose tasks do several runs each where its
// array cannot have as many as there are runs. The tasks note their runs in the journal by themselves; this
// looks after what they cannot note, because they are gone.
#pragma once

#include "runs/run_engine.h"
#include "runs/run_journal.h"
#include "runs/slurm.h"

#include <chrono>
#include <cstddef>
#include <optional>
#include <set>
#include <string>
#include <vector>

class Slurm_engine : public Run_engine {
public:
    static constexpr std::chrono::milliseconds usual_pause{5000};

    // `pause`: how long the scheduler is left alone between two questions.
    Slurm_engine(const std::string& folder, Run_set set, std::chrono::milliseconds pause = usual_pause);

    // Where a job has the set run already, that is looked after. Otherwise a job for what is left is
    // submitted.
    std::string start() override;
    bool poll() override;
    // Cancels the job, whoever has submitted it. While the scheduler does not take that it is tried again
    // with each question, and trouble() tells what a user can do.
    void stop() override;
    std::string trouble() const override { return trouble_; }

private:
    std::string submit(const std::vector<std::size_t>& runs);
    std::vector<std::string> sbatch_arguments(const Scheduler_job& job) const;
    void cancel();
    void settle(slurm::Tasks tasks);
    bool is_settled(std::size_t task) const;
    void settle_task(std::size_t task, const std::string& state);
    std::vector<std::size_t> runs_of(std::size_t task) const;
    void read_list();

    std::string folder_;
    Run_set set_;
    std::chrono::milliseconds pause_;
    Run_journal journal_;
    Journal_writer writer_;
    std::vector<std::size_t> list_; // the runs of the job
    std::set<std::size_t> over_;    // its tasks that were over when last asked for
    std::chrono::steady_clock::time_point next_question_{};
    bool is_stopping_ = false;
    std::string trouble_;
};

// Cancels the job that has the set run, of which there must be one, and notes it. "" or why it could not.
std::string cancel_job_of(const Run_journal& journal);
