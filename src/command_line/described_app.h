// What the commands say of themselves, for the completions of shells and the manual: nothing of it is listed
// a second time.
#pragma once

#include <CLI/CLI.hpp>

#include <string>
#include <vector>

// The commands that the help shows.
std::vector<const CLI::App*> shown_commands(const CLI::App& app);
// The options of a command, without its arguments.
std::vector<const CLI::Option*> options_of(const CLI::App& command);
// Its arguments, in their order: "PROJECT [PATTERN...]".
std::string arguments_of(const CLI::App& command);
// Whether any argument is of scenarios.
bool takes_scenarios(const CLI::App& command);
// "--jobs" of an option.
std::string long_name(const CLI::Option& option);
// The words that an option takes as its value, with blanks between them; "" for any value.
std::string values_of(const CLI::Option& option);
// Whether several of them may stand behind one another, with commas between.
bool is_list(const CLI::Option& option);
// What stands for its value: "FOLDER"; "" for a flag.
std::string value_name(const CLI::Option& option);
// Whether an argument of that name, or the value of an option, stands for scenarios.
bool stands_for_scenarios(const std::string& name);
