// What a deletion of scenarios will take away, so that it can be told before it is done.
#pragma once

#include "names/directory_name.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

struct Deletion_plan {
    struct Scenario {
        std::string file_name;        // in code page 1252
        std::size_t output_files = 0; // of the folder of its outputs, at every level
        std::uint64_t bytes = 0;      // of all of it
    };
    std::vector<Scenario> scenarios;
    std::size_t output_files = 0;
    std::uint64_t bytes = 0;
};

// What delete_scenarios() will delete of these files of the folder.
Deletion_plan plan_deletion(const TESK::Directory_name& folder, const std::vector<std::string>& file_names);
