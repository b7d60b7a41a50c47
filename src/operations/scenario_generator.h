// Writes the scenarios of a project that differ by a few input files: one for each combination of the
// parameter files in the project's database and of the overlays in its initialization folders, made from one
// template.
#pragma once

#include "model/project_editor_parameters.h"
#include "operations/change_backups.h"
#include "operations/operation_outcome.h"
#include "trees/project_directory.h"

#include <cstdint>
#include <functional>
#include <ostream>
#include <string>
#include <vector>

// Hears the file name of each scenario, without its folder, before it is written. False stops the generation:
// that scenario is not written any more.
using Scenario_listener = std::function<bool(const std::string& file_name)>;

struct Generation_plan {
    std::uint64_t count = 0;           // how many scenarios there will be
    std::vector<std::string> replaced; // the full names of those of the numbers that stand there already
    int unread_events = 0; // events of the template that no scenario gets, since no reader sees them
    std::string refused;   // why nothing can be generated; empty when something can
};

// What a generation would do now. Nothing is written. Relative names, those in the template too, count from
// the project's folder, which is the current directory afterwards.
Generation_plan plan_generation(const Tilverra_project_editor_parameters& project,
                                Tilverra_project_directory& project_directory);

// Generates the scenarios of the project into its folder of generated scenarios, numbered from "00001.tvn"
// on, over what stands there. The description of each scenario that is made with overlays goes to `trace`, a
// line each. With `backups`, which may be null, the change can be undone.
//
// What cannot be written is passed over, and so is all that would have been made from it; the outcome tells.
// Refused, with nothing written, when the template or a folder of the database cannot be read.
Operation_outcome generate_scenarios(const Tilverra_project_editor_parameters& project,
                                     Tilverra_project_directory& project_directory, Change_backups* backups,
                                     std::ostream& trace, const Scenario_listener& listener);
