#include "command_line/commands.h"
#include "command_line/described_app.h"

#include <memory>

namespace {

// A text in single quotes for a shell.
std::string shell_quoted(const std::string& text) {
    std::string result = "'";
    for (const char c : text)
        result += c == '\'' ? "'\\''" : std::string(1, c);
    return result + '\'';
}

std::string names_of(const CLI::App& app) {
    std::string names;
    for (const CLI::App* command : shown_commands(app))
        names += (names.empty() ? "" : " ") + command->get_name();
    return names;
}

std::string bash_completion(const CLI::App& app) {
    std::string script = "_tvs_project() {\n"
                         "    local current=${COMP_WORDS[COMP_CWORD]} options=--help\n"
                         "    local previous=${COMP_WORDS[COMP_CWORD - 1]}\n"
                         "    if [ \"$COMP_CWORD\" -eq 1 ]; then\n"
                         "        COMPREPLY=($(compgen -W '" +
                         names_of(app) +
                         " --help --version' -- \"$current\"))\n"
                         "        return\n"
                         "    fi\n"
                         "    case ${COMP_WORDS[1]} in\n";
    for (const CLI::App* command : shown_commands(app)) {
        std::string options;
        std::string values;
        for (const CLI::Option* option : options_of(*command)) {
            if (!options.empty())
                options += ' ';
            options += long_name(*option);
            if (const std::string words = values_of(*option); !words.empty())
                values +=
                    "        [ \"$previous\" != " + long_name(*option) + " ] || options='" + words + "'\n";
        }
        script +=
            "    " + command->get_name() + ")\n        options='" + options + "'\n" + values + "        ;;\n";
    }
    return script + "    esac\n"
                    "    if [[ $current == -* || $options != *--help* ]]; then\n"
                    "        COMPREPLY=($(compgen -W \"$options\" -- \"$current\"))\n"
                    "    fi\n"
                    "}\n"
                    "complete -o default -o bashdefault -F _tvs_project tvs_project\n";
}

std::string zsh_completion(const CLI::App& app) {
    std::string commands;
    std::string cases;
    for (const CLI::App* command : shown_commands(app)) {
        commands += "        " + shell_quoted(command->get_name() + ':' + command->get_description()) + '\n';
        cases += "    " + command->get_name() + ")\n        _arguments";
        for (const CLI::Option* option : options_of(*command)) {
            const std::string name = value_name(*option);
            std::string argument = long_name(*option) + '[' + option->get_description() + ']';
            if (const std::string words = values_of(*option); !words.empty())
                argument += ":value:(" + words + ')';
            else if (!name.empty())
                argument += ':' + name + (name == "FOLDER" || name == "FILE" ? ":_files" : ":");
            cases += " \\\n            " + shell_quoted(argument);
        }
        cases += " \\\n            '*:file:_files'\n        ;;\n";
    }
    return "#compdef tvs_project\n"
           "_tvs_project() {\n"
           "    local -a commands\n"
           "    commands=(\n" +
           commands +
           "    )\n"
           "    if ((CURRENT == 2)); then\n"
           "        _describe command commands\n"
           "        return\n"
           "    fi\n"
           "    local name=$words[2]\n"
           "    shift words\n"
           "    ((CURRENT--))\n"
           "    case $name in\n" +
           cases +
           "    esac\n"
           "}\n"
           "_tvs_project \"$@\"\n";
}

} // namespace

void add_completion_command(CLI::App& app, Session& session) {
    CLI::App* command = app.add_subcommand("completion", "Print the completions for a shell")->group("");
    auto shell = std::make_shared<std::string>();
    command->add_option("SHELL", *shell, "bash or zsh")->required()->check(CLI::IsMember({"bash", "zsh"}));
    command->callback([&app, &session, shell] {
        session.console.out() << (*shell == "bash" ? bash_completion(app) : zsh_completion(app));
    });
}
