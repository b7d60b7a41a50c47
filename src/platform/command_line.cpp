#include "platform/command_line.h"

#include <algorithm>
#include <climits>

namespace platform {

namespace {

constexpr std::string_view blanks = " \t";

bool is_blank(char c) {
    return blanks.find(c) != std::string_view::npos;
}

void trim_leading_blanks(std::string_view& text) {
    text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
}

// Takes the first argument off the text, which begins with it.
std::string take_argument(std::string_view& text) {
    std::string argument;
    bool quoted = false;
    std::size_t at = 0;
    while (at < text.size() && (quoted || !is_blank(text[at]))) {
        const std::size_t backslashes = std::min(text.find_first_not_of('\\', at), text.size()) - at;
        at += backslashes;
        if (at == text.size() || text[at] != '"') {
            argument.append(backslashes, '\\');
            if (backslashes == 0)
                argument += text[at++];
            continue;
        }
        argument.append(backslashes / 2, '\\');
        ++at;
        if (backslashes % 2 != 0) {
            argument += '"';
        } else if (quoted && at < text.size() && text[at] == '"') {
            argument += '"';
            ++at;
        } else {
            quoted = !quoted;
        }
    }
    text.remove_prefix(at);
    return argument;
}

constexpr const char* refusal =
    "A name that holds a quotation mark or a control character cannot be handed to a program.";

bool is_handed_over(std::string_view text) {
    return std::all_of(text.begin(), text.end(), can_be_handed_over);
}

} // namespace

std::string in_quotes(std::string_view text) {
    std::string_view name = text.substr(0, text.find_last_not_of('\\') + 1);
    const bool is_root = name.size() < text.size() && (name.empty() || name.back() == ':');
    std::string result = "\"";
    for (std::size_t i = 0; i < name.size(); ++i) {
        if (name[i] == '"') {
            const std::size_t text_end = name.find_last_not_of('\\', i == 0 ? 0 : i - 1);
            const std::size_t begin = i == 0 || text_end == std::string_view::npos ? 0 : text_end + 1;
            result.append(i - std::min(begin, i) + 1, '\\');
        }
        result += name[i];
    }
    return result + (is_root ? "\\\\\"" : "\"");
}

std::string program_command(std::string_view program, std::string_view options, std::string_view file,
                            std::string_view extra) {
    std::string command = in_quotes(program) + ' ';
    command.append(options) += ' ' + in_quotes(file) + ' ';
    return extra.empty() ? command : command + in_quotes(extra) + ' ';
}

std::string refusal_of_name(std::string_view name) {
    return is_handed_over(name) ? "" : refusal;
}

std::string refusal_of_command(std::string_view command_line) {
    const bool has_control = std::any_of(command_line.begin(), command_line.end(),
                                         [](char c) { return c != '"' && !can_be_handed_over(c); });
    if (has_control)
        return refusal;
    for (const Command_reading& reading : command_readings(command_line)) {
        // A quote in the name of the program ends it too early: behind the backslash that is to guard it, or
        // in front of something else than a blank.
        const bool ends_in_name = reading.program.ends_with('\\') ||
                                  (!reading.arguments.empty() && !is_blank(reading.arguments.front()));
        if (ends_in_name)
            return refusal;
        const std::vector<std::string> arguments = split_arguments(reading.arguments);
        if (!std::all_of(arguments.begin(), arguments.end(), is_handed_over))
            return refusal;
    }
    return "";
}

std::vector<std::string> split_arguments(std::string_view text) {
    std::vector<std::string> arguments;
    for (trim_leading_blanks(text); !text.empty(); trim_leading_blanks(text))
        arguments.push_back(take_argument(text));
    return arguments;
}

std::vector<Command_reading> command_readings(std::string_view command_line) {
    trim_leading_blanks(command_line);
    if (command_line.empty())
        return {};
    if (command_line.front() == '"') {
        command_line.remove_prefix(1);
        const std::size_t end = std::min(command_line.find('"'), command_line.size());
        return {{command_line.substr(0, end), command_line.substr(std::min(end + 1, command_line.size()))}};
    }
    std::vector<Command_reading> readings;
    const std::size_t limit = std::min({command_line.find('"'), command_line.size(), std::size_t{PATH_MAX}});
    for (std::size_t end = 1; end <= limit; ++end) {
        const bool at_end = end == command_line.size() || (end < limit && is_blank(command_line[end]));
        if (at_end && !is_blank(command_line[end - 1]))
            readings.push_back({command_line.substr(0, end), command_line.substr(end)});
    }
    return readings;
}

std::optional<std::string> only_name(std::string_view arguments) {
    const auto trim = [&arguments] {
        trim_leading_blanks(arguments);
        arguments = arguments.substr(0, arguments.find_last_not_of(blanks) + 1);
    };
    trim();
    if (arguments.ends_with('"'))
        arguments.remove_suffix(1);
    if (arguments.starts_with('"'))
        arguments.remove_prefix(1);
    const bool is_one = is_handed_over(arguments);
    trim();
    return is_one ? std::optional<std::string>(arguments) : std::nullopt;
}

} // namespace platform
