// Command lines, by the rules of the desktop that the suite grew up on: putting names into quotes, what can
// be handed to a program at all, and taking a command line apart. Texts are bytes in code page 1252; nothing
// here looks at a file.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

// The text in quotes, so that split_arguments() gives it back as one argument. A separator at its end is left
// out, since in front of the closing quote it would make that a part of the text; that of a drive's root is
// doubled instead.
std::string in_quotes(std::string_view text);

// The command line by which every program of the suite is started: "program" options "file" "extra", with a
// blank behind each part and one in front of the file. `options` stand as they are; without `extra` the file
// is the last.
std::string program_command(std::string_view program, std::string_view options, std::string_view file,
                            std::string_view extra);

// Whether the programs of the suite can be handed a name with the character: no quote and no control
// character can stand between the quotes of their command lines.
constexpr bool can_be_handed_over(char c) {
    return c != '"' && static_cast<unsigned char>(c) >= ' ' && c != '\x7F';
}

// Why no program can be handed the name, or be started by the command line, as a plain English sentence; ""
// when there is nothing against it.
std::string refusal_of_name(std::string_view name);
std::string refusal_of_command(std::string_view command_line);

// The arguments in the text, by the rules of that desktop's C run-time:
// - Blanks and tabs separate arguments, outside double quotes. "" is an empty argument.
// - Inside quotes, two quotes are one that counts as text. A quote that is never closed reaches to the end.
// - A backslash is text, but for those in front of a quote: two of them are one backslash, and one that is
//   left over makes the quote text. (So a folder in quotes should not end in a backslash.)
std::vector<std::string> split_arguments(std::string_view text);

// One way to read a command line. Both are parts of the command line itself.
struct Command_reading {
    std::string_view program;   // without quotes
    std::string_view arguments; // all that stands behind it
};

// The ways to read a command line, in the order in which they are to be tried. A program in quotes is read
// one way. One without can end at each blank, the shortest first: "C:\My programs\a.exe x" may mean "C:\My",
// "C:\My programs\a.exe" or the whole. No program of a reading holds a quote or is longer than a path can be.
// None for an empty command line.
std::vector<Command_reading> command_readings(std::string_view command_line);

// The one file name that the arguments of a file manager or an editor consist of: without the blanks around
// it and without quotes, be they a pair or a lone one behind the name. Nothing where they hold another quote,
// and so perhaps more than one name, or a control character.
std::optional<std::string> only_name(std::string_view arguments);

} // namespace platform
