// Writes the scenarios of a project that differ by a few input files: one for each combination of the
// parameter files in the project's database and of the overlays in its initialization folders, made from one
// template.
#pragma once

#include "model/project_editor_parameters.h"
#include "trees/project_directory.h"

#include <cstdint>
#include <functional>
#include <ostream>
#include <string>

// Hears the file name of each scenario, without its folder, before it is written. False stops the generation:
// that scenario is not written any more.
using Scenario_listener = std::function<bool(const std::string& file_name)>;

// Generates the scenarios of the project into its folder of generated scenarios, numbered from "00001.tvn"
// on, over what stands there. The description of each scenario that is made with overlays goes to `trace`, a
// line each. Relative names, those in the template too, count from the project's folder, which is the current
// directory afterwards. With `count_only` nothing is written and traced. Gives how many scenarios the
// listener has heard of.
//
// What cannot be written is passed over, and so is all that would have been made from it. A template that
// cannot be read is one with the defaults of every scenario.
std::uint32_t generate_scenarios(const Tilverra_project_editor_parameters& project,
                                 Tilverra_project_directory& project_directory, bool count_only,
                                 std::ostream& trace, const Scenario_listener& listener);
