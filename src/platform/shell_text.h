// Command lines as the host's shell takes them, for lists and scripts that others run.
#pragma once

#include <string>
#include <string_view>

namespace platform {

// One word of the shell, whatever the text holds but a NUL byte.
std::string shell_word(std::string_view text);

// The shell's command for what process.h does with the command line when it is started in the folder: the
// same program, arguments, drives and directory. One line; "" when the program cannot be started on this
// host.
std::string shell_command(const std::string& command_line, const std::string& folder);

} // namespace platform
