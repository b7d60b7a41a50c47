// Giving a scenario another name, wherever the project has it, and making another scenario like it.
#pragma once

#include "operations/operation_outcome.h"
#include "operations/project_workspace.h"

#include <string>

// Renames the scenario in the file: its record, its folder, and every place of the project that names one of
// them: the project's own record, which is saved then, the records of its scenarios, and the comparisons. The
// new name is one without extension. Refused, with nothing changed, when no scenario can have it, when there
// is something of that name, or when the scenario itself could not be renamed; what is not done is a place
// that still has the old name.
//
// What other programs keep of the scenario's name in files of their own is not known here.
Operation_outcome rename_scenario(Project_workspace& workspace, const TESK::File_name& file,
                                  const std::string& new_name);

// Copies the scenario's record, and the database of its own with the names that lead there, but no outputs.
// Refused, with nothing made, like a renaming.
Operation_outcome duplicate_scenario(Project_workspace& workspace, const TESK::File_name& file,
                                     const std::string& new_name);

// The folder in which the scenario's files are shown: its own or, before it has one, that of its record.
std::string folder_to_show(const TESK::File_name& file);
