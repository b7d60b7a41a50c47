// A second process of this very program, which works beside the first and can outlive it: the two ends of
// what connects them. What its main() is told is its arguments.
#pragma once

#include "platform/host_handle.h"

#include <chrono>
#include <string>
#include <sys/types.h>
#include <vector>

namespace platform {

// The first process's end.
class Companion_process {
public:
    Companion_process() = default;
    // Lets go of the companion, which notices.
    ~Companion_process() { let_go(); }
    Companion_process(const Companion_process&) = delete;
    Companion_process& operator=(const Companion_process&) = delete;

    // Starts this program with the arguments, in a session of its own. False when that cannot be.
    bool start(const std::vector<std::string>& arguments);

    // Readable when the companion has said something or has ended; -1 before the start.
    int descriptor() const { return words_.get(); }
    // What it has said since this was last asked. With a time, waits for the first word or the end so long.
    std::string heard(std::chrono::milliseconds longest = std::chrono::milliseconds(0));
    bool has_ended() const { return has_ended_; }

    // Tells it to go on when this process ends; without that its life line ends with this process.
    void set_free();
    void ask_to_end() const;

private:
    void let_go();

    pid_t number_ = -1;
    Host_handle life_line_;
    Host_handle words_;
    bool has_ended_ = true;
};

// The companion's own end, made by its main() before anything else is opened.
class Companion_life {
public:
    Companion_life();

    void say(const std::string& words) const;

    // Waits until the descriptor is readable, the first process is heard of, or somebody asks this one to
    // end; not longer than the time.
    void wait(int descriptor, std::chrono::milliseconds longest);
    // Whether it is to end: it was asked to by a signal, or the first process is gone without having set it
    // free.
    bool is_to_end() const { return is_to_end_; }

private:
    Host_handle signals_;
    bool is_free_ = false;
    bool is_to_end_ = false;
};

} // namespace platform
