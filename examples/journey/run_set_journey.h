// A run set of the example project, for the journey.
#pragma once

#include <string>

// Has the first 20 scenarios of the folder run beside the program, of which two fail, then those two once
// more. Prints how far the set is and what came of it. `project_file` and `scenarios_folder` are full names.
void show_run_set(const std::string& project_file, const std::string& scenarios_folder);
