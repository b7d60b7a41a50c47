#include "trees/scenario_directory.h"

#include "platform/current_directory.h"
#include "platform/files.h"
#include "platform/listing.h"

#include <algorithm>

namespace {

// Whether there is anything but folders in the folder or below it, as far as anybody can tell: what cannot be
// read is not taken for empty. Folders whose names begin with a point are none of a run's.
bool holds_output(const TESK::Directory_name& folder) {
    const auto entries = platform::list_folder(folder);
    if (!entries.ok() && entries.result.error != platform::Write_error::absent)
        return true;
    return std::any_of(entries.begin(), entries.end(), [&](const platform::Folder_entry& entry) {
        if (entry.is_link || (entry.attributes & platform::attribute_directory) == 0)
            return true;
        return !entry.name.starts_with('.') && holds_output(folder_in(folder, entry.name.c_str()));
    });
}

constexpr const char* output_name = "Output";

} // namespace

TESK::Smart_directory_name output_folder_of(const TESK::File_name& scenario_file) {
    return folder_in(TESK::without_extension(scenario_file), output_name);
}

Common_scenario_directory::Common_scenario_directory(const TESK::File_name& scenario_file)
    : Common_parameters_directory(TESK::without_extension(scenario_file), Directory_mode::containing_folder,
                                  true) {
    get_path(parent_directory, true);
    parent_directory.set_as_current();
    output_directory = folder_in(*this, output_name);
    output_directory.create();
}

bool Common_scenario_directory::clean_outputs() {
    const platform::Directory_guard current;
    TESK::Ustring undeleted;
    const bool all_deleted = output_directory.remove_tree(undeleted, true);
    output_directory.create();
    return all_deleted;
}

bool Common_scenario_directory::has_output() const {
    return holds_output(output_directory);
}

bool Tilverra_scenario_directory::clean_outputs() {
    recorded.delete_file();
    return Common_scenario_directory::clean_outputs();
}
