// The names of what lies in a folder.
#pragma once

#include "names/filtered_file_name.h"
#include "names/smart_directory_name.h"
#include "names/smart_file_name.h"

namespace TESK {

// The folder of that name, and the file of that name, in the folder. Nothing is looked up or made.
Smart_directory_name folder_in(const Directory_name& folder, const char* name);
Smart_file_name file_in(const Directory_name& folder, const char* name);
Filtered_file_name file_in(const Directory_name& folder, const char* name, const char* extension,
                           const char* description, const char* filter);

} // namespace TESK
