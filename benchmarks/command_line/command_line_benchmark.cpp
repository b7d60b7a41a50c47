// The command line as a process: listing and checking 10,000 scenarios, beside bare reads of their records,
// and how long it takes to its first output, beside a program that does nothing.
#include "model/tilverra_scenario.h"
#include "platform/files.h"
#include "records/vv_file.h"
#include "support/inputs.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>

namespace {

constexpr int scenario_count = 10'000;
constexpr int event_count = 10;

std::string project_folder() {
    return input_name("command_line") + "\\study";
}

std::string scenario_name(int number) {
    char name[16];
    std::snprintf(name, sizeof name, "%05d.tvn", number);
    return project_folder() + "\\Scenarios\\" + name;
}

void write(const std::string& name, const std::string& text) {
    if (!platform::write_file(name, text, platform::Durability::quick).ok())
        std::abort();
}

// A project of scenarios that lack nothing, each with every key and ten events.
void make_project() {
    if (platform::is_file(scenario_name(scenario_count)))
        return;
    platform::make_folders(project_folder() + "\\Scenarios");
    for (const char* file : {"a.sil", "a.loc", "a.XEB", "a.op"})
        write(project_folder() + '\\' + file, "");
    write(project_folder() + ".tvp", "");
    Tilverra_scenario scenario;
    scenario.description = "Winter wheat, deficit irrigation";
    scenario.soil.set("a.sil");
    scenario.location.set("a.loc");
    scenario.weather_database.set("a.XEB");
    for (int i = 0; i < event_count; ++i) {
        auto* event = new Common_event("245154" + std::to_string(i) + ".0000000000 (default)");
        event->operation_filename.set("a.op");
        scenario.events.append(event);
    }
    TESK::VV_file(scenario_name(1).c_str()).set(scenario);
    const std::string text = platform::read_file(scenario_name(1)).contents;
    for (int number = 2; number <= scenario_count; ++number)
        write(scenario_name(number), text);
}

void read_as_many(benchmark::State& state) {
    make_project();
    for (auto _ : state) {
        for (int number = 1; number <= scenario_count; ++number) {
            Tilverra_scenario scenario;
            TESK::VV_file(scenario_name(number).c_str()).get(scenario);
            benchmark::DoNotOptimize(scenario.events.head());
        }
    }
}
BENCHMARK(read_as_many)->Unit(benchmark::kMillisecond)->UseRealTime();

// Runs the shell's command, whose exit code must be 0.
void run(benchmark::State& state, const std::string& command) {
    for (auto _ : state)
        if (std::system(command.c_str()) != 0)
            state.SkipWithError("the command failed");
}

std::string on_project(const std::string& command) {
    return std::string("'") + TVS_PROJECT + "' " + command + " '" + input_path("command_line/study") +
           "' >/dev/null";
}

void list_command(benchmark::State& state) {
    make_project();
    run(state, on_project("list"));
}
BENCHMARK(list_command)->Unit(benchmark::kMillisecond)->UseRealTime();

void check_command(benchmark::State& state) {
    make_project();
    run(state, on_project("check"));
}
BENCHMARK(check_command)->Unit(benchmark::kMillisecond)->UseRealTime();

void start_to_first_output(benchmark::State& state) {
    run(state, std::string("exec '") + TVS_PROJECT + "' --version >/dev/null");
}
BENCHMARK(start_to_first_output)->Unit(benchmark::kMillisecond)->UseRealTime();

void start_of_a_program_that_does_nothing(benchmark::State& state) {
    run(state, "exec /bin/true >/dev/null");
}
BENCHMARK(start_of_a_program_that_does_nothing)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace

BENCHMARK_MAIN();
