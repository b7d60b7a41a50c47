#include "operations/deletion_plan.h"

#include "operations/scenario_catalogue.h"
#include "platform/change_times.h"
#include "platform/files.h"

Deletion_plan plan_deletion(const TESK::Directory_name& folder, const std::vector<std::string>& file_names) {
    Deletion_plan plan;
    for (const std::string& file_name : file_names) {
        const std::vector<std::string> names = files_of_scenario(folder, file_name);
        Deletion_plan::Scenario scenario{file_name};
        scenario.bytes = platform::file_size(names.front());
        if (names.size() > 1) {
            const platform::Folder_mark outputs = platform::folder_mark(names.back());
            scenario.output_files = outputs.files;
            scenario.bytes += outputs.bytes;
        }
        plan.output_files += scenario.output_files;
        plan.bytes += scenario.bytes;
        plan.scenarios.push_back(std::move(scenario));
    }
    return plan;
}
