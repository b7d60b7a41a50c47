// Any bytes are names and texts of a command line: a name in quotes comes back whole, a command line that is
// not refused holds the arguments that were put in, and no others.
#include "platform/command_line.h"
#include "require.h"

#include <algorithm>
#include <vector>

namespace {

// The name as a program gets it: without separators at its end, but for a root's.
std::string handed_over(const std::string& name) {
    std::string text = name.substr(0, name.find_last_not_of('\\') + 1);
    if (text.size() < name.size() && (text.empty() || text.back() == ':'))
        text += '\\';
    return text;
}

} // namespace

void try_input(const std::string& text) {
    std::vector<std::string> names(1);
    for (const char c : text)
        if (c == '\n' && names.size() < 4)
            names.emplace_back();
        else
            names.back() += c;
    std::string arguments;
    std::vector<std::string> expected;
    for (const std::string& name : names) {
        arguments += ' ' + platform::in_quotes(name);
        expected.push_back(handed_over(name));
    }
    require(platform::split_arguments(arguments) == expected);

    const std::string command = platform::in_quotes("C:\\a b\\program.exe") + arguments;
    const bool is_good = std::all_of(names.begin(), names.end(), [](const std::string& name) {
        return platform::refusal_of_name(name).empty();
    });
    require(platform::refusal_of_command(command).empty() == is_good);
    // The program may be named so too.
    const std::string started = platform::in_quotes(names.front()) + "  \"file\" ";
    if (platform::refusal_of_command(started).empty() && !platform::command_readings(started).empty()) {
        require(platform::refusal_of_name(names.front()).empty());
        require(platform::split_arguments(platform::command_readings(started).front().arguments) ==
                std::vector<std::string>{"file"});
    }
    for (const platform::Command_reading& reading : platform::command_readings(text)) {
        platform::split_arguments(reading.arguments);
        platform::only_name(reading.arguments);
    }
    for (const std::string& name : names)
        require(platform::only_name(platform::in_quotes(name)).has_value() ==
                platform::refusal_of_name(name).empty());
    platform::refusal_of_command(text);
}
