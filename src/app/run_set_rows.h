// The rows of the page of runs: the run sets of a project, and the runs of one of them.
#pragma once

#include "runs/run_engine.h"
#include "runs/run_journal.h"
#include "runs/run_progress.h"
#include "toolkit/descriptor_watch.h"
#include "toolkit/table.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

// A run set as the page knows it. Its files are read when it is first looked at.
class Known_run_set {
public:
    explicit Known_run_set(std::string folder) : folder_(std::move(folder)) {}

    const std::string& folder() const { return folder_; }
    // Null for a folder that holds no set.
    const Run_set* set();
    Run_journal* journal();
    // Whether there is one, and its journal could be read when it was last looked at.
    bool is_readable();
    // Whether anybody has it run who can be asked to stop, as of the last refresh().
    bool is_at_work();
    // Whether it was handed out as a list of command lines: who has taken that is out of sight.
    bool is_handed_out();
    // Either of them.
    bool may_change();
    Run_progress progress();
    // Reads what is new, and asks whether whoever had it run is still there. True when anything changed; then
    // journal()->changed() tells which runs.
    bool refresh();
    // When it was last taken on, by the user's clock; the name of its folder before that.
    std::string time();

    // What has the set run, as long as that is this program.
    std::unique_ptr<Run_engine> engine;
    // Tells that there is news of the engine; null while there is none.
    std::unique_ptr<TDescriptor_watch> watch;

private:
    void read();

    std::string folder_;
    bool is_read_ = false;
    bool is_at_work_ = false;
    std::optional<Run_set> set_;
    std::unique_ptr<Run_journal> journal_;
};

class Run_set_rows : public Table_rows {
public:
    static std::vector<Table_column> columns();

    int count() const override { return static_cast<int>(sets.size()); }
    Table_cell cell(int row, int column) const override;

    std::vector<std::unique_ptr<Known_run_set>> sets; // the newest first
};

// The runs of one set, in an order that the user chooses.
class Run_rows : public Table_rows {
public:
    static std::vector<Table_column> columns();

    // Null shows nothing.
    void show(Known_run_set* set);
    int count() const override { return static_cast<int>(order_.size()); }
    Table_cell cell(int row, int column) const override;
    std::size_t run_of(int row) const { return order_[static_cast<std::size_t>(row)]; }
    int row_of(std::size_t run) const { return static_cast<int>(places_[run]); }
    void sort(int column, bool down);

private:
    std::string scenario_name(std::size_t run) const;

    Known_run_set* set_ = nullptr;
    std::vector<std::size_t> order_;  // runs, by rows
    std::vector<std::size_t> places_; // rows, by runs
};

// The moment on the user's clock, "2026-03-01 14:00:00"; "" for none.
std::string local_time_text(Moment moment);
// "0.4 s", "38 s", "2 min 5 s", "1 h 12 min".
std::string duration_text(double seconds);
