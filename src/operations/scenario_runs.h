// Running the model on scenarios, and viewing what it wrote.
#pragma once

#include "operations/project_workspace.h"

#include <string>
#include <vector>

// Runs the project's model on a scenario. `common_format`: the report format of the project instead of the
// scenario's own. False when the user gave up the save that goes before.
bool run_scenario(Project_workspace& workspace, const std::string& scenario_file, bool common_format,
                  bool wait);

// The outputs of a scenario for the output manager: the scenario, its output folder and its folder of crop
// production functions, each in quotes. Nothing when the scenario has no output. Needs a project directory,
// whose folder is the current one afterwards.
std::string outputs_of_scenario(const Project_workspace& workspace, const std::string& scenario_file);

enum class View_outcome {
    shown,
    shown_by_usual_format, // the scenario, which names the format, could not be read
    no_output
};

// Shows the output of a scenario by the report format that its record names.
View_outcome view_output(Project_workspace& workspace, const std::string& scenario_file);

// The tables (.dbf) among the output of a scenario, by their full names in the order of the alphabet. Needs a
// project directory, whose folder is the current one afterwards. `failure` is told why these are not all; it
// becomes empty when they are.
std::vector<std::string> output_tables(const Project_workspace& workspace, const std::string& scenario_file,
                                       std::string& failure);
