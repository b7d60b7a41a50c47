// The calls of the system that write files, which a test can make fail (File_faults); for the use of this
// folder alone.
#pragma once

#include "platform/file_replacement.h"
#include "platform/file_writer.h"
#include "platform/host_handle.h"

#include <cerrno>
#include <cstddef>
#include <string>
#include <sys/stat.h>
#include <sys/types.h>

namespace platform {

// For File_faults in the place of an error number: the program is killed.
constexpr int killed_there = -1;

// 0, or the error number with which a test makes the step fail.
int fault_at(Write_step step);

// The answer of a call of the system, which is negative when it failed, unless a test makes the step fail: 0
// or the error number. An interrupted call is made again.
template <typename Call>
int outcome_of(Write_step step, Call call) {
    constexpr int most_interruptions = 100;
    int error = 0;
    for (int i = 0; i < most_interruptions; ++i) {
        error = fault_at(step);
        if (error == 0)
            error = call() < 0 ? errno : 0;
        if (error != EINTR)
            break;
    }
    return error;
}

// Writes the bytes from `begin` to `end` of the content to their places in the file. `written` counts what
// the step has written so far. Gives 0 or the error number.
int write_range(Write_step step, const Host_handle& file, const Content& content, off_t begin, off_t end,
                std::size_t& written);
int write_all(Write_step step, const Host_handle& file, const Content& content);

// Twelve hexadecimal digits, others at each call and in each process.
std::string unique_digits();

// Creates a file of a name of its own: `head` and some digits, which become its `path`. Gives 0 or the error
// number.
int create_unique(Write_step step, const std::string& head, mode_t mode, std::string& path,
                  Host_handle& file);

// Gives the file the owner, group and permissions of the old one. Only the permissions are a must: a user may
// not give files away. Gives 0 or the error number.
int take_over_permissions(const Host_handle& file, const struct stat& old);

// Brings to the disk which entries the folder has. Gives 0 or the error number.
int flush_folder(const std::string& folder);

} // namespace platform
