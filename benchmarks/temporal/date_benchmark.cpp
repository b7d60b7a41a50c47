// How fast a simulation steps its date, and how fast a record's dates become text and back.
#include "temporal/date.h"

#include <benchmark/benchmark.h>

namespace {

void million_days_by_inc(benchmark::State& state) {
    for (auto _ : state) {
        TESK::Date date(1000001);
        for (int day = 0; day < 1'000'000; ++day)
            date.inc();
        benchmark::DoNotOptimize(date.date_num);
    }
}
BENCHMARK(million_days_by_inc)->Unit(benchmark::kMillisecond);

void largest_inc_days(benchmark::State& state) {
    for (auto _ : state) {
        TESK::Date date(1000001);
        benchmark::DoNotOptimize(date.inc_days(INT32_MAX));
    }
}
BENCHMARK(largest_inc_days)->Unit(benchmark::kMillisecond);

void text_and_back(benchmark::State& state) {
    TESK::Date date(2000161, 83, 136, '/');
    std::string text;
    for (auto _ : state) {
        date.text_str(text);
        benchmark::DoNotOptimize(date.set_c_str(text.c_str()));
    }
}
BENCHMARK(text_and_back);

} // namespace

BENCHMARK_MAIN();
