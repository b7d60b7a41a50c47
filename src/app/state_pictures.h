// The signs of the states of runs and of scenarios: each has a shape, a mark and a colour of its own.
#pragma once

#include "runs/run_progress.h"
#include "runs/scenario_states.h"
#include "toolkit/picture.h"

// What the signs of tables are painted with.
namespace sign_colours {
constexpr Colour grey = 0x808080;
constexpr Colour blue = 0xc06000;
constexpr Colour green = 0x208020;
constexpr Colour red = 0x2020c0;
constexpr Colour orange = 0x0070d0;
} // namespace sign_colours

Picture picture_of(Run_state state);
Picture picture_of(Scenario_state state);
