#include "platform/write_result.h"

#include <cerrno>

namespace platform {

namespace {

struct Known_error {
    int number; // 0 for an error that the system has no number for
    Write_error error;
    const char* reason;
};

// The first row of an error has its usual reason.
constexpr Known_error known_errors[] = {
    {0, Write_error::bad_name, "No file can have this name."},
    {ENAMETOOLONG, Write_error::bad_name, "The name is too long."},
    {EINVAL, Write_error::bad_name, "The file system does not allow this name."},
    {EILSEQ, Write_error::bad_name, "The file system does not allow this name."},
    {ELOOP, Write_error::bad_name, "The symbolic links go round in a circle."},
    {ENOENT, Write_error::absent, "The file or its folder does not exist."},
    {ENOTDIR, Write_error::absent, "A part of the path is not a folder."},
    {0, Write_error::not_a_file, "There is something else than a file of this name."},
    {EISDIR, Write_error::not_a_file, "There is a folder of this name."},
    {ENOTEMPTY, Write_error::not_a_file, "There is a folder of this name."},
    {ENXIO, Write_error::not_a_file, "There is a device of this name."},
    {ENODEV, Write_error::not_a_file, "There is a device of this name."},
    {EEXIST, Write_error::not_a_file, "There is something else of this name."},
    {0, Write_error::read_only, "The file is read-only."},
    {EROFS, Write_error::read_only, "The disk is read-only."},
    {EACCES, Write_error::no_permission, "You have no permission to do this."},
    {EPERM, Write_error::no_permission, "The system does not allow this."},
    {ETXTBSY, Write_error::no_permission, "The file is a program that is running."},
    {EBUSY, Write_error::no_permission, "The file is in use."},
    {ENOSPC, Write_error::no_space, "The disk is full."},
    {EDQUOT, Write_error::no_space, "Your share of the disk is full."},
    {EFBIG, Write_error::no_space, "The file is too large for the disk."},
    {EIO, Write_error::device_fault, "The disk has a fault."},
    {ESTALE, Write_error::device_fault, "The connection to the disk is lost."},
    {ETIMEDOUT, Write_error::device_fault, "The disk does not answer."},
    {0, Write_error::into_itself, "The target of the copy is its source, or lies in it."},
    {ENOMEM, Write_error::other, "There is too little memory."},
    {EMFILE, Write_error::other, "Too many files are open."},
    {ENFILE, Write_error::other, "Too many files are open."},
};

} // namespace

Write_result write_result_from_errno(int error_number) {
    if (error_number == 0)
        return {};
    for (const Known_error& known : known_errors)
        if (known.number == error_number)
            return {known.error, known.reason};
    return {Write_error::other, "The system reports error " + std::to_string(error_number) + "."};
}

Write_result write_failure(Write_error error) {
    for (const Known_error& known : known_errors)
        if (known.error == error)
            return {error, known.reason};
    return {error, "The cause is not known."};
}

} // namespace platform
