#include "platform/process.h"

#include "foundation/code_page_1252.h"
#include "platform/child_process.h"
#include "platform/command_line.h"
#include "platform/current_directory.h"
#include "platform/entry_names.h"
#include "platform/files.h"
#include "platform/host_handle.h"
#include "platform/host_names.h"
#include "platform/host_tools.h"

#include <algorithm>
#include <fcntl.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace platform {

namespace {

constexpr std::string_view separators = "\\/:";

// A start that is ready, or why there is none.
struct Plan {
    int result = result_started;
    Program_start start;

    static Plan refused(int result) { return {result, {}}; }
    static Plan or_refused(std::optional<Program_start> start, int result) {
        return start ? Plan{result_started, std::move(*start)} : refused(result);
    }
};

std::string_view last_component(std::string_view name) {
    return name.substr(name.find_last_of(separators) + 1);
}

// What stands in front of the last component, with its separator.
std::string_view folder_part(std::string_view name) {
    return name.substr(0, name.size() - last_component(name).size());
}

bool is_called(std::string_view program, std::string_view stem) {
    const std::string_view last = last_component(program);
    return TESK::equal_ignoring_case(last, stem) ||
           TESK::equal_ignoring_case(last, std::string(stem) + ".exe");
}

// ---- The host's file manager and text editor ----

// Takes the switch off the front of the text when it is there.
bool take_switch(std::string_view& text, std::string_view name) {
    text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
    if (!TESK::equal_ignoring_case(text.substr(0, name.size()), name))
        return false;
    text.remove_prefix(name.size());
    return true;
}

Plan file_manager_plan(std::string_view arguments) {
    bool selects = false;
    for (bool found = true; found;) {
        const bool selects_here = take_switch(arguments, "/select,");
        selects = selects || selects_here;
        found = selects_here || take_switch(arguments, "/n,") || take_switch(arguments, "/e,") ||
                take_switch(arguments, "/root,");
    }
    std::optional<std::string> name = only_name(arguments);
    if (!name)
        return Plan::refused(result_refused);
    if (name->empty())
        name = current_directory();
    else if (selects)
        name = folder_part(full_name(*name));
    const std::string document = document_for_tool(*name);
    return document.empty() ? Plan::refused(result_file_not_found)
                            : Plan::or_refused(opener_start(document), result_file_not_found);
}

Plan text_editor_plan(std::string_view arguments) {
    const std::optional<std::string> name = only_name(arguments);
    if (!name)
        return Plan::refused(result_refused);
    const std::string path = host_path(*name);
    return path.empty() ? Plan::refused(result_path_not_found)
                        : Plan::or_refused(text_editor_start(path), result_file_not_found);
}

// ---- Programs that are files ----

std::string& program_folder() {
    static std::string folder;
    return folder;
}

std::string real_program_path() {
    return link_text("/proc/self/exe").value_or("");
}

// By the name with which this program was started, as far as set_program_file() was told, else by its real
// one.
const std::string& known_program_folder() {
    if (program_folder().empty())
        program_folder() = folder_part(name_from_host_path(real_program_path()));
    return program_folder();
}

struct Program_file {
    std::string name; // full
    std::string path; // on the host
    bool is_host_tool = false;
};

// Looks for the file with ".exe" first where it has no extension.
std::optional<Program_file> find_file(const std::string& name) {
    if (last_component(name).find('.') == std::string_view::npos && is_file(name + ".exe"))
        return find_file(name + ".exe");
    if (!is_file(name))
        return std::nullopt;
    return Program_file{full_name(name), host_path(name), false};
}

std::optional<Program_file> find_host_tool(const std::string& name) {
    const std::string path = find_tool(TESK::utf8_from_code_page(name));
    if (path.empty())
        return std::nullopt;
    return Program_file{name_from_host_path(path), path, true};
}

std::optional<Program_file> find_program(const std::string& name) {
    if (!folder_part(name).empty())
        return find_file(name);
    if (auto beside = find_file(known_program_folder() + name))
        return beside;
    // A tool's name is not taken by a file that somebody left in the folder of a project.
    if (auto tool = find_host_tool(name))
        return tool;
    return find_file(name);
}

bool is_windows_program(const std::string& path) {
    const Host_handle file = open_to_read(path);
    char mark[2] = {};
    return file.is_open() && read(file.get(), mark, sizeof mark) == sizeof mark && mark[0] == 'M' &&
           mark[1] == 'Z';
}

Plan windows_program_plan(const Program_file& program, const std::vector<std::string>& arguments) {
    const std::string prefix = wine_prefix();
    Program_start start{
        find_tool("wine"), {TESK::utf8_from_code_page(program.name)}, {"WINEPREFIX=" + prefix}};
    if (prefix.empty() || start.path.empty())
        return Plan::refused(result_bad_format);
    for (const std::string& argument : arguments)
        start.arguments.push_back(TESK::utf8_from_code_page(argument));
    return {result_started, std::move(start)};
}

// A name becomes a host path where something is there, or where it cannot be anything but a name.
std::string argument_for_tool(const std::string& argument) {
    const bool has_drive = argument.size() > 2 && argument[1] == ':' && TESK::is_letter(argument[0]);
    std::string document = document_for_tool(argument);
    if (document.empty() && has_drive)
        document = host_path(argument);
    return document.empty() ? TESK::utf8_from_code_page(argument) : document;
}

Plan program_plan(const Program_file& program, std::string_view argument_text) {
    std::vector<std::string> arguments = split_arguments(argument_text);
    if (is_windows_program(program.path))
        return windows_program_plan(program, arguments);
    if (program.is_host_tool)
        for (std::string& argument : arguments)
            argument = argument_for_tool(argument);
    return {result_started, {program.path, std::move(arguments), {}}};
}

int result_of_absence(const std::string& program) {
    const std::string folder(folder_part(program));
    return folder.empty() || is_folder(folder) ? result_file_not_found : result_path_not_found;
}

// The file manager and the text editor are given one name, and refuse by their own reading of it: what stands
// in quotes there may end in a backslash.
Plan plan_for(const std::string& command_line) {
    const std::vector<Command_reading> readings = command_readings(command_line);
    const bool is_refused = !refusal_of_command(command_line).empty();
    for (const Command_reading& reading : readings) {
        if (is_called(reading.program, "explorer"))
            return file_manager_plan(reading.arguments);
        if (is_called(reading.program, "notepad"))
            return text_editor_plan(reading.arguments);
        if (is_refused)
            return Plan::refused(result_refused);
        if (const auto program = find_program(std::string(reading.program)))
            return program_plan(*program, reading.arguments);
    }
    return Plan::refused(readings.empty() ? result_file_not_found
                                          : result_of_absence(std::string(readings.front().program)));
}

Process_launcher*& launcher_in_use() {
    static Process_launcher host_launcher;
    static Process_launcher* in_use = &host_launcher;
    return in_use;
}

// The one that the next start belongs to; null for none.
End_watch*& awaiting_watch() {
    static End_watch* awaiting = nullptr;
    return awaiting;
}

std::function<void()>& done_while_waiting() {
    static std::function<void()> meanwhile;
    return meanwhile;
}

} // namespace

int plan_start(const std::string& command_line, Program_start& start) {
    Plan plan = plan_for(command_line);
    start = std::move(plan.start);
    return plan.result;
}

int Process_launcher::execute(const std::string& command_line, int /*show_state*/) {
    const Plan plan = plan_for(command_line);
    if (plan.result != result_started)
        return plan.result;
    End_watch* const watch = std::exchange(awaiting_watch(), nullptr);
    int ends[2];
    if (watch == nullptr || pipe2(ends, O_CLOEXEC | O_NONBLOCK) != 0)
        return start_detached(plan.start);
    const Host_handle told(ends[1]);
    Host_handle heard(ends[0]);
    const int result = start_detached(plan.start, told.get());
    if (result == result_started)
        watch->descriptor_ = heard.release();
    return result;
}

std::optional<int> Process_launcher::create_and_wait(const std::string& command_line, int /*show_state*/) {
    const Plan plan = plan_for(command_line);
    int exit_code = 0;
    if (plan.result != result_started)
        return std::nullopt;
    End_watch* const watch = std::exchange(awaiting_watch(), nullptr);
    if (start_and_wait(plan.start, exit_code, done_while_waiting()) != result_started)
        return std::nullopt;
    if (watch != nullptr)
        watch->waited_for_ = exit_code;
    return exit_code;
}

Process_launcher& launcher() {
    return *launcher_in_use();
}

Launcher_guard::Launcher_guard(Process_launcher& replacement)
    : previous_(std::exchange(launcher_in_use(), &replacement)) {}

Launcher_guard::~Launcher_guard() {
    launcher_in_use() = previous_;
}

End_watch::End_watch() {
    awaiting_watch() = this;
}

End_watch::~End_watch() {
    if (awaiting_watch() == this)
        awaiting_watch() = nullptr;
    if (descriptor_ >= 0)
        close(descriptor_);
}

std::optional<int> End_watch::take_end() {
    if (waited_for_)
        return std::exchange(waited_for_, std::nullopt);
    int code = 0;
    if (descriptor_ < 0 || read(descriptor_, &code, sizeof code) != sizeof code)
        return std::nullopt;
    return code;
}

Waiting_guard::Waiting_guard(std::function<void()> meanwhile)
    : previous_(std::exchange(done_while_waiting(), std::move(meanwhile))) {}

Waiting_guard::~Waiting_guard() {
    done_while_waiting() = std::move(previous_);
}

std::string set_program_file(const std::string& argument_0) {
    std::string path = argument_0.find('/') != std::string::npos ? argument_0 : find_tool(argument_0);
    if (path.empty())
        path = real_program_path();
    const std::string name = name_from_host_path(path);
    program_folder() = folder_part(name);
    return name;
}

} // namespace platform
