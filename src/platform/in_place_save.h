// Saving into a file that cannot be replaced, and what is put aside meanwhile; for the use of this folder
// alone.
//
// The old contents lie in the folder "tilverra/rescue" of the user's data directory, in a file that ends in
// ".copy" and is locked by the program that saves. Beside a copy that is whole lies its record, which ends in
// ".save": the size and the checksum of what the file is to hold, by what the file itself is known, and in
// the second line, to the end, its host path. The record is there as long as the file may be damaged.
#pragma once

#include "platform/file_replacement.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace platform {

constexpr std::string_view rescue_copy_ending = ".copy";
constexpr std::string_view rescue_record_ending = ".save";

std::string rescue_folder();

// By what a file is known under any name, and told from another one that has got its name: a number of its
// file system may serve again, but not with the same time.
struct File_mark {
    std::uint64_t number = 0;
    std::int64_t born =
        0; // nanoseconds since 1970; 0 where the file system does not tell, and nothing is known
    bool operator==(const File_mark&) const = default;
};
// The mark of an open file, or of the one at the path when that is not "".
File_mark mark_of(int file, const char* path);

struct Rescue_record {
    off_t size = 0;
    std::uint64_t checksum = 0;
    File_mark mark;
    std::uint64_t links = 0; // how many names the file had
    std::string path;
};
// The record in the text; nothing when it is none.
std::optional<Rescue_record> rescue_record_in(const std::string& text);

// The checksum of the content; nothing when it cannot be read.
std::optional<std::uint64_t> checksum_of(const Content& content);

// Whether the rescue folder is known to hold nothing. A view of it makes it known, and a save in place
// unknown.
bool nothing_lies_aside();
void set_nothing_lies_aside(bool known);

// Takes away what interrupted saves of the file at the host path have left aside, for a file that is whole
// now.
void forget_interrupted_saves(const std::string& path);

// Writes the content into the file. When that fails, the old contents are written back; when that fails too,
// the copy stays and the reason tells its name. With `flushes` all of it waits for the disk.
Write_result write_in_place(const std::string& path, const Content& content, bool flushes);

} // namespace platform
