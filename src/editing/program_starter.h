// Starts programs by the suite's command lines, and shows what was started on the page "Commands".
#pragma once

#include "foundation/ustring.h"
#include "names/directory_name.h"
#include "names/smart_file_name.h"
#include "toolkit/edit.h"
#include "toolkit/page_control.h"

#include <functional>
#include <string>

// How a window of a started program is to appear.
constexpr int show_normal = 1;
constexpr int show_maximised = 3;
constexpr int show_minimised = 6;

// Starts a program by a command line. Where a name in it cannot be handed to a program, the user is told and
// nothing is started. True when the program was started.
bool start_or_tell(const std::string& command_line, bool wait, int show_state);

// Each has the desktop do something with a file or a folder: opens it with what is registered for it, edits
// it so, or shows the folder. The user is told, and nothing is started, where the name cannot be handed over.
void open_or_tell(const TESK::Smart_file_name& file);
void edit_or_tell(const TESK::Smart_file_name& file);
void explore_or_tell(const TESK::Directory_name& folder);

class Program_starter {
public:
    explicit Program_starter(TTabSheet& commands);

    // Starts: "program" options "file" "extra". Null leaves out options or extra. With `wait` it ends when
    // the program has ended. True when the program was started.
    bool start(const std::string& program, const char* options, const std::string& file, const char* extra,
               bool wait, int show_state);

    const TESK::Ustring& get_command_line() const { return command; }

    // Tells in a line that a program was not started.
    std::function<void(const std::string& text)> on_notice;

    TMemo& command_history_memo;

private:
    TESK::Ustring command;     // the last one
    std::string last_refusal_; // of the last start; "" when there was nothing against it
};
