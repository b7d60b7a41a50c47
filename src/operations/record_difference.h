// What differs between two records, key by key; with the record that both were made from, also who changed
// it.
#pragma once

#include "operations/record_settings.h"

#include <optional>
#include <string>
#include <vector>

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

// The settings that differ, in the order of the first record, what only another one has behind what it
// follows there. With `common` (null for none), the settings in which either differs from it, be they alike
// or not. What a file leaves out counts with the record's default.
std::vector<Record_difference> compare_records(const Record_settings& first, const Record_settings& second,
                                               const Record_settings* common);
