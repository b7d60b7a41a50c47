#include "operations/carbon_sequestration_count.h"

#include <algorithm>

namespace {

// How many numbers of animals there are; 0 when the highest is never passed.
std::uint32_t count_herds(std::int16_t min, std::int16_t max, std::int16_t step) {
    constexpr std::uint32_t values_of_16_bits = 0x10000;
    std::int16_t herd = min;
    for (std::uint32_t count = 0; count < values_of_16_bits; ++count) {
        if (herd > max)
            return count;
        herd = static_cast<std::int16_t>(herd + step);
    }
    return 0;
}

// How many lengths of stay there are on each of the plots; the steps lead up.
std::uint32_t count_durations(const Carbon_sequestration_optimization_parameters& parameters, int plots) {
    int longest = 1;
    if (plots > 1)
        longest = std::min<int>(parameters.max_duration, parameters.max_recovery_days / (plots - 1));
    return longest < 1 ? 0 : static_cast<std::uint32_t>((longest - 1) / parameters.step_duration + 1);
}

} // namespace

std::int16_t
count_carbon_sequestration_scenarios(const Carbon_sequestration_optimization_parameters& parameters) {
    if (parameters.step_plots <= 0 || parameters.step_duration <= 0 || parameters.max_recovery_days < 0)
        return 0;
    std::uint32_t of_each_herd = 0;
    for (int plots = 1; plots <= parameters.max_plots; plots += parameters.step_plots)
        of_each_herd += static_cast<std::uint32_t>(plots) * count_durations(parameters, plots);
    const std::uint32_t herds = count_herds(parameters.min_stocking_rate, parameters.max_stocking_rate,
                                            parameters.step_stocking_rate);
    return static_cast<std::int16_t>(herds * of_each_herd);
}
