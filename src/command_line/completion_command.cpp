#include "command_line/commands.h"
#include "command_line/described_app.h"
#include "command_line/scenario_choice.h"
#include "operations/scenario_overview.h"

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

// A name of a scenario may hold anything: the shell expands nothing in it.
constexpr const char* bash_scenarios = R"sh(# Takes the names of the project's scenarios that begin with $1.
_tvs_project_scenarios() {
    local begin=${1//[\'\"\\]/} generated= project= word name
    for word in "${COMP_WORDS[@]:2}"; do
        [ "$word" != --generated ] || generated=--generated
        [[ $word == -* || -n $project ]] || project=${word//[\'\"\\]/}
    done
    [[ $project != "~/"* ]] || project=$HOME/${project#"~/"}
    while IFS= read -r name; do
        [[ $name != "$begin"* ]] || COMPREPLY+=("$name")
    done < <(tvs_project completion-scenarios "$project" $generated 2>/dev/null)
    compopt -o filenames 2>/dev/null
}
)sh";

std::string bash_completion(const CLI::App& app) {
    std::string script = bash_scenarios;
    script += "_tvs_project() {\n"
              "    local current=${COMP_WORDS[COMP_CWORD]} options=--help list= scenarios= before=\n"
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
            const std::string is_value = "        [ \"$previous\" != " + long_name(*option) + " ] || ";
            if (const std::string words = values_of(*option); !words.empty())
                values +=
                    is_value + "{ options='" + words + "' list=" + (is_list(*option) ? "yes" : "") + "; }\n";
            else if (stands_for_scenarios(value_name(*option)))
                values += is_value + "scenarios=yes\n";
        }
        if (takes_scenarios(*command))
            values += "        [ \"$COMP_CWORD\" -eq 2 ] || scenarios=yes\n";
        script +=
            "    " + command->get_name() + ")\n        options='" + options + "'\n" + values + "        ;;\n";
    }
    return script + "    esac\n"
                    "    if [ -n \"$list\" ]; then\n"
                    "        [[ $current != *,* ]] || before=${current%,*},\n"
                    "        COMPREPLY=($(compgen -P \"$before\" -W \"$options\" -- \"${current##*,}\"))\n"
                    "        compopt -o nospace 2>/dev/null\n"
                    "    elif [[ $current == -* || $options != *--help* ]]; then\n"
                    "        COMPREPLY=($(compgen -W \"$options\" -- \"$current\"))\n"
                    "    elif [ -n \"$scenarios\" ]; then\n"
                    "        _tvs_project_scenarios \"$current\"\n"
                    "    fi\n"
                    "}\n"
                    "complete -o default -o bashdefault -F _tvs_project tvs_project\n";
}

constexpr const char* zsh_scenarios = R"sh(_tvs_project_scenarios() {
    local project=${(Q)words[2]}
    local -a names
    names=(${(f)"$(tvs_project completion-scenarios ${project/#\~\//$HOME/} ${words[(r)--generated]} 2>/dev/null)"})
    compadd "$@" -a names || _files
}
)sh";

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
                argument +=
                    is_list(*option) ? ":value:{_values -s , value " + words + '}' : ":value:(" + words + ')';
            else if (stands_for_scenarios(name))
                argument += ":scenario:_tvs_project_scenarios";
            else if (!name.empty())
                argument += ':' + name + (name == "FOLDER" || name == "FILE" ? ":_files" : ":");
            cases += " \\\n            " + shell_quoted(argument);
        }
        cases += takes_scenarios(*command)
                     ? " \\\n            '1:project:_files' '*:scenario:_tvs_project_scenarios'\n        ;;\n"
                     : " \\\n            '*:file:_files'\n        ;;\n";
    }
    return std::string("#compdef tvs_project\n") + zsh_scenarios +
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

void tell_scenarios(Session& session, const std::string& name, bool is_generated) {
    const Opened_project project(session, name);
    const Scenario_folder folder = is_generated ? Scenario_folder::generated : Scenario_folder::created;
    for (const std::string& scenario : list_scenarios(project.folder_of(folder)))
        session.console.out() << screen_text(scenario_name(scenario)) << '\n';
}

} // namespace

void add_completion_command(CLI::App& app, Session& session) {
    CLI::App* command = app.add_subcommand("completion", "Print the completions for a shell")->group("");
    auto shell = std::make_shared<std::string>();
    command->add_option("SHELL", *shell, "bash or zsh")->required()->check(CLI::IsMember({"bash", "zsh"}));
    command->callback([&app, &session, shell] {
        session.console.out() << (*shell == "bash" ? bash_completion(app) : zsh_completion(app));
    });
    // What these call.
    command = app.add_subcommand("completion-scenarios", "Print the names of scenarios")->group("");
    auto project = std::make_shared<std::string>();
    add_project(*command, *project);
    auto is_generated = std::make_shared<bool>(false);
    command->add_flag("--generated", *is_generated, "Those of the folder of generated scenarios");
    command->callback(
        [&session, project, is_generated] { tell_scenarios(session, *project, *is_generated); });
}
