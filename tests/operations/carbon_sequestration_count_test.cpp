#include "operations/carbon_sequestration_count.h"

#include <gtest/gtest.h>

#include <random>

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

// The loops as they are told: 0 when one of them does not end.
std::int16_t count_by_loops(const Input& in) {
    std::int16_t result = 0;
    int herds = 0;
    for (std::int16_t herd = in.min_stocking; herd <= in.max_stocking;
         herd = static_cast<std::int16_t>(herd + in.step_stocking)) {
        if (++herds > 0x10000)
            return 0;
        for (int plots = 1; plots <= in.max_plots; plots += in.step_plots) {
            const int limit = plots == 1 ? 1 : in.max_duration;
            for (int days = 1; days <= limit; days += in.step_duration) {
                if (in.max_recovery >= (plots - 1) * days)
                    for (int plot = 1; plot <= plots; ++plot)
                        result = static_cast<std::int16_t>(result + 1);
                if (in.step_duration <= 0)
                    return 0;
            }
            if (in.step_plots <= 0)
                return 0;
        }
    }
    return result;
}

std::string text_of(const Input& in) {
    std::string text;
    for (const int value : {in.min_stocking, in.max_stocking, in.step_stocking, in.max_plots, in.step_plots,
                            in.max_duration, in.step_duration, in.max_recovery})
        text += std::to_string(value) + ' ';
    return text;
}

TEST(Carbon_sequestration_count_test, is_what_the_loops_come_to) {
    EXPECT_EQ(count({100, 500, 100, 10, 1, 14, 1, 21}), 1095);
    EXPECT_EQ(count({0, 32766, 5, 1, 1, 1, 1, 1}), -19661) << "45875 steps";
    std::mt19937 random(1095);
    const auto pick = [&](int low, int high) {
        return static_cast<std::int16_t>(std::uniform_int_distribution<int>(low, high)(random));
    };
    for (int i = 0; i < 20'000; ++i) {
        const Input in{pick(-5, 30), pick(-5, 60), pick(1, 9),  pick(-2, 25),
                       pick(-1, 6),  pick(-2, 20), pick(-1, 5), pick(-3, 60)};
        ASSERT_EQ(count(in), count_by_loops(in)) << text_of(in);
    }
    // At the ends of the range, where the number of animals wraps.
    for (int i = 0; i < 300; ++i) {
        const Input in{
            pick(-32768, 32767), pick(32700, 32767), pick(-32768, 32767), pick(0, 3), 1, pick(0, 3), 1,
            pick(0, 5)};
        ASSERT_EQ(count(in), count_by_loops(in)) << text_of(in);
    }
    // What never gets anywhere, wraps past the maximum for ever, comes upon it in the end, or begins above
    // it.
    for (const Input& in :
         {Input{100, 500, 0, 10, 1, 14, 1, 21}, Input{1, 32767, 1, 1, 1, 1, 1, 1},
          Input{0, 32766, 2, 1, 1, 1, 1, 1}, Input{0, 32766, 5, 1, 1, 1, 1, 1},
          Input{500, 100, 100, 10, 1, 14, 1, 21}, Input{1, 1, -1, 1, 1, 1, 1, 1},
          Input{1, 2, 1, 500, 1, 50, 1, 32767}, Input{1, 2, 1, 32767, 97, 32767, 32767, 32767},
          Input{1, 2, 1, 200, 3, 32767, 2, 32767}})
        ASSERT_EQ(count(in), count_by_loops(in)) << text_of(in);
}

} // namespace
