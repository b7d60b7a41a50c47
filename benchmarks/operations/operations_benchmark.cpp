// Operations on many scenarios, each beside the bare cost of the files that it reads and writes: generating
// 10,000 scenarios from a template, as many from a table of 20 columns, putting 2,000 aside, resetting 1,000,
// and showing the settings of 1,000 side by side.
#include "model/tilverra_scenario.h"
#include "operations/carbon_sequestration_count.h"
#include "operations/scenario_generator.h"
#include "operations/scenario_reset.h"
#include "operations/scenario_table.h"
#include "operations/settings_plan.h"
#include "platform/files.h"
#include "records/vv_file.h"
#include "support/inputs.h"
#include "table_csv/csv_table_reader.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <fstream>
#include <sstream>
#include <sys/resource.h>

namespace {

constexpr int generated = 10'000;
constexpr int reset = 1'000;
constexpr int event_count = 10;

std::string folder() {
    return input_name("operations");
}

std::string template_name() {
    return folder() + "\\study\\Scenarios\\base.tvn";
}

std::string numbered(const std::string& below, int number) {
    char name[16];
    std::snprintf(name, sizeof name, "%05d.tvn", number);
    return folder() + below + name;
}

bool write(const std::string& name, const std::string& text = "") {
    return platform::write_file(name, text, platform::Durability::quick).ok();
}

// A scenario with every key and ten events.
std::string scenario_text() {
    Tilverra_scenario scenario;
    scenario.description = "Winter wheat, deficit irrigation";
    for (int layer = 1; layer <= soil_layers; ++layer) {
        scenario.H2O[layer] = 0.2F + static_cast<float>(layer) / 97;
        scenario.NO3[layer] = 12 / static_cast<float>(layer);
    }
    for (int i = 0; i < event_count; ++i) {
        auto* event = new Common_event("245154" + std::to_string(i) + ".0000000000 (default)");
        event->operation_filename.set("Database\\Management\\furrow.op");
        event->period->repeat_event = i % 2 == 0;
        scenario.events.append(event);
    }
    TESK::VV_file(template_name().c_str()).set(scenario);
    return platform::read_file(template_name()).contents;
}

// A project whose database has 10, 10, 10, 5 and 2 files of the five kinds.
void make_project() {
    platform::remove_tree(folder());
    platform::make_folders(folder() + "\\study\\Scenarios");
    write(folder() + "\\study.tvp");
    struct Kind {
        const char* name;
        const char* extension;
        int count;
    };
    for (const Kind& kind : {Kind{"Soil", "sil", 10}, Kind{"Weather", "XEB", 10}, Kind{"Rotation", "rot", 10},
                             Kind{"recalibration", "rcl", 5}, Kind{"water_table", "wtb", 2}}) {
        const std::string files = folder() + "\\study\\Database\\" + kind.name;
        platform::make_folders(files);
        for (int i = 0; i < kind.count; ++i)
            write(files + "\\" + kind.name + std::to_string(i) + "." + kind.extension);
    }
}

// The files that the operations are measured beside, and begin with, are made anew each time.
void make_targets(const std::string& below, int count, const std::string& text) {
    platform::remove_tree(folder() + below);
    platform::make_folders(folder() + below);
    for (int i = 1; i <= count && !text.empty(); ++i)
        write(numbered(below, i), text);
}

double peak_megabytes() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_maxrss) / 1024;
}

void generate(benchmark::State& state) {
    make_project();
    scenario_text();
    Tilverra_project_editor_parameters project("model.exe");
    project.template_scenario.set("Scenarios\\base.tvn");
    Tilverra_project_directory directory(TESK::File_name((folder() + "\\study.tvp").c_str()), 0);
    std::ostringstream trace;
    double peak_after_a_tenth = 0;
    for (auto _ : state) {
        state.PauseTiming();
        make_targets("\\study\\Generated_scenarios", 0, "");
        int count = 0;
        state.ResumeTiming();
        generate_scenarios(project, directory, nullptr, trace, [&](const std::string&) {
            if (++count == generated / 10)
                peak_after_a_tenth = peak_megabytes();
            return true;
        });
        if (count != generated)
            state.SkipWithError("wrong number of scenarios");
    }
    state.counters["growth_MB"] = peak_megabytes() - peak_after_a_tenth;
}
BENCHMARK(generate)->Unit(benchmark::kMillisecond)->UseRealTime();

std::string table_text() {
    std::string text = "name,description";
    for (int layer = 1; layer <= 9; ++layer)
        text += ",H2O." + std::to_string(layer) + ",NO3." + std::to_string(layer);
    text += '\n';
    for (int row = 0; row < generated; ++row) {
        text += "plot " + std::to_string(row) + ",\"Wheat, plot " + std::to_string(row) + '"';
        for (int layer = 1; layer <= 9; ++layer)
            text += ",0." + std::to_string(1000 + (row * 7 + layer * 13) % 3000) + ',' +
                    std::to_string((row + layer) % 300);
        text += '\n';
    }
    return text;
}

// A table read, checked, and written as scenarios.
void generate_from_table(benchmark::State& state) {
    make_project();
    scenario_text();
    const std::string text = table_text();
    for (auto _ : state) {
        state.PauseTiming();
        make_targets("\\study\\Generated_scenarios", 0, "");
        state.ResumeTiming();
        Scenario_table family(Csv_table_reader().read(text), TESK::File_name(template_name().c_str()),
                              TESK::Directory_name(folder() + "\\study\\Generated_scenarios"));
        if (family.write(nullptr, {}).done != generated)
            state.SkipWithError(describe_table_check(family.check()).c_str());
    }
}
BENCHMARK(generate_from_table)->Unit(benchmark::kMillisecond)->UseRealTime();

void put_2000_aside(benchmark::State& state) {
    constexpr int put_aside = 2'000;
    make_project();
    const std::string text = scenario_text();
    make_targets("\\study\\Scenarios\\", put_aside, text);
    std::vector<std::string> names;
    for (int i = 1; i <= put_aside; ++i)
        names.push_back(numbered("\\study\\Scenarios\\", i));
    for (auto _ : state) {
        Change_backups backups(TESK::Directory_name(folder() + "\\study"));
        if (!backups.put_copies_aside("reset", names, {}).ok())
            state.SkipWithError("cannot put aside");
    }
}
BENCHMARK(put_2000_aside)->Unit(benchmark::kMillisecond)->UseRealTime();

// The same bytes into as many new files.
void write_as_many(benchmark::State& state) {
    make_project();
    const std::string text = scenario_text();
    for (auto _ : state) {
        state.PauseTiming();
        make_targets("\\written", 0, "");
        state.ResumeTiming();
        for (int i = 1; i <= generated; ++i)
            write(numbered("\\written\\", i), text);
    }
}
BENCHMARK(write_as_many)->Unit(benchmark::kMillisecond)->UseRealTime();

// The same without what makes a file appear whole or not at all.
void write_as_many_by_streams(benchmark::State& state) {
    make_project();
    const std::string text = scenario_text();
    for (auto _ : state) {
        state.PauseTiming();
        make_targets("\\written", 0, "");
        state.ResumeTiming();
        for (int i = 1; i <= generated; ++i) {
            char name[16];
            std::snprintf(name, sizeof name, "%05d.tvn", i);
            std::ofstream(input_path("operations/written/") + name, std::ios::binary) << text;
        }
    }
}
BENCHMARK(write_as_many_by_streams)->Unit(benchmark::kMillisecond)->UseRealTime();

void read_20000(benchmark::State& state) {
    make_project();
    scenario_text();
    for (auto _ : state)
        for (int i = 0; i < 2 * generated; ++i) {
            Tilverra_scenario scenario;
            TESK::VV_file(template_name().c_str()).get(scenario);
        }
}
BENCHMARK(read_20000)->Unit(benchmark::kMillisecond)->UseRealTime();

void reset_1000(benchmark::State& state) {
    make_project();
    const std::string text = scenario_text();
    make_targets("\\reset\\", reset, text);
    Ticked_reset_boxes ticked;
    ticked.set();
    const TESK::File_name source(template_name().c_str());
    for (auto _ : state)
        for (int i = 1; i <= reset; ++i)
            if (!reset_scenario(source, TESK::File_name(numbered("\\reset\\", i).c_str()), ticked).ok())
                state.SkipWithError("cannot reset");
}
BENCHMARK(reset_1000)->Unit(benchmark::kMillisecond)->UseRealTime();

// Two reads and a flushed write for each of as many.
void read_twice_and_write_1000(benchmark::State& state) {
    make_project();
    const std::string text = scenario_text();
    make_targets("\\reset\\", reset, text);
    for (auto _ : state)
        for (int i = 1; i <= reset; ++i) {
            const std::string name = numbered("\\reset\\", i);
            Tilverra_scenario source;
            TESK::VV_file(template_name().c_str()).get(source);
            Tilverra_scenario target;
            TESK::VV_file file(name.c_str());
            file.get(target);
            file.set(target);
        }
}
BENCHMARK(read_twice_and_write_1000)->Unit(benchmark::kMillisecond)->UseRealTime();

// The names of as many scenarios as are reset, each of them one of a family: some values are its own.
const std::vector<std::string>& make_settings_targets() {
    static std::vector<std::string> names;
    if (!names.empty() && platform::is_file(names.back()))
        return names;
    names.clear();
    make_project();
    scenario_text();
    make_targets("\\settings", 0, "");
    Record_settings settings(TESK::File_name(template_name().c_str()));
    for (int i = 1; i <= reset; ++i) {
        for (int layer = 1; layer <= 9; ++layer)
            settings.set("H2O." + std::to_string(layer), "0." + std::to_string(1000 + i * 7 % 3000 + layer));
        settings.set("scenario.description", "Wheat, plot " + std::to_string(i));
        names.push_back(numbered("\\settings\\", i));
        write(names.back(), settings.text());
    }
    return names;
}

// As the page of settings opens them.
void open_settings_of_1000(benchmark::State& state) {
    const std::vector<std::string>& names = make_settings_targets();
    Settings_grid grid;
    for (auto _ : state)
        grid.read(names, {});
    state.counters["keys"] = static_cast<double>(grid.order().size());
}
BENCHMARK(open_settings_of_1000)->Unit(benchmark::kMillisecond)->UseRealTime();

void read_1000(benchmark::State& state) {
    const std::vector<std::string>& names = make_settings_targets();
    for (auto _ : state)
        for (const std::string& name : names) {
            Tilverra_scenario scenario;
            TESK::VV_file(name.c_str()).get(scenario);
        }
}
BENCHMARK(read_1000)->Unit(benchmark::kMillisecond)->UseRealTime();

void settings_of_1000_that_differ(benchmark::State& state) {
    Settings_grid grid;
    grid.read(make_settings_targets(), {});
    for (auto _ : state)
        benchmark::DoNotOptimize(grid.find_rows("", true));
}
BENCHMARK(settings_of_1000_that_differ)->Unit(benchmark::kMillisecond)->UseRealTime();

void settings_of_1000_filtered_by_words(benchmark::State& state) {
    Settings_grid grid;
    grid.read(make_settings_targets(), {});
    for (auto _ : state)
        benchmark::DoNotOptimize(grid.find_rows("plot 99", false));
}
BENCHMARK(settings_of_1000_filtered_by_words)->Unit(benchmark::kMillisecond)->UseRealTime();

// One value for all, and each key in turn.
void setting_given_to_1000(benchmark::State& state) {
    Settings_grid grid;
    grid.read(make_settings_targets(), {});
    Settings_plan plan(grid);
    std::size_t row = 0;
    while (grid.rows()[row].section != "salt" || grid.rows()[row].key != "1")
        ++row;
    int value = 0;
    for (auto _ : state)
        for (std::size_t record = 0; record < grid.files().size(); ++record)
            if (!plan.want(record, row, "0." + std::to_string(++value % 90 + 10)).taken)
                state.SkipWithError("refused");
}
BENCHMARK(setting_given_to_1000)->Unit(benchmark::kMillisecond)->UseRealTime();

// The longest way to a count: the number of animals wraps, and no number of plots is left out.
void count_at_worst(benchmark::State& state) {
    Carbon_sequestration_optimization_parameters parameters;
    parameters.max_stocking_rate = 32767;
    parameters.step_stocking_rate = 1;
    parameters.max_plots = 32767;
    parameters.max_duration = 32767;
    parameters.max_recovery_days = 32767;
    for (auto _ : state)
        benchmark::DoNotOptimize(count_carbon_sequestration_scenarios(parameters));
}
BENCHMARK(count_at_worst)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    platform::remove_tree(folder());
}
