// What lists show of scenarios without reading them whole as records: thousands in a blink.
#pragma once

#include "names/directory_name.h"
#include "platform/files.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

// The file names of the scenarios in a folder, without it, in code page 1252 and in the order of
// comes_before(). None when the folder is not there. `failure`, which may be null, is told why these are not
// all; it becomes empty when they are.
std::vector<std::string> list_scenarios(const TESK::Directory_name& folder, std::string* failure = nullptr);

// The order in which people count: "plot 2" before "plot 10". Case does not count.
bool comes_before(std::string_view a, std::string_view b);

struct Scenario_overview {
    std::string description; // in code page 1252
    std::optional<platform::Packed_time> changed;
    bool is_readable = false; // else there is no description
};

// The overview of the scenario in the file.
Scenario_overview read_scenario_overview(const std::string& file_name);
