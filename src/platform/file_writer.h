// The one way by which this program writes files. A file is saved whole or not at all: the text is written to
// a file without a name, or where the file system has none, under a name that no list of the program shows,
// flushed, and then given the name of the new file or renamed over the old one. What a killed program left
// under such names is cleared away at the next save into the folder, unless another program holds it.
#pragma once

#include "platform/write_result.h"

#include <cstddef>
#include <string_view>
#include <vector>

namespace platform {

enum class Durability {
    durable, // on the disk before the answer: for what a user edits
    // Left to the system to bring to the disk: for files made in bulk. Only a file that was not there or is
    // empty is written so; what it would replace is flushed all the same, since there is something to lose.
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

// The steps of writing, copying and listing.
enum class Write_step {
    create, // the file beside the old one
    write,
    flush, // of a durable file
    set_permissions,
    rename,       // the file gets its name
    flush_folder, // of a durable file
    copy_aside,   // these three when it is written in place
    write_in_place,
    write_back,
    open, // of a file that is there, to read it
    read, // of a file that is read whole or copied
    make_folder,
    list // of a folder; one that fails does so once it has given so many entries as a write gives bytes
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
    // Only the call of that number fails so, counted from 1 over all steps; the others go on as usual.
    void fail_call(std::size_t number, int error_number, std::size_t after_bytes = 0);
    void clear();
    // Whether that call has been reached.
    bool call_has_failed() const { return only_call_ != 0 && calls_ >= only_call_; }

    struct Fault {
        Write_step step;
        int error_number;
        std::size_t after_bytes;
    };
    // The fault in force at the step, which counts as a call; null when it goes on as usual.
    static const Fault* at(Write_step step);

private:
    std::vector<Fault> faults_;
    std::size_t calls_ = 0;
    std::size_t only_call_ = 0; // 0 for none
    Fault fault_of_call_{};
    File_faults* outer_;
};

} // namespace platform
