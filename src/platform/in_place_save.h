// Saving into a file that cannot be replaced, and what is put aside meanwhile; for the use of this folder
// alone.
//
// The old contents lie in the folder "tilverra/rescue" of the user's data directory, in a file that ends in
// ".copy" and is locked by the program that saves. Beside a copy that is whole lies its record, which ends in
// ".save": the size and the checksum of what the file is to hold, and in the second line, to the end, its
// host path. The record is there as long as the file may be damaged.
#pragma once

#include "platform/file_replacement.h"

#include <cstdint>
#include <optional>
#include <string>

namespace platform {

constexpr std::string_view rescue_copy_ending = ".copy";
constexpr std::string_view rescue_record_ending = ".save";

std::string rescue_folder();

struct Rescue_record {
    off_t size = 0;
    std::uint64_t checksum = 0;
    std::string path;
};
// The record in the text; nothing when it is none.
std::optional<Rescue_record> rescue_record_in(const std::string& text);

// The checksum of the content; nothing when it cannot be read.
std::optional<std::uint64_t> checksum_of(const Content& content);

// Writes the content into the file. When that fails, the old contents are written back; when that fails too,
// the copy stays and the reason tells its name. With `flushes` all of it waits for the disk.
Write_result write_in_place(const std::string& path, const Content& content, bool flushes);

} // namespace platform
