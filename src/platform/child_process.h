// Children of this process on the host, for the use of this folder alone: what a program is started with, and
// the two ways to start it.
#pragma once

#include <string>
#include <vector>

namespace platform {

struct Program_start {
    std::string path;                   // of the file, absolute
    std::vector<std::string> arguments; // behind the program itself
    std::vector<std::string> settings;  // "NAME=value", beside the environment of this process
    bool keeps_terminal = false;        // may read the terminal from which this process was started
};

// Starts a program that is no child of this process afterwards and is in a session of its own. Gives
// result_started, or what is wrong when the program could not be started.
int start_detached(const Program_start& start);

// Starts a program and waits for its end. Gives the same as start_detached(), and in `exit_code` how a
// program that was started has ended.
int start_and_wait(const Program_start& start, int& exit_code);

} // namespace platform
