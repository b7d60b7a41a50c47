// What differs between records that stand side by side; with the record that all were made from, also who
// changed it.
#pragma once

#include "operations/settings_grid.h"

#include <optional>
#include <string>
#include <vector>

// Who has another value in a row than the record that all were made from.
struct Changers {
    std::vector<std::size_t> records; // in order; empty when none has
    bool alike = true;                // all of these have the same new value
};
Changers who_changed(const Settings_grid::Row& row, std::size_t common);

enum class Changed_by {
    first,
    second,
    both_alike, // both have the same new value
    both_apart  // each has one of its own; also without a common record
};

struct Record_difference {
    std::string section;
    std::string key;
    bool is_known; // whether a record declares it
    // The values as Setting::value() gives them; nothing where the record has none.
    std::optional<std::string> first;
    std::optional<std::string> second;
    std::optional<std::string> common; // nothing without a common record, too
    Changed_by changed_by;
};

// The settings in which the first two records of the grid differ, in the order of the first, what only
// another one has behind what it follows there. With a third record, which both were made from, the settings
// in which either differs from that, be they alike or not. What a file leaves out counts with the record's
// default.
std::vector<Record_difference> compare_records(const Settings_grid& records);
