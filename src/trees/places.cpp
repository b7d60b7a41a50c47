#include "trees/places.h"

namespace TESK {

Smart_directory_name folder_in(const Directory_name& folder, const char* name) {
    Smart_directory_name result("");
    folder.append_to(name, result, false);
    return result;
}

Smart_file_name file_in(const Directory_name& folder, const char* name) {
    Smart_file_name result;
    folder.append_to(name, result, false);
    return result;
}

Filtered_file_name file_in(const Directory_name& folder, const char* name, const char* extension,
                           const char* description, const char* filter) {
    return Filtered_file_name(file_in(folder, name).c_str(), extension, description, filter);
}

} // namespace TESK
