#include "command_line/described_app.h"

#include <algorithm>

std::vector<const CLI::App*> shown_commands(const CLI::App& app) {
    std::vector<const CLI::App*> commands;
    for (const CLI::App* command :
         app.get_subcommands([](const CLI::App* one) { return !one->get_group().empty(); }))
        commands.push_back(command);
    return commands;
}

std::vector<const CLI::Option*> options_of(const CLI::App& command) {
    std::vector<const CLI::Option*> options;
    for (const CLI::Option* option : command.get_options())
        if (option->nonpositional() && !option->get_group().empty())
            options.push_back(option);
    return options;
}

std::string arguments_of(const CLI::App& command) {
    std::string text;
    for (const CLI::Option* option : command.get_options()) {
        if (!option->get_positional())
            continue;
        std::string name = option->get_name(true);
        if (option->get_expected_max() > 1)
            name += "...";
        text += (text.empty() ? "" : " ") + (option->get_required() ? name : '[' + name + ']');
    }
    return text;
}

bool takes_scenarios(const CLI::App& command) {
    const std::vector<const CLI::Option*> options = command.get_options();
    return std::any_of(options.begin(), options.end(), [](const CLI::Option* option) {
        return option->get_positional() && stands_for_scenarios(option->get_name(true));
    });
}

bool stands_for_scenarios(const std::string& name) {
    return name == "PATTERN" || name == "SCENARIO";
}

std::string long_name(const CLI::Option& option) {
    return option.get_lnames().empty() ? option.get_name() : "--" + option.get_lnames().front();
}

std::string values_of(const CLI::Option& option) {
    const std::string type = option.get_type_name();
    const std::size_t begin = type.find('{');
    const std::size_t end = type.find('}');
    if (begin == std::string::npos || end == std::string::npos)
        return {};
    std::string values = type.substr(begin + 1, end - begin - 1);
    std::replace(values.begin(), values.end(), ',', ' ');
    return values;
}

bool is_list(const CLI::Option& option) {
    return option.get_delimiter() == ',';
}

std::string value_name(const CLI::Option& option) {
    if (option.get_expected_max() == 0)
        return {};
    const std::string type = option.get_type_name();
    return type.empty() ? "VALUE" : type.substr(type.starts_with(':') ? 1 : 0);
}
