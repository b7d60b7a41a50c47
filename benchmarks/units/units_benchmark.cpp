// The labels of unit codes: rendering them, reading those that are known, and the slow road of those that are
// in no table.
#include "units/units_clad.h"

#include <benchmark/benchmark.h>

#include <string>

namespace {

void render(benchmark::State& state, std::uint32_t code) {
    const TESK::Units_clad units(code);
    std::string description;
    std::string abbreviation;
    for (auto _ : state)
        benchmark::DoNotOptimize(units.compose_labels(description, abbreviation));
}

void parse(benchmark::State& state, const char* label) {
    for (auto _ : state)
        benchmark::DoNotOptimize(TESK::Units_clad::parse_label(label));
}

BENCHMARK_CAPTURE(render, plain, 0x0003);
BENCHMARK_CAPTURE(render, two_halves, 0x2A820603);
BENCHMARK_CAPTURE(render, english, 0xB50A);
BENCHMARK_CAPTURE(parse, plain, "%");
BENCHMARK_CAPTURE(parse, two_halves, "kg/ha");
BENCHMARK_CAPTURE(parse, english, "dry bushel(CU)");
BENCHMARK_CAPTURE(parse, time_step, "30 minute");
BENCHMARK_CAPTURE(parse, hexadecimal, "2A820603");
BENCHMARK_CAPTURE(parse, unknown, "no such unit");
BENCHMARK_CAPTURE(parse, unknown_pair, "yottasievert?/yoctosievert?");

} // namespace

BENCHMARK_MAIN();
