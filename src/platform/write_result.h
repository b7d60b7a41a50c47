// What became of an operation that writes to the disk.
#pragma once

#include <string>

namespace platform {

enum class Write_error {
    none,
    bad_name,      // no file of the host can have the name
    absent,        // the folder to write to, or the source of a copy, is not there
    not_a_file,    // a folder, a device or something else stands at the name
    read_only,     // the file has no write permission
    no_permission, // the host does not let this user write there, or read the source of a copy
    no_space,      // the disk or the user's share of it is full
    device_fault,  // the disk does not work
    into_itself,   // a copy whose target is its source or lies in it
    other
};

struct Write_result {
    Write_error error = Write_error::none;
    std::string reason; // a plain English sentence; empty when the disk was reached

    bool ok() const { return error == Write_error::none; }
};

// The result for an error number of the system, 0 for none.
Write_result write_result_from_errno(int error_number);

// The result with the usual reason of the error.
Write_result write_failure(Write_error error);

} // namespace platform
