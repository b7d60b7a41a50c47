// A launcher that starts nothing and writes down the command lines, for tests of what is started.
#pragma once

#include "platform/process.h"

#include <string>

class Launcher_record : public platform::Process_launcher {
public:
    // Each command line with its show state in brackets and a line end.
    std::string started;

    // What execute() answers.
    int result = platform::result_started;

    int execute(const std::string& command_line, int show_state) override {
        started += command_line + " [" + std::to_string(show_state) + "]\n";
        return result;
    }
    std::optional<int> create_and_wait(const std::string& command_line, int show_state) override {
        return execute(command_line, show_state) > 31 ? std::optional(0) : std::nullopt;
    }

private:
    platform::Launcher_guard guard_{*this};
};
