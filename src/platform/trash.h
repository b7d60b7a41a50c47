// The user's trash by the rules that the free desktops share, for the use of this folder alone.
#pragma once

#include <string>

namespace platform {

// Moves the entry of the host to the trash of the user or, where that is on another file system, to the one
// at the top of the entry's own. False, with the entry in its place, when that cannot be.
bool move_to_trash(const std::string& path);

} // namespace platform
