// Families of scenarios: generating many from a template, beside writing the same bytes into as many new
// files, and resetting many, beside two reads and a write of each.
#include "app/scenario_generator.h"
#include "app/scenario_reset.h"
#include "platform/file_writer.h"
#include "platform/files.h"
#include "records/vv_file.h"
#include "support/inputs.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace {

constexpr int generated_count = 10'000;
constexpr int reset_count = 1'000;

// Where the project lies; found once, since the operations move the current folder.
const std::string& host_folder() {
    static const std::string folder = std::filesystem::absolute(input_path("families"));
    return folder;
}

std::string host(const std::string& file) {
    return host_folder() + '/' + file;
}

std::string name_of(const std::string& file) {
    return platform::name_from_host_path(host(file));
}

class Quiet_host : public Program_host {
public:
    std::string project_file() const override { return name_of("study.tvp"); }
    bool save() override { return true; }
    bool run(const std::string&, const std::string&, const std::string&, const std::string&, bool,
             int) override {
        return true;
    }
    bool was_cancelled() const override { return false; }
};

void write(const std::string& path, const std::string& text) {
    std::filesystem::create_directories(std::filesystem::path(path).parent_path());
    std::ofstream(path, std::ios::binary) << text;
}

// A project with 10 soils, 10 weathers, 10 rotations, 5 recalibrations and 2 water tables, and a template
// that is a whole scenario.
void make_project() {
    const std::string folder = host_folder();
    std::filesystem::remove_all(folder);
    write(folder + "/study.tvp", "[project]\r\n");
    Tilverra_scenario scenario;
    scenario.description = "Winter wheat, deficit irrigation";
    std::filesystem::create_directories(folder + "/study/Scenarios");
    TESK::VV_file(name_of("study/Scenarios/base.tvn").c_str()).set(scenario);
    const std::string database = folder + "/study/Database/";
    for (int i = 0; i < 10; ++i) {
        const std::string number = std::to_string(i);
        write(database + "Soil/soil " + number + ".sil", "");
        write(database + "Weather/weather " + number + ".XEB", "");
        write(database + "Rotation/rotation " + number + ".rot", "");
        if (i < 5)
            write(database + "recalibration/r" + number + ".rcl", "");
        if (i < 2)
            write(database + "water_table/w" + number + ".wtb", "");
    }
}

void clear_generated() {
    std::filesystem::remove_all(host("study/Generated_scenarios"));
}

void generate_10000(benchmark::State& state) {
    make_project();
    Tilverra_project_editor_parameters record("");
    record.template_scenario = "Scenarios\\base.tvn";
    Quiet_host host;
    Project_workspace workspace(record, host, Tilverra_project_type::tilverra);
    workspace.ensure_project_directory();
    std::ostringstream trace;
    for (auto _ : state) {
        state.PauseTiming();
        clear_generated();
        state.ResumeTiming();
        Scenario_generator generator(
            workspace, [](const std::string&) { return true; }, trace);
        if (generator.generate() != generated_count)
            state.SkipWithError("not all were generated");
    }
}
BENCHMARK(generate_10000)->Unit(benchmark::kMillisecond)->Iterations(3)->UseRealTime();

// What the host takes for the same bytes.
void write_10000_files(benchmark::State& state) {
    std::ostringstream text;
    text << std::ifstream(host("study/Generated_scenarios/00001.tvn")).rdbuf();
    const std::string contents = text.str();
    for (auto _ : state) {
        state.PauseTiming();
        clear_generated();
        std::filesystem::create_directories(host("study/Generated_scenarios"));
        state.ResumeTiming();
        for (int i = 1; i <= generated_count; ++i)
            std::ofstream(host("study/Generated_scenarios/") + std::to_string(i), std::ios::binary)
                << contents;
    }
}
BENCHMARK(write_10000_files)->Unit(benchmark::kMillisecond)->Iterations(3)->UseRealTime();

void read_20000(benchmark::State& state) {
    const std::string name = name_of("study/Scenarios/base.tvn");
    for (auto _ : state) {
        for (int i = 0; i < 2 * generated_count; ++i) {
            Tilverra_scenario scenario;
            benchmark::DoNotOptimize(TESK::VV_file(name.c_str()).get(scenario));
        }
    }
}
BENCHMARK(read_20000)->Unit(benchmark::kMillisecond)->Iterations(1)->UseRealTime();

std::string target_name(int i) {
    return name_of("study/Scenarios/target " + std::to_string(i) + ".tvn");
}

void make_targets() {
    make_project();
    const std::string base = name_of("study/Scenarios/base.tvn");
    for (int i = 0; i < reset_count; ++i)
        platform::copy_file(base, target_name(i));
}

void reset_1000(benchmark::State& state) {
    make_targets();
    std::array<bool, reset_box_count> ticked{};
    std::fill(ticked.begin(), ticked.end(), true);
    for (auto _ : state) {
        const Scenario_reset copy(TESK::File_name(name_of("study/Scenarios/base.tvn").c_str()), ticked);
        for (int i = 0; i < reset_count; ++i)
            copy.reset(TESK::File_name(target_name(i).c_str()));
    }
}
BENCHMARK(reset_1000)->Unit(benchmark::kMillisecond)->Iterations(3)->UseRealTime();

void read_twice_and_write_1000(benchmark::State& state) {
    make_targets();
    for (auto _ : state) {
        for (int i = 0; i < reset_count; ++i) {
            Tilverra_scenario source;
            Tilverra_scenario target;
            TESK::VV_file(name_of("study/Scenarios/base.tvn").c_str()).get(source);
            TESK::VV_file file(target_name(i).c_str());
            file.set_durability(platform::Durability::quick);
            file.get(target);
            file.set(target);
        }
    }
}
BENCHMARK(read_twice_and_write_1000)->Unit(benchmark::kMillisecond)->Iterations(3)->UseRealTime();

} // namespace

BENCHMARK_MAIN();
