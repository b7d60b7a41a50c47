// When files were changed, as finely as the host tells.
#pragma once

#include <compare>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace platform {

// Nanoseconds since the beginning of 1970, by the clock of the disk's machine.
using Change_time = std::int64_t;

// Of what is at the name, at the end of symbolic links; nothing when it is absent.
std::optional<Change_time> change_time(std::string_view name);

// The files of a folder, at every level: how many, how large together, and when the newest was changed. Links
// count as the files that they are themselves and are not followed; folders that begin with a point are left
// out.
struct Folder_mark {
    std::size_t files = 0;
    std::uint64_t bytes = 0;
    Change_time newest = 0;
    bool is_whole = true; // whether all of the folder could be read
    auto operator<=>(const Folder_mark&) const = default;
};
// Of a folder that is not there no files.
Folder_mark folder_mark(std::string_view name);

} // namespace platform
