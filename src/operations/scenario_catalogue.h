// The operations on the files of a project's scenarios: making, importing and deleting them.
#pragma once

#include "operations/project_workspace.h"

#include <string>
#include <vector>

// The name of a new scenario, in code page 1252, without the path that may have been typed with it. Empty
// when nothing is left that names a file and a folder of the scenario's own.
std::string new_scenario_name(const std::string& typed);

// Makes a scenario of that name (in code page 1252, no path) the active one of the project and, with
// `copies_active` and as long as there is no such file, makes its file a copy of the one that was active.
// Without that the scenario editor makes the file. False, with nothing changed, when the project has no
// folder.
bool create_scenario(Project_workspace& workspace, const std::string& name, bool copies_active);

// Turns scenarios of the suite's version 3 into scenarios of the project, over any of the same name.
void import_version_3_scenarios(Project_workspace& workspace, const std::vector<std::string>& files);

// Deletes a scenario's file and the folder of its outputs, into the trash unless `permanently`.
void delete_scenario(const TESK::Directory_name& folder, const std::string& file_name, bool permanently);

// Puts the active scenario that does not exist into a folder of the project, with the extension of scenarios.
void complete_active_scenario(Project_workspace& workspace, Scenario_folder folder);
