// Asking a tool of the host for something: it is started, waited for, and its answer taken.
#pragma once

#include <chrono>
#include <string>
#include <vector>

namespace platform {

struct Tool_answer {
    bool was_started = false;
    int exit_code = -1; // negative when it was ended by a signal, or took too long
    std::string text;   // what it wrote on its standard output and error; not more than a few megabytes

    bool ok() const { return was_started && exit_code == 0; }
};

// Whether PATH has the tool.
bool has_tool(const std::string& tool);

// Runs the tool of PATH with the arguments, in the host's root folder, with an empty standard input. One that
// takes longer is ended.
Tool_answer ask_tool(const std::string& tool, const std::vector<std::string>& arguments,
                     std::chrono::milliseconds longest);

} // namespace platform
