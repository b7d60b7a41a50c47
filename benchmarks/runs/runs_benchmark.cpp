// 2,000 runs of a program that ends at once, two at a time, beside xargs and GNU parallel on the same command
// lines; reading a journal of 100,000 ends; the states of 10,000 scenarios. Repeat it by
// scripts/benchmark.sh runs_benchmark. Aims: not more than 1.3 times as long as xargs and a third of GNU
// parallel; the journal in less than 50 ms.

#include "runs/local_engine.h"
#include "runs/run_folders.h"
#include "runs/run_progress.h"
#include "runs/scenario_states.h"
#include "support/temporary_drives.h"

#include <benchmark/benchmark.h>
#include <cstdlib>
#include <fstream>
#include <string>
#include <unistd.h>

namespace {

constexpr std::size_t run_count = 2000;
constexpr std::size_t end_count = 100000;
constexpr std::size_t scenario_count = 10000;

std::string scenario_name(std::size_t number) {
    return "C:\\p\\Scenarios\\scenario " + std::to_string(number) + ".tvn";
}

class Project {
public:
    explicit Project(std::size_t scenarios) {
        std::filesystem::create_directories(drives.host("p/Scenarios"));
        set.project_file = "C:\\p.tvp";
        set.folder = "C:\\p";
        set.model = "Z:\\bin\\true";
        set.at_once = 2;
        for (std::size_t i = 0; i < scenarios; ++i)
            set.scenarios.push_back(scenario_name(i));
    }

    Temporary_drives drives;
    Run_set set;
};

double resident_kilobytes() {
    std::ifstream file("/proc/self/statm");
    double size = 0;
    double resident = 0;
    file >> size >> resident;
    return resident * static_cast<double>(sysconf(_SC_PAGESIZE)) / 1024;
}

void runs_by_local_engine(benchmark::State& state) {
    const auto count = static_cast<std::size_t>(state.range(0));
    const Project project(count);
    double growth = 0;
    for (auto _ : state) {
        state.PauseTiming();
        const std::string folder = make_run_set("C:\\p\\Runs", project.set).folder;
        state.ResumeTiming();
        Local_engine engine(folder, project.set);
        if (!engine.start().empty())
            state.SkipWithError("cannot start");
        const double before = resident_kilobytes();
        while (engine.poll())
            engine.wait(std::chrono::milliseconds(1000));
        growth = resident_kilobytes() - before;
    }
    state.counters["kB_grown"] = growth;
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(count));
}
BENCHMARK(runs_by_local_engine)
    ->Arg(run_count)
    ->Arg(5 * run_count)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

void runs_by_tool(benchmark::State& state, const char* tool, const std::string& command,
                  const std::string& head) {
    if (std::system((std::string("command -v ") + tool + " >/dev/null").c_str()) != 0) {
        state.SkipWithError("is not installed");
        return;
    }
    const Project project(0);
    std::string lines;
    for (std::size_t i = 0; i < run_count; ++i)
        lines += head + "'C:\\p.tvp' '" + scenario_name(i) + "'\n";
    project.drives.write("lines", lines);
    for (auto _ : state)
        if (std::system((command + " <" + project.drives.host("lines") + " >/dev/null 2>&1").c_str()) != 0)
            state.SkipWithError("has failed");
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(run_count));
}
BENCHMARK_CAPTURE(runs_by_tool, xargs, "xargs", "xargs -P 2 -L 1 /bin/true", "")
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(runs_by_tool, parallel, "parallel", "parallel -j 2", "/bin/true ")
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

void read_journal(benchmark::State& state) {
    const Project project(0);
    {
        Journal_writer writer("C:\\p");
        Run_record record;
        record.outcome = Run_record::Outcome::exited;
        record.left_output = true;
        record.seconds = 12.345;
        for (std::size_t run = 0; run < end_count; ++run) {
            writer.start(run);
            writer.end(run, record);
        }
    }
    for (auto _ : state) {
        Run_journal journal("C:\\p", end_count);
        journal.update();
        benchmark::DoNotOptimize(progress_of(journal, false, 0).done);
    }
}
BENCHMARK(read_journal)->Unit(benchmark::kMillisecond);

// The first look at a project whose scenarios are all done, or (1) every further one.
void states_of_scenarios(benchmark::State& state) {
    const bool is_further = state.range(0) != 0;
    const Project project(scenario_count);
    const std::string folder = make_run_set("C:\\p\\Runs", project.set).folder;
    Journal_writer writer(folder);
    Run_record record;
    record.outcome = Run_record::Outcome::exited;
    record.left_output = true;
    for (std::size_t run = 0; run < scenario_count; ++run) {
        const std::string stem = "p/Scenarios/scenario " + std::to_string(run);
        project.drives.write(stem + ".tvn", "[parameter_filenames]\r\nsoil=Database\\Soil\\loam.sil\r\n"
                                            "weather_database=Database\\Weather\\valley.XEB\r\n");
        project.drives.write(stem + "/Output/season.xeb", "");
        writer.start(run);
        writer.end(run, record);
    }
    Scenario_states states("C:\\p", "C:\\p\\Runs");
    const auto look = [&](Scenario_states& looking) {
        looking.refresh();
        std::size_t done = 0;
        for (const std::string& scenario : project.set.scenarios)
            done += looking.status_of(scenario).state == Scenario_state::done ? 1 : 0;
        if (done != scenario_count)
            state.SkipWithError("not all are done");
    };
    look(states);
    for (auto _ : state) {
        Scenario_states fresh("C:\\p", "C:\\p\\Runs");
        look(is_further ? states : fresh);
    }
}
BENCHMARK(states_of_scenarios)->Arg(0)->Arg(1)->Iterations(5)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
