// Children of this process on the host, for the use of this folder alone: what a program is started with, and
// the two ways to start it.
#pragma once

#include <atomic>
#include <functional>
#include <string>
#include <sys/types.h>
#include <vector>

namespace platform {

struct Program_start {
    std::string path;                   // of the file, absolute
    std::vector<std::string> arguments; // behind the program itself
    std::vector<std::string> settings;  // "NAME=value", beside the environment of this process
    bool keeps_terminal = false;        // may read the terminal from which this process was started
};

// What a command line starts, worked out before anything is started. Gives result_started, or why it cannot
// be.
int plan_start(const std::string& command_line, Program_start& start);

// Starts a program that is no child of this process afterwards and is in a session of its own. Gives
// result_started, or what is wrong when the program could not be started.
// `end_report`: a descriptor to which the exit code, as create_and_wait() gives it, is written at the end, as
// an int; negative for none. A process of this program's waits for that end, and holds nothing else open.
int start_detached(const Program_start& start, int end_report = -1);

// Starts a program and waits for its end. Gives the same as start_detached(), and in `exit_code` how a
// program that was started has ended. `meanwhile` is called again and again while it runs; it may be empty.
int start_and_wait(const Program_start& start, int& exit_code, const std::function<void()>& meanwhile);

// How a program is started whose end its starter notices by itself.
struct Group_start {
    std::string folder;                 // the host path of its directory
    int input = -1;                     // its standard input; negative for an empty one
    int output = -1;                    // its standard output and error
    std::atomic<pid_t>* mark = nullptr; // gets the number of its group before it begins; null for none
    bool own_session = false;           // it loses the terminal too
};
// Starts a program as the leader of a process group of its own. Gives the same as start_detached(), and in
// `child` the number of the process, which the caller waits for.
int start_in_group(const Program_start& start, const Group_start& how, pid_t& child);

} // namespace platform
