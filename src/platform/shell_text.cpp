#include "platform/shell_text.h"

#include "platform/child_process.h"
#include "platform/host_names.h"
#include "platform/process.h"

#include <algorithm>

namespace platform {

std::string shell_word(std::string_view text) {
    constexpr std::string_view plain =
        "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789/._-+,:@%";
    if (!text.empty() && text.find_first_not_of(plain) == std::string_view::npos)
        return std::string(text);
    std::string word = "'";
    for (const char c : text)
        c == '\'' ? word += "'\\''" : word += c;
    return word + '\'';
}

std::string shell_command(const std::string& command_line, const std::string& folder) {
    Program_start start;
    const std::string path = host_path(folder);
    if (path.empty() || plan_start(command_line, start) != result_started)
        return "";
    std::string command = "cd " + shell_word(path) + " && ";
    if (const std::string drives = drives_folder(); !drives.empty())
        command += "TVS_DRIVES=" + shell_word(drives) + ' ';
    for (const std::string& setting : start.settings) {
        const std::size_t equals = setting.find('=');
        command += setting.substr(0, equals + 1) + shell_word(setting.substr(equals + 1)) + ' ';
    }
    command += shell_word(start.path);
    for (const std::string& argument : start.arguments)
        command += ' ' + shell_word(argument);
    // A list of commands has one a line.
    return command.find('\n') == std::string::npos ? command : "";
}

} // namespace platform
