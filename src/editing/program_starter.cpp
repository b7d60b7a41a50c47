#include "editing/program_starter.h"

#include "editing/bound_control.h"
#include "editing/page_parts.h"
#include "platform/command_line.h"
#include "platform/process.h"
#include "toolkit/dialogs.h"
#include "toolkit/screen_language.h"

namespace {

constexpr int started_from = 31; // a start that answers less has failed

// Whether nothing speaks against a start; the user is told what does.
bool may_start(const std::string& refusal) {
    if (!refusal.empty())
        message_box(refusal, "Unable to start", Button_set::ok);
    return refusal.empty();
}

} // namespace

bool start_or_tell(const std::string& command_line, bool wait, int show_state) {
    if (!may_start(platform::refusal_of_command(command_line)))
        return false;
    return wait ? platform::launcher().create_and_wait(command_line, show_state).has_value()
                : platform::launcher().execute(command_line, show_state) >= started_from;
}

void open_or_tell(const TESK::Smart_file_name& file) {
    if (may_start(platform::refusal_of_name(file)))
        file.open();
}

void edit_or_tell(const TESK::Smart_file_name& file) {
    if (may_start(platform::refusal_of_name(file)))
        file.edit();
}

void explore_or_tell(const TESK::Directory_name& folder) {
    if (may_start(platform::refusal_of_name(folder)))
        folder.explore(false);
}

Program_starter::Program_starter(TTabSheet& commands)
    : command_history_memo([&commands]() -> TMemo& {
          add_note(
              commands, "label_command_history",
              "This is a record of the commands issued by the parameter editor during this edit session.");
          return fill(commands.add<TMemo>("command_history_memo"));
      }()) {
    command_history_memo.set_read_only(true);
    command_history_memo.set_fixed_pitch(true);
}

bool Program_starter::start(const std::string& program, const char* options, const std::string& file,
                            const char* extra, bool wait, int show_state) {
    command = platform::program_command(program, options == nullptr ? "" : options, file,
                                        extra == nullptr ? "" : extra);
    command_history_memo.append_line(screen_text(command));
    const std::string refusal = platform::refusal_of_command(command);
    const bool is_told = !refusal.empty() && refusal == last_refusal_;
    last_refusal_ = refusal;
    // In a batch, once is enough.
    const bool started = !is_told && start_or_tell(command, wait, show_state);
    if (!refusal.empty())
        command_history_memo.append_line(worded("The program was not started. %1", worded(refusal)));
    else if (!started)
        command_history_memo.append_line(
            worded("The program could not be started. Looked for: %1", screen_text(program)));
    if (!started && on_notice)
        on_notice(worded("Not started: %1; see Commands", screen_text(program)));
    return started;
}
