// The question before scenarios are deleted: what will go, and whether for good.
#pragma once

#include "operations/deletion_plan.h"
#include "toolkit/dialogs.h"

#include <string>

enum class Deletion_answer { keep, to_trash, for_good };

// Asks about what is checked. With an empty plan nothing is checked, and the file of the active scenario
// goes; its name is empty where there is no such file.
Deletion_answer ask_to_delete(const Deletion_plan& checked, const std::string& active_file);

// Asks once more about a file that is no part of the project.
bool may_delete_outside(const std::string& file);
