// Moving entries within a file system, and what that needs to know of them.
#pragma once

#include "platform/write_result.h"

#include <cstdint>
#include <string_view>

namespace platform {

// Gives a file, a link or a folder with all that is in it another name on the same file system, where nothing
// has that name; the folders above the new name are made. In one step: the entry is always under one of the
// two names.
Write_result move_entry(std::string_view from, std::string_view to);

// Why the entry cannot be taken out of its folder, as far as the folder tells; ok where it lets that be.
Write_result permission_to_remove(std::string_view name);

// The bytes of a file, or of all files below a folder. Links count nothing and are not followed; what cannot
// be read counts nothing.
std::uint64_t bytes_below(std::string_view name);

// Waits until the disk holds all that was written to the file system of the folder, by whomever. False when
// that failed.
bool flush_file_system(std::string_view folder);

} // namespace platform
