// How many scenarios the optimization of grazing will make.
#pragma once

#include "model/carbon_sequestration_parameters.h"

#include <cstdint>

// One for each plot of each grazing regimen that gives the plants time enough to recover, in the 16 bits that
// the count has: beyond 32767 it wraps. A step that leads nowhere gives 0. The cost is that of one pass over
// the numbers of plots, whatever is asked.
std::int16_t count_carbon_sequestration_scenarios(const Carbon_sequestration_optimization_parameters& p);
