// What the host tells of a process, for the use of this folder alone.
#pragma once

#include <optional>
#include <string>
#include <sys/types.h>

namespace platform {

struct Process_status {
    bool has_ended = false; // and is kept until its parent has asked for it
    pid_t group = 0;
    std::string started; // in ticks since the host's start
};

// Nothing when there is no such process.
std::optional<Process_status> process_status(pid_t number);

// Whether a process of the group has not ended.
bool is_group_alive(pid_t group);

// A small file of the host's own, without the line end behind it; "" when it is not there.
std::string host_text(const std::string& path);

} // namespace platform
