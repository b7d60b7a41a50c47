#include "editing/program_starter.h"

#include "editing/bound_control.h"
#include "editing/page_parts.h"
#include "platform/process.h"
#include "toolkit/screen_language.h"

namespace {

constexpr int started_from = 31; // a start that answers less has failed

std::string quoted(const std::string& text) {
    return '"' + text + "\" ";
}

} // namespace

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
    command = quoted(program);
    if (options != nullptr)
        command += options;
    command += ' ' + quoted(file);
    if (extra != nullptr && *extra != '\0')
        command += quoted(extra);
    command_history_memo.append_line(screen_text(command));
    const bool started = wait ? platform::launcher().create_and_wait(command, show_state).has_value()
                              : platform::launcher().execute(command, show_state) >= started_from;
    if (!started)
        command_history_memo.append_line(
            worded("The program could not be started. Looked for: %1", screen_text(program)));
    return started;
}
