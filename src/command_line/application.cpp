#include "command_line/application.h"

#include "command_line/commands.h"
#include "command_line/report.h"
#include "platform/interrupted_save.h"

#include <memory>

namespace {

constexpr const char* about = "Works on the projects of the suite and their scenarios, without a window.";
constexpr const char* more =
    "'tvs_project COMMAND --help' tells more of a command, with examples. 'tvs_project completion bash' (or\n"
    "zsh) prints the completions for that shell, 'tvs_project manual' the manual.\n"
    "Exit codes: 0 done, 1 something was found or failed, 2 wrong call, 3 a file cannot be read or written.";

// Shows the words that an option takes without the mark of a type that it lacks.
class Help_formatter : public CLI::Formatter {
public:
    std::string make_option_opts(const CLI::Option* option) const override {
        std::string text = CLI::Formatter::make_option_opts(option);
        if (const std::size_t mark = text.find(" :{"); mark != std::string::npos)
            text.erase(mark + 1, 1);
        return text;
    }
};

void add_commands(CLI::App& app, Session& session) {
    add_info_command(app, session);
    add_list_command(app, session);
    add_check_command(app, session);
    add_run_command(app, session);
    add_status_command(app, session);
    add_stop_command(app, session);
    add_continue_command(app, session);
    add_log_command(app, session);
    add_delete_runs_command(app, session);
    add_generate_command(app, session);
    add_reset_command(app, session);
    add_compare_command(app, session);
    add_new_command(app, session);
    add_copy_command(app, session);
    add_rename_command(app, session);
    add_delete_command(app, session);
    add_import_command(app, session);
    add_undo_command(app, session);
    add_get_command(app, session);
    add_set_command(app, session);
    add_diff_command(app, session);
    add_convert_command(app, session);
    add_completion_command(app, session);
    add_manual_command(app, session);
}

int run(const std::vector<std::string>& arguments, CLI::App& app, Session& session) {
    try {
        app.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend() - 1));
    } catch (const CLI::Success& asked) {
        app.exit(asked, session.console.out(), session.console.out());
    } catch (const CLI::ParseError& error) {
        const auto commands = app.get_subcommands();
        const bool is_unknown = commands.empty() && arguments.size() > 1;
        const char* const what = is_unknown && arguments[1].starts_with('-') ? "option" : "command";
        session.console.say(is_unknown ? std::string("There is no ") + what + " '" + arguments[1] +
                                             (*what == 'o' ? "' in front of a command." : "'.")
                                       : error.what());
        session.console.say("Try 'tvs_project " +
                            (commands.empty() ? "" : commands.front()->get_name() + ' ') + "--help'.");
        return exit_misused;
    } catch (const Command_failure& failure) {
        session.console.say(failure.what());
        print_refusal(session, failure.what());
        return failure.code;
    } catch (const std::exception& exception) {
        session.console.say(exception.what());
        print_refusal(session, exception.what());
        return exit_unreachable;
    }
    return session.exit_code;
}

} // namespace

int run_command_line(const std::vector<std::string>& arguments, Table_reader& table_reader) {
    Session session(arguments.front(), table_reader);
    CLI::App app(about, "tvs_project");
    app.set_version_flag("--version", "tvs_project " PROGRAM_VERSION);
    app.require_subcommand(1);
    app.footer(more);
    app.formatter(std::make_shared<Help_formatter>());
    add_commands(app, session);
    const platform::Interruptions_view view; // of what lies there as the command begins
    const int code = run(arguments, app, session);
    session.console.end_progress();
    session.console.out().flush();
    const std::string failure = session.console.output().failure();
    if (failure.empty())
        return code;
    session.console.say("The output could not be written: " + failure);
    return exit_unreachable;
}
