// One keystroke in a bound number field, without a display: the filter runs and the record follows.
#include "editing/number_edit_bars.h"
#include "toolkit/headless_desktop.h"

#include <benchmark/benchmark.h>

namespace {

void type_digit(benchmark::State& state) {
    Headless_desktop desktop([](const std::string&) {});
    TForm form("form");
    auto& edit = form.add<TAutoFloat32Edit>("edit");
    float value = 0;
    edit.bind_to(&value, 2, nullptr);
    form.show();
    edit.focus();
    const Key digit{Key_code::character, "7"};
    constexpr int usual_length = 12;
    for (auto _ : state) {
        if (edit.text().size() > usual_length)
            edit.select_all();
        benchmark::DoNotOptimize(edit.key(digit));
    }
}
BENCHMARK(type_digit)->Unit(benchmark::kMicrosecond);

} // namespace

BENCHMARK_MAIN();
