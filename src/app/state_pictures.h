// The signs of the states of runs and of scenarios: each has a shape, a mark and a colour of its own.
#pragma once

#include "runs/run_progress.h"
#include "runs/scenario_states.h"
#include "toolkit/picture.h"

Picture picture_of(Run_state state);
Picture picture_of(Scenario_state state);
