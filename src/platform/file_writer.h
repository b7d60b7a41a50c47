// The one way by which this program writes files. A file is saved whole or not at all: the text is written
// beside the file under a name that no list of the program shows, flushed, and renamed over the old file.
#pragma once

#include "platform/write_result.h"

#include <cstddef>
#include <string_view>
#include <vector>

namespace platform {

enum class Durability {
    durable, // on the disk before the answer: for what a user edits
    // Left to the system to bring to the disk: for files made in bulk. A file that was not there is written
    // under its own name, and gone again when that fails.
    quick
};

// Makes the file hold the contents, byte for byte. The folder must be there. A new file gets the usual
// permissions, an old one keeps its own, its owner and its group, as far as the host allows. Through a
// symbolic link the target is written. A file without write permission is not written, whoever the user is.
//
// Where the folder cannot be written but the file can, and where the file has several hard links, it is first
// copied into the folder "tilverra/rescue" in the user's data directory, then written in place, and written
// back from the copy when that fails.
//
// When the result is not ok, the old file is as it was and nothing is left beside it, with two exceptions:
// when writing back fails, the copy stays and the reason tells its name; and when only the folder could not
// be flushed, the new contents stand in the file but may not outlive a power failure.
Write_result write_file(std::string_view name, std::string_view contents, Durability durability);

// The steps of writing a file.
enum class Write_step {
    create, // the file beside the old one
    write,
    flush, // of a durable file
    set_permissions,
    rename,
    flush_folder, // of a durable file
    copy_aside,   // these three when it is written in place
    write_in_place,
    write_back
};

// For tests: while one lives, the steps that it names fail, in whatever operation writes a file. The latest
// one counts.
class File_faults {
public:
    File_faults();
    File_faults(const File_faults&) = delete;
    File_faults& operator=(const File_faults&) = delete;
    ~File_faults();

    // The step fails with the error number of the system, such as ENOSPC; one that writes does so once it has
    // written so many bytes of the file, by short writes.
    void fail(Write_step step, int error_number, std::size_t after_bytes = 0);
    void clear() { faults_.clear(); }

    struct Fault {
        Write_step step;
        int error_number;
        std::size_t after_bytes;
    };
    // The fault in force at the step; null when it goes on as usual.
    static const Fault* at(Write_step step);

private:
    std::vector<Fault> faults_;
    File_faults* outer_;
};

} // namespace platform
