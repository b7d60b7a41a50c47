// A whole scenario: every declared key and ten events, half of them repeating.
#include "model/tilverra_scenario.h"
#include "records/vv_file.h"
#include "support/inputs.h"

#include <benchmark/benchmark.h>

namespace {

constexpr int event_count = 10;

void fill(Tilverra_scenario& scenario) {
    scenario.description = "Winter wheat, deficit irrigation";
    for (int layer = 1; layer <= soil_layers; ++layer) {
        const auto depth = static_cast<float>(layer);
        scenario.H2O[layer] = 0.2F + depth / 97;
        scenario.NO3[layer] = 12 / depth;
        scenario.NH4[layer] = 7 / depth;
    }
    for (int i = 0; i < event_count; ++i) {
        auto* event = new Common_event("245154" + std::to_string(i) + ".0000000000 (default)");
        event->operation_type = "IRRIGATION";
        event->operation_filename.set("Database\\Management\\furrow.op");
        if (i % 2 == 0)
            event->begin_sync.set_date(TESK::Date(std::int32_t{1998100 + i}));
        else
            event->begin_sync.mode = Synchronization_mode::after_normal_crop_growth_stage;
        event->period->repeat_event = i % 2 == 0;
        scenario.events.append(event);
    }
}

bool write(Tilverra_scenario& scenario, const std::string& name) {
    TESK::VV_file file(name.c_str());
    file.set_durability(platform::Durability::quick);
    return file.set(scenario) && file.get_last_write().ok();
}

void make_scenario(benchmark::State& state) {
    for (auto _ : state)
        benchmark::DoNotOptimize(std::make_unique<Tilverra_scenario>());
}
BENCHMARK(make_scenario)->Unit(benchmark::kMicrosecond);

void read_scenario(benchmark::State& state) {
    const std::string name = input_name("whole_scenario.tvn");
    Tilverra_scenario source;
    fill(source);
    if (!write(source, name))
        state.SkipWithError("cannot write");
    for (auto _ : state) {
        Tilverra_scenario scenario;
        benchmark::DoNotOptimize(TESK::VV_file(name.c_str()).get(scenario));
    }
}
BENCHMARK(read_scenario)->Unit(benchmark::kMicrosecond);

void write_scenario(benchmark::State& state) {
    const std::string name = input_name("written_scenario.tvn");
    Tilverra_scenario scenario;
    fill(scenario);
    for (auto _ : state)
        if (!write(scenario, name))
            state.SkipWithError("cannot write");
}
BENCHMARK(write_scenario)->Unit(benchmark::kMicrosecond);

// What a file costs that tells of more events than it has.
void read_hostile_count(benchmark::State& state) {
    const std::string name = input_name("hostile_count.tvn");
    const std::string text = "[scenario]\r\nevent:count=32767\r\n";
    if (!platform::write_file(name, text, platform::Durability::quick).ok())
        state.SkipWithError("cannot write");
    for (auto _ : state) {
        Tilverra_scenario scenario;
        benchmark::DoNotOptimize(TESK::VV_file(name.c_str()).get(scenario));
    }
}
BENCHMARK(read_hostile_count)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
