// The run set of a project's scenarios, as its record and the page "Run" ask for it.
#pragma once

#include "model/project_editor_parameters.h"
#include "runs/run_set.h"
#include "trees/project_directory.h"

#include <string>
#include <vector>

// The scenarios (full names), run by the project's model on this machine. `project_file`: as it is to stand
// in the command lines. `common_format`: the project's report format serves in place of each scenario's own.
Run_set run_set_of(const Tilverra_project_editor_parameters& project,
                   const Tilverra_project_directory& directory, const std::string& project_file,
                   bool common_format, std::vector<std::string> scenarios);
