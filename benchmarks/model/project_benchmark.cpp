// A whole project record, with every declared key.
#include "model/project_editor_parameters.h"
#include "records/vv_file.h"
#include "support/inputs.h"

#include <benchmark/benchmark.h>

namespace {

constexpr const char* model_exe = "C:\\Suite\\Tilverra\\tilverra_5.exe";

bool write(Tilverra_project_editor_parameters& project, const std::string& name) {
    TESK::VV_file file(name.c_str());
    file.set_durability(platform::Durability::quick);
    return file.set(project) && file.get_last_write().ok();
}

void read_project(benchmark::State& state) {
    const std::string name = input_name("whole_project.tvp");
    Tilverra_project_editor_parameters source(model_exe);
    if (!write(source, name))
        state.SkipWithError("cannot write");
    for (auto _ : state) {
        Tilverra_project_editor_parameters project(model_exe);
        benchmark::DoNotOptimize(TESK::VV_file(name.c_str()).get(project));
    }
}
BENCHMARK(read_project)->Unit(benchmark::kMicrosecond);

void write_project(benchmark::State& state) {
    const std::string name = input_name("written_project.tvp");
    Tilverra_project_editor_parameters project(model_exe);
    for (auto _ : state)
        benchmark::DoNotOptimize(write(project, name));
}
BENCHMARK(write_project)->Unit(benchmark::kMicrosecond);

} // namespace

BENCHMARK_MAIN();
