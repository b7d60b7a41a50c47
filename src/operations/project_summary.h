// What a project is: its files, what it holds, how large it is, and what it lacks. All texts are in code page
// 1252.
#pragma once

#include "operations/project_check.h"
#include "operations/project_workspace.h"
#include "platform/files.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

struct Project_summary {
    // A file that the record names.
    struct Named_file {
        std::string name;
        bool is_missing = false;      // as far as can be told
        bool is_out_of_reach = false; // whether it is missing cannot be told
    };
    std::string file;
    std::string folder;
    std::string type;
    std::string description;
    Named_file model;
    Named_file template_scenario;
    Named_file active_scenario;
    std::size_t scenarios = 0;
    std::size_t generated = 0;
    std::size_t comparisons = 0;
    std::uint64_t bytes = 0;                      // of the file and of all that is in the folder
    std::optional<platform::Packed_time> changed; // nothing where the file is not there
    std::vector<Finding> findings;
    bool is_whole = true; // false where a folder of scenarios cannot be read, which is a finding
};

// Nothing is made or written. Needs a project directory; the project's folder must be the current one. Takes
// a look at every file of the folder.
Project_summary summarize_project(Project_workspace& workspace);

// "section.key: message", as far as the finding concerns a section.
std::string finding_text(const Finding& finding);
