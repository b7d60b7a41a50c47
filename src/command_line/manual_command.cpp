#include "command_line/commands.h"
#include "command_line/described_app.h"

namespace {

constexpr const char* beginning = R"(title: tvs_project
section: 1

# NAME

tvs_project - work on the projects of the suite and their scenarios

# SYNOPSIS

`tvs_project` *COMMAND* *ARGUMENT*... [*OPTION*...]

# DESCRIPTION

Offers every operation on a project and its scenarios without a window and without asking: from scripts, makefiles
and the login nodes of clusters, where there is no display.

A project is named by its file (*study.tvp*), or by its folder. Files can be named by paths of the host
(`/data/study.tvp`) and by names of the suite (`C:\Simulation\Projects\study.tvp`).

A scenario is named by its name, with or without `.tvn`, by its file, or by a wildcard: `*` stands for any
characters, `?` for any one, and case does not count. Put wildcards in quotes, or the shell takes them for files.
A pattern that matches nothing ends the command before anything is done. What deletes, overwrites, resets or runs
takes all scenarios of a folder only when told `--all`.

When one of many scenarios fails, the work goes on with the others; the end says how many failed, and which.

On a terminal a command prints a table that fits it. In a pipe or a file it prints one line a row, with a tab
between two values, without a header. With `--json` it prints one JSON document: rows as an
array, which is empty where there are none, and one thing as an object, always with the same keys; what failed is
among the rows. A call that is refused as a whole prints an object with the key `refused`. Progress, where standard error is a terminal, and
what went wrong go to standard error.

# COMMANDS
)";

constexpr const char* end = R"(
# EXIT STATUS

| code | meaning |
|---|---|
| 0 | done |
| 1 | something was found (`check`, `diff`), or failed |
| 2 | wrong call; nothing was done |
| 3 | a file cannot be read or written |

# ENVIRONMENT

| variable | meaning |
|---|---|
| `TVS_SUITE` | folder of the installed suite; without it the suite that the program lies in |
| `TVS_DRIVES` | folder of symbolic links named `c:`, `z:` and so on: the drives |
| `NO_COLOR` | when it is not empty, nothing is coloured |
| `COLUMNS` | width of a terminal that does not tell its own |
)";

// A text in which Markdown takes no character for a sign.
std::string plain(const std::string& text) {
    std::string result;
    for (const char c : text)
        result += (c == '*' || c == '_' || c == '<' || c == '[' ? "\\" : "") + std::string(1, c);
    return result;
}

void write_command(std::ostream& out, const CLI::App& command) {
    out << "\n## " << command.get_name() << ' ' << plain(arguments_of(command)) << "\n\n"
        << plain(command.get_description()) << ".\n\n";
    for (const CLI::Option* option : options_of(command)) {
        const std::string value = value_name(*option);
        out << "- `" << long_name(*option) << (value.empty() ? "" : ' ' + value)
            << "`: " << plain(option->get_description()) << '\n';
    }
    out << '\n';
    std::istringstream footer(command.get_footer());
    for (std::string line; std::getline(footer, line);)
        out << (line.starts_with("  ") ? "  " + line : line + '\n') << '\n';
}

} // namespace

void add_manual_command(CLI::App& app, Session& session) {
    CLI::App* command = app.add_subcommand("manual", "Print the manual as Markdown")->group("");
    command->callback([&app, &session] {
        std::ostream& out = session.console.out();
        out << beginning;
        for (const CLI::App* one : shown_commands(app))
            write_command(out, *one);
        out << end;
    });
}
