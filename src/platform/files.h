// Files and folders by their names: whether they are there, what is in them, and making, copying and deleting
// them. A name that no host file can have is answered like one that does not exist. A name that ends in a
// separator can only be a folder's.
#pragma once

#include "platform/write_result.h"

#include <compare>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

enum class Entry_kind { absent, file, folder, other };

// What is at the name, at the end of symbolic links; `other` is a device, a pipe or the like. A link to
// nowhere is absent.
Entry_kind entry_kind(std::string_view name);
// Whether anything is at the name, at the end of symbolic links.
bool exists(std::string_view name);
bool is_file(std::string_view name);
bool is_folder(std::string_view name);
// Whether the name itself is a symbolic link, to whatever or nowhere.
bool is_link(std::string_view name);

// Whether a folder above it keeps this user from knowing what is at the name, which is then answered like one
// that does not exist.
bool is_out_of_reach(std::string_view name);

// The size of a file in bytes, at the end of symbolic links; 0 for what is absent or no file.
std::uint64_t file_size(std::string_view name);

// The same for all names that lead to one entry, at the end of symbolic links.
struct Entry_identity {
    std::uint64_t device = 0;
    std::uint64_t number = 0;
    auto operator<=>(const Entry_identity&) const = default;
};
// Nothing when the entry is absent.
std::optional<Entry_identity> entry_identity(std::string_view name);

// The attributes of an entry, as bits. Nothing on this host is hidden or system, whatever its name begins
// with.
constexpr std::uint8_t attribute_read_only = 1; // it has no write permission, or this user has none
constexpr std::uint8_t attribute_hidden = 2;
constexpr std::uint8_t attribute_system = 4;
constexpr std::uint8_t attribute_directory = 16;
constexpr std::uint8_t attribute_archive = 32; // every entry that is no directory

// The attributes of what is at the name; nothing when it is absent.
std::optional<std::uint8_t> attributes(std::string_view name);
// Whether a file or folder is there and has no permission bit for writing, or this user may not write to it.
bool is_read_only(std::string_view name);
// The host keeps no attributes of a folder: only tells whether the folder is there.
bool set_folder_attributes(std::string_view name, std::uint8_t bits);

enum class Read_outcome { read, absent, unreadable, too_large };

struct Read_result {
    Read_outcome outcome = Read_outcome::absent;
    std::string contents; // empty unless read

    bool ok() const { return outcome == Read_outcome::read; }
};

// The size above which a text file is taken for junk, unless the caller knows better.
constexpr std::size_t largest_text_file = std::size_t{256} << 20;

// Reads a whole regular file. What is not a regular file is unreadable, and is not waited for. A file larger
// than `limit` bytes is too large.
Read_result read_file(std::string_view name, std::size_t limit = largest_text_file);

// The time of the last change of a file in local time, packed as the suite's run-time does it: in the date,
// the year since 1980 in the top 7 bits, the month in the next 4 and the day in the low 5; in the time, the
// hour in the top 5 bits, the minute in the next 6 and half the second in the low 5. Times before 1980 and
// after 2107 become the first and the last that this can tell.
struct Packed_time {
    std::uint16_t date = 0;
    std::uint16_t time = 0;
};

// Nothing when the file cannot be opened for reading.
std::optional<Packed_time> file_time(std::string_view name);

enum class Delete_outcome { deleted, absent, denied, failed };

// Deletes a file or a link. A file without write permission and a folder are denied.
Delete_outcome delete_file(std::string_view name);

// Makes one folder. False when that cannot be, or when the name is there already.
bool make_folder(std::string_view name);
// Makes the folder and every level above it that is missing. Whether the folder is there afterwards;
// `failure`, which may be null, says why not.
bool make_folders(std::string_view name, Write_result* failure = nullptr);
// Removes an empty folder: one that this program shows as empty, leftovers of interrupted saves included.
bool remove_folder(std::string_view name);

// Deletes the entry and all that is below it, read-only files too. Never follows a symbolic link: a link in
// the tree, or at its root, is itself deleted. Goes on after a failure; true when nothing is left (or was
// there). The root of a drive is refused.
bool remove_tree(std::string_view name);

// Copies a file byte for byte, to a new file or over an old one, whole or not at all. A new file has the
// permissions of the source, and write permission for its owner, and is not flushed to disk; an old one keeps
// its own.
Write_result copy_file(std::string_view from, std::string_view to);

// What became of the copy of a folder; when it is not ok, the first failure.
struct Copy_result : Write_result {
    // Pipes, sockets and devices, which cannot be copied and do not make the copy fail. Names in the source.
    std::vector<std::string> passed_over;
    // The files and folders for which the copy failed: sources that cannot be read, or entries of the target
    // that cannot be replaced.
    std::vector<std::string> not_copied;
    // After a failure, the files of the target that were replaced and could not be put back.
    std::vector<std::string> replaced;
};

// Copies a folder and all that is below it into the folder `to`, which is made where it is missing; files
// that are there already are replaced, other entries stay. Symbolic links are copied as links. All of it or
// nothing: the copy is made aside and moved into place when it is whole, and taken away when that fails; when
// the program is killed meanwhile, undo_interrupted_copy() does that. What cannot be read or replaced is
// looked for before. A target inside the source is refused. `finish`, which may be empty, is asked once all
// is in place: when its result is not ok, the copy has failed for that reason.
Copy_result copy_tree(std::string_view from, std::string_view to,
                      const std::function<Write_result()>& finish = {});

// What became of a copy into a folder that a killed program had begun.
struct Undone_copy {
    bool was_interrupted = false;
    // The entries that are not as before, and the folder that holds what they were.
    std::vector<std::string> not_put_back;
};
// Where a program was killed while copy_tree() replaced files of the folder, puts back what it had replaced,
// and takes away what it had added. What somebody has changed since stays, and so does what was written
// through or lies behind a link: what had stood there comes into the folder "Replaced by an interrupted
// copy", as it is for who wants it. What fails can be tried again. The next file written or copied into the
// folder itself has the same done.
Undone_copy undo_interrupted_copy(std::string_view folder);

// The names of the files and links in the folder `to` that copy_tree() would replace.
std::vector<std::string> replaced_by_copy(std::string_view from, std::string_view to);

} // namespace platform
