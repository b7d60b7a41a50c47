// How many scenarios an optimization of grazing for carbon would generate and run.
#pragma once

#include "model/carbon_sequestration_parameters.h"

#include <cstdint>

// Counts, for each number of animals and each number of plots, the lengths of stay (1 day alone where there
// is one plot) that give every plot no more than the longest time to recover, once for each plot. The result
// is a 16-bit number and wraps, and so does the number of animals on its way to the highest one. 0 when a
// number would never pass its maximum: its step is 0, the number of animals wraps past it for ever, or a step
// leads down. Takes a fraction of a millisecond, whatever the parameters.
std::int16_t
count_carbon_sequestration_scenarios(const Carbon_sequestration_optimization_parameters& parameters);
