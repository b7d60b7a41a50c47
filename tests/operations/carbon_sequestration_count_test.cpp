#include "operations/carbon_sequestration_count.h"

#include <gtest/gtest.h>

namespace {

struct Input {
    std::int16_t min_stocking, max_stocking, step_stocking, max_plots, step_plots, max_duration,
        step_duration, max_recovery;
};

std::int16_t count(const Input& input) {
    Carbon_sequestration_optimization_parameters parameters;
    parameters.min_stocking_rate = input.min_stocking;
    parameters.max_stocking_rate = input.max_stocking;
    parameters.step_stocking_rate = input.step_stocking;
    parameters.max_plots = input.max_plots;
    parameters.step_plots = input.step_plots;
    parameters.max_duration = input.max_duration;
    parameters.step_duration = input.step_duration;
    parameters.max_recovery_days = input.max_recovery;
    return count_carbon_sequestration_scenarios(parameters);
}

TEST(Carbon_sequestration_count_test, is_what_the_loops_over_herds_plots_and_days_come_to) {
    const std::pair<Input, int> cases[] = {
        {{100, 500, 100, 10, 1, 14, 1, 21}, 1095},
        {{-5, 30, 7, 25, 4, 20, 3, 60}, 852},
        {{0, 32766, 5, 1, 1, 1, 1, 1}, -19661}, // the number of animals wraps, and 45875 steps do too
        {{1, 1, -1, 1, 1, 1, 1, 1}, -32766},
        {{1, 2, 1, 500, 1, 50, 1, 32767}, 7526},
        {{1, 2, 1, 200, 3, 32767, 2, 32767}, -13506},
        {{1, 9, 4, 3, 1, 5, 2, 0}, 3}, // no plot rests: one alone
        {{1, 9, 4, 3, 1, 0, 1, 9}, 3},
        {{500, 100, 100, 10, 1, 14, 1, 21}, 0}, // begins above the maximum
        {{100, 500, 0, 10, 1, 14, 1, 21}, 0},   // never gets anywhere
        {{1, 32767, 1, 1, 1, 1, 1, 1}, 0},      // wraps past the maximum for ever
        {{0, 32766, 2, 1, 1, 1, 1, 1}, 0},
        {{1, 2, 1, 0, 1, 9, 1, 9}, 0},
        {{1, 2, 1, 3, 0, 9, 1, 9}, 0},
        {{1, 2, 1, 3, 1, 9, 0, 9}, 0},
        {{1, 2, 1, 3, 1, 9, 1, -1}, 0}};
    for (const auto& [input, scenarios] : cases)
        EXPECT_EQ(count(input), scenarios) << input.min_stocking << ' ' << input.max_plots;
}

} // namespace
