#include "runs/list_engine.h"

#include "runs/run_journal.h"
#include "runs/worker_files.h"

std::string List_engine::start() {
    Journal_writer writer(folder_);
    std::string reason = reason_not_claimed(folder_, set_.scenarios.size(), writer);
    if (!reason.empty())
        return reason;
    Run_journal journal(folder_, set_.scenarios.size());
    journal.update();
    reason = write_worker_files(folder_, set_);
    const std::vector<std::size_t> left = journal.left();
    if (reason.empty())
        reason = write_run_list(folder_, left);
    if (reason.empty())
        writer.own_job({Scheduler_job::list_number, left.size(), 1, "list.txt"});
    writer.leave(reason.empty() ? "submitted" : "refused");
    return reason;
}
