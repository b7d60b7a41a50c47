// The operations on the files of a project's scenarios: making, importing and deleting them.
#pragma once

#include "operations/change_backups.h"
#include "operations/operation_outcome.h"
#include "operations/project_workspace.h"

#include <functional>
#include <string>
#include <vector>

// The name of a new scenario, in code page 1252, without the path that may have been typed with it. Empty
// when nothing is left that names a file and a folder of the scenario's own.
std::string new_scenario_name(const std::string& typed);

// Why no scenario can have the name, in code page 1252 and without extension; nothing when one can.
std::string refuse_scenario_name(const std::string& name);

// Makes a scenario of that name (in code page 1252, no path) the active one of the project and, with
// `copies_active` and as long as there is no such file, makes its file a copy of the one that was active:
// what was not done is the copy. Without that the scenario editor makes the file. Refused, with nothing
// changed, when the project has no folder or no scenario can have the name.
Operation_outcome create_scenario(Project_workspace& workspace, const std::string& name, bool copies_active);

enum class Import_answer { replace, replace_all, keep, keep_all, stop };

// Asked before anything is imported about each scenario that is there already, by its file name without the
// folder.
using Import_question = std::function<Import_answer(const std::string& scenario)>;

// Turns scenarios of the suite's version 3 into scenarios of the project. A file that cannot be read, or has
// a name that no scenario can have, imports nothing; a scenario that is there already, or that an earlier
// file of the same name will have made, is replaced when `ask` says so, without it always. What is kept
// counts neither as done nor as not done. With `backups`, which may be null, the change can be undone.
// Refused when the project has no folder; stopped, with nothing imported, when an answer says so. While the
// files are looked at, `progress` is told each time that none is done.
Operation_outcome import_version_3_scenarios(Project_workspace& workspace,
                                             const std::vector<std::string>& files,
                                             const Import_question& ask, Change_backups* backups,
                                             const Operation_progress& progress);

// The file of a scenario and the folder of its outputs, as far as a scenario of the name has one.
std::vector<std::string> files_of_scenario(const TESK::Directory_name& folder, const std::string& file_name);

// The reason of what a user may delete and no trash takes.
constexpr const char* no_trash = "It could not be moved to the trash.";
// Why an entry is still there that was to go, into the trash unless `permanently`: a plain English sentence.
std::string why_not_deleted(const std::string& name, bool permanently);

// Deletes the files of scenarios in the folder and the folders of their outputs: into the trash unless
// `permanently`, then by moving them into `backups` or, when that is null, for good.
Operation_outcome delete_scenarios(const TESK::Directory_name& folder,
                                   const std::vector<std::string>& file_names, bool permanently,
                                   Change_backups* backups, const Operation_progress& progress);

// The same with the file of a scenario alone: the folder of its outputs stays.
Operation_outcome delete_scenario_file(const TESK::File_name& file, bool permanently,
                                       Change_backups* backups);

// Puts the active scenario that does not exist into a folder of the project, with the extension of scenarios.
void complete_active_scenario(Project_workspace& workspace, Scenario_folder folder);
