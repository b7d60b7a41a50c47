#include "runs/slurm_engine.h"

#include "platform/file_writer.h"
#include "platform/files.h"
#include "platform/host_names.h"
#include "runs/worker_files.h"

#include <algorithm>
#include <sstream>
#include <utility>

namespace {

constexpr const char* no_answer = "The scheduler does not answer.";
constexpr std::size_t largest_list = std::size_t{64} << 20;

void add_option(std::vector<std::string>& arguments, const char* name, const std::string& value) {
    if (!value.empty())
        arguments.push_back(std::string("--") + name + '=' + value);
}

// The name of a list that is not there yet.
std::string new_list_name(const std::string& folder) {
    for (std::size_t number = 1;; ++number) {
        std::string name = "job-" + std::to_string(number) + ".txt";
        if (!platform::exists(folder + '\\' + name))
            return name;
    }
}

} // namespace

Slurm_engine::Slurm_engine(const std::string& folder, Run_set set, std::chrono::milliseconds pause)
    : folder_(folder), set_(std::move(set)), pause_(pause), journal_(folder, set_.scenarios.size()),
      writer_(folder) {}

std::string Slurm_engine::start() {
    journal_.update();
    if (!writer_.state().ok())
        return writer_.state().reason;
    if (!journal_.job()) {
        std::string reason = reason_not_claimed(folder_, set_.scenarios.size(), writer_);
        if (!reason.empty())
            return reason;
        journal_.update();
        const std::vector<std::size_t> left = journal_.left();
        reason = left.empty() ? "" : submit(left);
        writer_.leave(reason.empty() ? "submitted" : "refused");
        journal_.update();
        if (!reason.empty())
            return reason;
    }
    read_list();
    return "";
}

std::string Slurm_engine::submit(const std::vector<std::size_t>& runs) {
    std::string reason = write_worker_files(folder_, set_);
    const auto most_tasks = slurm::largest_array();
    if (reason.empty() && !most_tasks)
        reason = no_answer;
    if (!reason.empty())
        return reason;
    Scheduler_job job;
    job.list = new_list_name(folder_);
    const std::size_t most = std::max<std::size_t>(*most_tasks, 1);
    job.per_task = (runs.size() + most - 1) / most;
    job.tasks = (runs.size() + job.per_task - 1) / job.per_task;
    std::string text;
    for (const std::size_t run : runs)
        text += std::to_string(run) + '\n';
    const platform::Write_result result =
        platform::write_file(folder_ + '\\' + job.list, text, platform::Durability::durable);
    if (!result.ok())
        return result.reason;
    const slurm::Submission submission = slurm::submit(sbatch_arguments(job));
    if (submission.job.empty())
        return submission.reason;
    job.number = submission.job;
    writer_.own_job(job);
    return "";
}

std::vector<std::string> Slurm_engine::sbatch_arguments(const Scheduler_job& job) const {
    std::string array = "--array=0-" + std::to_string(job.tasks - 1);
    if (set_.at_once > 0)
        array += '%' + std::to_string(set_.at_once);
    std::vector<std::string> arguments{"--parsable",        "--job-name=runs", "--output=/dev/null",
                                       "--error=/dev/null", "--chdir=/",       array};
    add_option(arguments, "partition", set_.slurm.partition);
    add_option(arguments, "time", set_.slurm.time);
    add_option(arguments, "mem", set_.slurm.memory);
    std::istringstream options(set_.slurm.options);
    for (std::string option; options >> option;)
        arguments.push_back(option);
    for (const std::string& argument :
         {platform::host_path(worker_script(folder_)), platform::host_path(folder_), std::string("task"),
          job.list, std::to_string(job.per_task)})
        arguments.push_back(argument);
    return arguments;
}

void Slurm_engine::read_list() {
    list_.clear();
    if (!journal_.job())
        return;
    std::istringstream lines(
        platform::read_file(folder_ + '\\' + journal_.job()->list, largest_list).contents);
    for (std::size_t run = 0; lines >> run;)
        if (run < journal_.runs().size())
            list_.push_back(run);
}

bool Slurm_engine::poll() {
    writer_.flush();
    journal_.update();
    if (!journal_.job())
        return false;
    if (std::chrono::steady_clock::now() < next_question_)
        return true;
    next_question_ = std::chrono::steady_clock::now() + pause_;
    auto tasks = slurm::ask_for(journal_.job()->number);
    trouble_ = tasks ? writer_.state().reason : no_answer;
    if (is_stopping_)
        cancel();
    if (tasks)
        settle(std::move(*tasks));
    journal_.update();
    return journal_.job().has_value();
}

// What a task has noted in its last moments may be seen later than its end: only what was over before counts.
void Slurm_engine::settle(slurm::Tasks tasks) {
    std::set<std::size_t> over;
    bool has_asked_books = false;
    for (std::size_t task = 0; task < journal_.job()->tasks; ++task) {
        const auto found = tasks.find(task);
        if (found != tasks.end() && !found->second.is_over)
            continue;
        over.insert(task);
        if (!over_.contains(task) || is_settled(task))
            continue;
        if (found == tasks.end() && !std::exchange(has_asked_books, true))
            tasks.merge(slurm::ask_books_for(journal_.job()->number));
        settle_task(task, tasks[task].state);
    }
    const bool is_over = over.size() == journal_.job()->tasks;
    if (is_over && over_ == over && writer_.state().ok())
        writer_.close_job(journal_.job()->number);
    over_ = std::move(over);
}

std::vector<std::size_t> Slurm_engine::runs_of(std::size_t task) const {
    const std::size_t per_task = journal_.job()->per_task;
    const std::size_t begin = std::min(list_.size(), task * per_task);
    const std::size_t end = std::min(list_.size(), begin + per_task);
    return {list_.begin() + static_cast<std::ptrdiff_t>(begin),
            list_.begin() + static_cast<std::ptrdiff_t>(end)};
}

bool Slurm_engine::is_settled(std::size_t task) const {
    const std::vector<std::size_t> runs = runs_of(task);
    return std::all_of(runs.begin(), runs.end(),
                       [&](std::size_t run) { return journal_.runs().at(run).has_ended(); });
}

void Slurm_engine::settle_task(std::size_t task, const std::string& state) {
    const bool is_cancelled = journal_.job()->is_cancelled;
    for (const std::size_t run : runs_of(task)) {
        const Run_record& known = journal_.runs().at(run);
        if (known.has_ended() || (is_cancelled && known.outcome == Run_record::Outcome::waiting))
            continue;
        Run_record record;
        record.outcome = is_cancelled ? Run_record::Outcome::stopped : Run_record::Outcome::lost;
        writer_.end(run, record, state.empty() ? "gone" : state);
    }
}

void Slurm_engine::stop() {
    is_stopping_ = true;
    journal_.update();
    cancel();
    next_question_ = {};
}

void Slurm_engine::cancel() {
    if (!journal_.job() || journal_.job()->is_cancelled || cancel_job_of(journal_).empty())
        return;
    const std::string& number = journal_.job()->number;
    trouble_ = "The scheduler does not cancel the job " + number + " yet. It is asked again; \"scancel " +
               number + "\" does the same by hand.";
}

std::string cancel_job_of(const Run_journal& journal) {
    std::string reason = slurm::cancel(journal.job()->number);
    if (reason.empty())
        Journal_writer(journal.folder()).cancel_job(journal.job()->number);
    return reason;
}
