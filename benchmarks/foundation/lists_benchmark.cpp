// Filling an Alias_association_list and finding each of its keys: the time for a key must not grow with the
// list.
#include "foundation/association_list.h"

#include <benchmark/benchmark.h>
#include <string>
#include <vector>

namespace {

class Keyed : public TESK::Association {
public:
    explicit Keyed(const std::string& key) : key_(key) {}
    const char* get_key() const override { return key_.c_str(); }

private:
    std::string key_;
};

std::vector<std::string> make_keys(benchmark::State& state) {
    std::vector<std::string> keys;
    for (std::int64_t i = 0; i < state.range(0); ++i)
        keys.push_back("parameter_" + std::to_string(i));
    return keys;
}

void fill(TESK::Alias_association_list& list, const std::vector<std::string>& keys) {
    for (const std::string& key : keys)
        list.append(new Keyed(key));
}

void report_time_of_a_key(benchmark::State& state) {
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

// As a reader does it: each key is looked up, missed, and appended.
void find_then_append(benchmark::State& state) {
    const auto keys = make_keys(state);
    for ([[maybe_unused]] auto _ : state) {
        TESK::Alias_association_list list;
        for (const std::string& key : keys)
            if (list.find(key.c_str(), true) == nullptr)
                list.append(new Keyed(key));
        benchmark::DoNotOptimize(list.is_empty());
    }
    report_time_of_a_key(state);
}

void append_unique(benchmark::State& state) {
    const auto keys = make_keys(state);
    for ([[maybe_unused]] auto _ : state) {
        TESK::Alias_association_list list(true);
        fill(list, keys);
        benchmark::DoNotOptimize(list.is_empty());
    }
    report_time_of_a_key(state);
}

void find_each(benchmark::State& state) {
    const auto keys = make_keys(state);
    TESK::Alias_association_list list;
    fill(list, keys);
    for ([[maybe_unused]] auto _ : state)
        for (const std::string& key : keys)
            benchmark::DoNotOptimize(list.find(key.c_str(), true));
    report_time_of_a_key(state);
}

void find_each_by_alias(benchmark::State& state) {
    const auto keys = make_keys(state);
    TESK::Alias_association_list list;
    fill(list, keys);
    for (const std::string& key : keys)
        list.add_alias(key.c_str(), ("old_" + key).c_str());
    std::vector<std::string> old_keys;
    for (const std::string& key : keys)
        old_keys.push_back("old_" + key);
    for ([[maybe_unused]] auto _ : state)
        for (const std::string& key : old_keys)
            benchmark::DoNotOptimize(list.find(key.c_str(), true));
    report_time_of_a_key(state);
}

BENCHMARK(find_then_append)->Arg(1'000)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMicrosecond);
BENCHMARK(append_unique)->Arg(1'000)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMicrosecond);
BENCHMARK(find_each)->Arg(1'000)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMicrosecond);
BENCHMARK(find_each_by_alias)->Arg(1'000)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMicrosecond);

} // namespace

BENCHMARK_MAIN();
