#include "command_line/session.h"

#include "foundation/code_page_1252.h"
#include "platform/current_directory.h"
#include "platform/host_names.h"
#include "platform/process.h"

#include <filesystem>

std::string screen_text(std::string_view text) {
    return TESK::utf8_from_code_page(text);
}

std::string record_text(const std::string& text) {
    return TESK::code_page_from_utf8(text).value_or(text);
}

Session::Session(const std::string& argument_0, Table_reader& reader)
    : table_reader(reader), program_file(platform::set_program_file(argument_0)),
      start_name_(platform::current_directory()) {
    std::error_code ignored;
    start_path_ = std::filesystem::current_path(ignored).string();
}

TESK::File_name Session::file_of_argument(const std::string& argument) const {
    std::string name = platform::name_of_argument(
        argument.starts_with('/') || platform::is_suite_name(argument) ? argument
                                                                       : start_path_ + '/' + argument);
    if (platform::is_suite_name(argument))
        name = record_text(name);
    TESK::File_name file(name.c_str());
    if (!file.is_qualified(true) && !name.starts_with('\\') && !name.empty())
        file = (start_name_ + '\\' + name).c_str();
    return file;
}

void add_project(CLI::App& command, std::string& project) {
    command.add_option("PROJECT", project, "The project's file, or its folder")->required()->type_name("");
}

CLI::App* add_command(CLI::App& app, Session& session, const std::string& name, const std::string& what,
                      const std::string& examples) {
    CLI::App* command = app.add_subcommand(name, what);
    command->add_flag("--json", session.as_json, "Print JSON instead of a table");
    command->add_option("--suite", session.suite_folder, "Folder of the installed suite")
        ->envname("TVS_SUITE")
        ->type_name("FOLDER");
    command->footer("Examples:\n" + examples);
    return command;
}
