// Deleting many files and folders.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace TESK {

struct Recycling {
    std::size_t done = 0;          // how many are gone
    std::vector<std::string> kept; // the names of what could not go; of those behind a stop, none
    bool was_stopped = false;
};

// Moves the entries to the user's trash, or deletes them for good: folders with all that is in them. Names of
// nothing are passed over. `progress`, which may be null, is told after each how many are gone, and may say
// stop by false.
Recycling recycle_all(const std::vector<std::string>& names, bool permanently,
                      const std::function<bool(std::size_t done)>& progress);

} // namespace TESK
