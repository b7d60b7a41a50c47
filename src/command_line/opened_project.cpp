#include "command_line/opened_project.h"

#include "foundation/code_page_1252.h"
#include "operations/operation_outcome.h"
#include "operations/record_lines.h"
#include "platform/command_line.h"
#include "platform/current_directory.h"
#include "platform/files.h"
#include "platform/host_names.h"
#include "platform/moving.h"
#include "platform/process.h"
#include "records/vv_file.h"
#include "records/vv_text.h"
#include "trees/suite_directory.h"

namespace {

// The text that a save of the record would write of what it declares.
std::string text_to_save(Tilverra_project_editor_parameters& record) {
    TESK::VV_text text;
    text.set(record);
    return text.text();
}

void tell_interrupted_copy(Session& session, const platform::Undone_copy& undone) {
    if (!undone.was_interrupted)
        return;
    session.console.say(
        undone.not_put_back.empty()
            ? "Copying into the project's folder was interrupted, and what had been replaced was put back."
            : "Copying into the project's folder was interrupted. These files were replaced, and could not "
              "be "
              "put back:");
    for (const std::string& file : undone.not_put_back)
        session.console.say(screen_text(file));
}

// Puts the values by which the text of the record `now` differs from the one `before` into the text of the
// file. False when they stand otherwise there already, or a value is to go.
bool put_changes(const std::string& before, const std::string& now, std::string& text_in_file,
                 const std::string& primary_section) {
    const Record_lines old_lines(before, primary_section);
    const Record_lines new_lines(now, primary_section);
    for (const Record_line& line : old_lines.all())
        if (new_lines.find(line.section, line.key) == nullptr)
            return false;
    for (const Record_line& line : new_lines.all()) {
        const Record_line* const old_line = old_lines.find(line.section, line.key);
        if (old_line != nullptr && old_lines.value(*old_line) == new_lines.value(line))
            continue;
        const Record_lines lines(text_in_file, primary_section);
        const Record_line* const place = lines.find(line.section, line.key);
        if (place == nullptr || old_line == nullptr || lines.value(*place) != old_lines.value(*old_line))
            return false;
        text_in_file.replace(place->begin, place->end - place->begin,
                             now.substr(line.begin, line.end - line.begin));
    }
    return true;
}

const char* default_model(const Session& session) {
    find_suite(session);
    return suite_directory->get_tilverra_directory().get_model_exe().c_str();
}

} // namespace

void find_suite(const Session& session) {
    if (!session.suite_folder.empty() && !platform::is_folder(session.file_of_argument(session.suite_folder)))
        throw Command_failure(exit_unreachable, "There is no folder '" + session.suite_folder +
                                                    "' of a suite (--suite or TVS_SUITE).");
    // Some file of the suite serves to find it.
    const TESK::File_name program =
        session.suite_folder.empty()
            ? TESK::File_name(session.program_file.c_str())
            : TESK::File_name((session.file_of_argument(session.suite_folder) + "\\tvs_project").c_str());
    if (suite_directory == nullptr) // which lives as long as the process
        suite_directory = new TVS::Suite_Directory(program);
}

namespace {

// Why nothing can be found by the argument, as far as the drives are to blame; "" when they are not.
std::string drive_trouble(const TESK::File_name& file, const std::string& argument) {
    const std::string folder = platform::drives_folder();
    const std::string drives = folder.empty() ? "" : " in the folder of drives " + folder + " (TVS_DRIVES)";
    if (const std::string drive = platform::missing_drive(file); !drive.empty())
        return "There is no drive " + drive + drives + ", on which '" + argument + "' is to lie.";
    if (!platform::is_suite_name(argument) && platform::name_of_argument(argument).empty())
        return "'" + argument + "' lies on none of the drives" + drives + '.';
    return {};
}

} // namespace

TESK::File_name find_project_file(const Session& session, const std::string& argument) {
    TESK::File_name file = session.file_of_argument(argument);
    if (platform::is_folder(file)) {
        TESK::Directory_name folder(file.c_str());
        TESK::File_name inside;
        folder.append_to(".TVS_project", inside);
        file = platform::is_file(inside) ? inside : TESK::File_name((file + ".tvp").c_str());
    } else if (!platform::is_file(file)) {
        file = project_file_of(file);
    }
    if (!platform::is_file(file)) {
        if (const std::string trouble = drive_trouble(session.file_of_argument(argument), argument);
            !trouble.empty())
            throw Command_failure(exit_unreachable, trouble);
        throw Command_failure(exit_unreachable,
                              "There is no project '" + argument + "'. Name its file (*.tvp) or its folder.");
    }
    // Any text would be read as a project, and lose what is none by the next save.
    if (!file.has_ext("tvp") && !file.has_ext("TVS_project"))
        throw Command_failure(exit_unreachable,
                              "'" + argument + "' is no project. Name its file (*.tvp) or its folder.");
    return file;
}

void need_folder(const TESK::Smart_directory_name& folder) {
    platform::Write_result made;
    if (!platform::make_folders(folder, &made))
        throw Command_failure(exit_unreachable, "The folder " + screen_text(folder) +
                                                    " cannot be made: " + screen_text(made.reason));
    TESK::File_name inside;
    folder.append_to("x", inside);
    if (const platform::Write_result result = platform::permission_to_remove(inside); !result.ok())
        throw Command_failure(exit_unreachable, "The folder " + screen_text(folder) +
                                                    " cannot be written: " + screen_text(result.reason));
}

void enter_folder_of_names(const TESK::File_name& file) {
    TESK::Directory_name folder("");
    file.get_path(folder, true);
    const std::string name = folder.get_name(true);
    if (file.has_ext("tvp"))
        folder = TESK::without_extension(file);
    else if (TESK::equal_ignoring_case(name, "Scenarios") ||
             TESK::equal_ignoring_case(name, "Generated_scenarios"))
        TESK::File_name(folder.c_str()).get_path(folder, true);
    platform::change_directory(folder);
}

Opened_project::Opened_project(Session& session, const std::string& argument, If_interrupted if_interrupted)
    : session_(session), file_(find_project_file(session, argument)), record_(default_model(session)) {
    const TESK::Common_parameters_directory folder(file_, Directory_mode::project_folder, false);
    platform::change_directory(folder);
    tell_interrupted_copy(session, platform::undo_interrupted_copy(folder));
    if (const std::string reason = screen_text(told_interruption(file_)); !reason.empty()) {
        if (if_interrupted == If_interrupted::refused)
            throw Command_failure(exit_unreachable, screen_text(file_) + ": " + reason);
        session.console.say(screen_text(file_) + ": " + reason);
        session.note(exit_unreachable);
    }
    record_.set_preserve_unexpected(true);
    read();
    workspace_.emplace(record_, *this, record_.project_type.get());
    // Made here, it does not make the folder.
    workspace_->project_directory = std::make_unique<Tilverra_project_directory>(
        file_, static_cast<std::uint8_t>(record_.project_type.get()));
    workspace_->enter_project_folder();
}

TESK::File_name Opened_project::scenario_file(const std::string& file_name, Scenario_folder folder) const {
    TESK::File_name file;
    folder_of(folder).append_to(file_name.c_str(), file);
    return file;
}

Scenario_states& Opened_project::states() {
    if (!states_) {
        states_.emplace(directory(), directory().Runs);
        states_->refresh();
        for (const std::string& failure : states_->failures()) {
            session_.console.say(screen_text(failure));
            session_.note(exit_unreachable);
        }
    }
    return *states_;
}

void Opened_project::read() {
    platform::Read_result file = platform::read_file(file_, TESK::VV_file::largest_file);
    if (file.contents.find('\0') != std::string::npos)
        throw Command_failure(exit_unreachable, "The project " + screen_text(file_) + " holds no text.");
    if (!file.ok() || !TESK::VV_file(file_.c_str()).get(record_))
        throw Command_failure(exit_unreachable, "The project " + screen_text(file_) + " cannot be read.");
    text_in_file_ = std::move(file.contents);
    saved_text_ = text_to_save(record_);
}

bool Opened_project::save() {
    const std::string text = text_to_save(record_);
    if (text == saved_text_)
        return true;
    platform::Read_result now = platform::read_file(file_, TESK::VV_file::largest_file);
    std::string reason;
    if (!now.ok()) {
        reason = "The file cannot be read any more.";
    } else if (now.contents == text_in_file_) {
        TESK::VV_file file(file_.c_str());
        file.set(record_);
        reason = file.get_last_write().reason;
    } else if (put_changes(saved_text_, text, now.contents, record_.get_primary_section_name())) {
        reason = platform::write_file(file_, now.contents, platform::Durability::durable).reason;
    } else {
        reason = "Another program has changed the same in it since it was read.";
    }
    if (!reason.empty())
        throw Command_failure(exit_unreachable, "The project " + screen_text(file_) +
                                                    " could not be saved: " + screen_text(reason));
    read();
    return true;
}

bool Opened_project::run(const std::string& program, const std::string& options, const std::string& file,
                         const std::string& extra, bool wait, int show_state) {
    const std::string command = platform::program_command(program, options, file, extra);
    if (const std::string refusal = platform::refusal_of_command(command); !refusal.empty()) {
        session_.console.say(screen_text(refusal));
        session_.note(exit_found);
        return false;
    }
    bool started = false;
    if (wait) {
        const std::optional<int> exit_code = platform::launcher().create_and_wait(command, show_state);
        started = exit_code.has_value();
        if (exit_code.value_or(0) != 0)
            exit_code_ = *exit_code;
    } else {
        started = platform::launcher().execute(command, show_state) > 31;
    }
    if (!started) {
        session_.console.say("The program could not be started: " + screen_text(program));
        session_.note(exit_found);
    }
    return started;
}
