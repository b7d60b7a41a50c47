#include "app/carbon_sequestration_count.h"

#include <algorithm>

namespace {

// How often a loop from `first` to `last` in steps runs.
std::int64_t passes(std::int64_t first, std::int64_t last, std::int64_t step) {
    return step <= 0 || last < first ? 0 : (last - first) / step + 1;
}

} // namespace

std::int16_t count_carbon_sequestration_scenarios(const Carbon_sequestration_optimization_parameters& p) {
    std::int64_t for_one_herd = 0;
    if (p.step_plots > 0 && p.step_duration > 0) {
        for (std::int64_t plots = 1; plots <= p.max_plots; plots += p.step_plots) {
            const std::int64_t limit = plots == 1 ? 1 : p.max_duration;
            // A plot recovers while the animals are on the others: (plots - 1) * days.
            const std::int64_t longest =
                plots == 1                ? (p.max_recovery_days >= 0 ? limit : 0)
                : p.max_recovery_days < 0 ? 0
                                          : std::min<std::int64_t>(limit, p.max_recovery_days / (plots - 1));
            for_one_herd += plots * passes(1, longest, p.step_duration);
        }
    }
    const std::int64_t herds = passes(p.min_stocking_rate, p.max_stocking_rate, p.step_stocking_rate);
    return static_cast<std::int16_t>(static_cast<std::uint16_t>(herds * for_one_herd));
}
