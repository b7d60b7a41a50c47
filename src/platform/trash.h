// The user's trash by the rules that the free desktops share, for the use of this folder alone.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace platform {

// Moves the entry of the host to the trash of the user or, where that is on another file system, to the one
// at the top of the entry's own. False, with the entry in its place, when that cannot be.
bool move_to_trash(const std::string& path);

// The same for many, with the disk waited for once for some dozens of them. `progress` is told how many are
// done, and may say stop by false. Gives whether each is in the trash; those behind a stop are not.
std::vector<bool> move_to_trash(const std::vector<std::string>& paths,
                                const std::function<bool(std::size_t done)>& progress);

} // namespace platform
