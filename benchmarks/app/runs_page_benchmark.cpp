// The table of a set of 10,000 runs, drawn: a run that begins or ends, which must cost one line, a page
// that is scrolled, and an order by states.
#include "app/run_set_rows.h"
#include "desktop_qt/qt_desktop.h"
#include "platform/files.h"
#include "runs/run_folders.h"
#include "support/inputs.h"

#include <benchmark/benchmark.h>

#include <QtWidgets/QApplication>

namespace {

constexpr std::size_t runs = 10'000;
constexpr int width = 900;
constexpr int height = 700;
constexpr int lines_on_view = 25;

// A set of which every other run is done.
std::string make_set() {
    const std::string folder = input_name("runs_page");
    platform::remove_tree(folder);
    Run_set set;
    set.project_file = folder + ".tvp";
    set.folder = folder;
    set.model = folder + "\\model.exe";
    for (std::size_t run = 0; run < runs; ++run)
        set.scenarios.push_back(folder + "\\Scenarios\\plot " + std::to_string(run) + ".tvn");
    const std::string made = make_run_set(folder + "\\Runs", set).folder;
    Journal_writer writer(made);
    claim_set(made, runs, writer);
    Run_record done;
    done.outcome = Run_record::Outcome::exited;
    done.left_output = true;
    for (std::size_t run = 0; run < runs; run += 2)
        writer.end(run, done);
    return made;
}

class Runs_of_a_set : public benchmark::Fixture {
public:
    void SetUp(const benchmark::State&) override {
        static const std::string folder = make_set();
        desktop_ = std::make_unique<Qt_desktop>();
        scope_ = std::make_unique<Desktop_scope>(*desktop_);
        set_ = std::make_unique<Known_run_set>(folder);
        rows_.show(set_.get());
        form_ = std::make_unique<TForm>("form");
        table_ = &form_->add<TTable>("table");
        table_->set_columns(Run_rows::columns());
        table_->set_rows(&rows_);
        form_->set_bounds({0, 0, width, height});
        form_->show();
        paint();
    }
    void TearDown(const benchmark::State&) override {
        form_.reset();
        set_.reset();
        scope_.reset();
        desktop_.reset();
    }

protected:
    static void paint() { QCoreApplication::processEvents(); }

    std::unique_ptr<Qt_desktop> desktop_;
    std::unique_ptr<Desktop_scope> scope_;
    std::unique_ptr<Known_run_set> set_;
    Run_rows rows_;
    std::unique_ptr<TForm> form_;
    TTable* table_ = nullptr;
};

BENCHMARK_F(Runs_of_a_set, one_run_begins_or_ends)(benchmark::State& state) {
    Journal_writer writer(set_->folder());
    std::size_t run = 0;
    for (auto _ : state) {
        writer.start(run = (run + 1) % lines_on_view);
        set_->refresh();
        for (const std::size_t changed : set_->journal()->changed())
            table_->row_changed(rows_.row_of(changed));
        paint();
    }
}

BENCHMARK_F(Runs_of_a_set, a_page_is_scrolled)(benchmark::State& state) {
    int row = 0;
    for (auto _ : state) {
        table_->set_cursor(row = (row + lines_on_view) % static_cast<int>(runs), 0);
        paint();
    }
}

BENCHMARK_F(Runs_of_a_set, sorted_by_state)(benchmark::State& state) {
    bool down = false;
    for (auto _ : state) {
        rows_.sort(0, down = !down);
        table_->rows_changed();
        paint();
    }
}

} // namespace
