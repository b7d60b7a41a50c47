// What every command of one call shares: where it talks, how, and what its arguments mean.
#pragma once

#include "command_line/console.h"
#include "names/file_name.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <stdexcept>
#include <string>
#include <string_view>

// The exit codes of the program.
constexpr int exit_done = 0;
constexpr int exit_found = 1;       // something was found, or failed
constexpr int exit_misused = 2;     // a wrong call
constexpr int exit_unreachable = 3; // a file that cannot be read or written

// Ends a command, with a sentence for its user in UTF-8.
class Command_failure : public std::runtime_error {
public:
    Command_failure(int exit_code, const std::string& sentence)
        : std::runtime_error(sentence), code(exit_code) {}
    int code;
};

// Text of a record or a name, which is in code page 1252, for the screen, and back. What the code page cannot
// hold stays as it is, as names of the host do.
std::string screen_text(std::string_view text);
std::string record_text(const std::string& text);

class Table_reader;

struct Session {
    Session(const std::string& argument_0, Table_reader& reader);

    // The full name of a file that an argument means: a path of the host or a name of the suite, from the
    // directory in which the program was started.
    TESK::File_name file_of_argument(const std::string& argument) const;

    // Keeps the worst that has happened as the exit code.
    void note(int code) { exit_code = std::max(exit_code, code); }

    Console console;
    Table_reader& table_reader;
    bool as_json = false;
    bool has_printed = false; // anything of its report
    std::string suite_folder; // as the user gave it; empty for where the program lies
    const std::string program_file;
    int exit_code = exit_done;

private:
    std::string start_path_; // of the host
    std::string start_name_; // the same directory, as a name
};

// Adds the argument that names the project.
void add_project(CLI::App& command, std::string& project);

// Adds a command whose examples stand in its help, with what all commands that report have.
CLI::App* add_command(CLI::App& app, Session& session, const std::string& name, const std::string& what,
                      const std::string& examples);
