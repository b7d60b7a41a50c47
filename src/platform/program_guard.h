// A process that ends the programs of another one, should that be gone without having ended them itself.
#pragma once

#include "platform/host_handle.h"

#include <atomic>
#include <chrono>
#include <cstddef>
#include <sys/types.h>

namespace platform {

class Program_guard {
public:
    // `most`: how many process groups can be marked at a time.
    Program_guard(std::size_t most, std::chrono::milliseconds grace);
    // Lets the guard go: without a word to groups that are still marked when it could not be started.
    ~Program_guard();
    Program_guard(const Program_guard&) = delete;
    Program_guard& operator=(const Program_guard&) = delete;

    // A place for the number of a group, 0 when it is over; null when all are taken or there is no guard.
    std::atomic<pid_t>* free_mark();

private:
    [[noreturn]] void stand_guard(int life_line, std::chrono::milliseconds grace) const;

    std::size_t most_;
    std::atomic<pid_t>* marks_ = nullptr; // shared with the guard
    Host_handle life_line_;               // closed when this process ends
    pid_t guard_ = -1;
};

} // namespace platform
