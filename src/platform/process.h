// Starting programs by a command line, whose names are the suite's. A test replaces the launcher for a scope.
//
// Which program:
// - The program part of a command line is what command_readings() says, the first that is a file. Where it
//   has no extension, it is tried with ".exe" first.
// - A name with a folder or a drive is that file. A bare name is looked for in the folder of this program,
//   among the host's tools (the absolute folders of PATH) and in the current directory.
// - "explorer" and "notepad", in any case, with or without ".exe" and a folder, are the host's file manager
//   and text editor. Of the file manager's switches "/n,", "/e," and "/root," have no effect, and with
//   "/select," the folder is shown that holds the name.
//
// How it starts is decided by what the file is:
// - A Windows program is started by "wine", in the prefix whose "dosdevices" are the drives in use. Where
//   they are not, or without wine, it is refused.
// - Anything else is started directly, as a native program or a script.
//
// What it gets:
// - A program of the suite gets its arguments as they stand, since it has the same names and drives. A host
//   tool gets host paths in place of names.
// - Its directory is this program's current one, its standard input is empty (a text editor that the user
//   chose by $VISUAL keeps the terminal), and it gets no other open file of this program. No shell is
//   involved.
// - A show state (as below; 3 maximised, 6 minimised) is a wish for which the host has no use.
#pragma once

#include <functional>
#include <optional>
#include <string>

namespace platform {

// How a start went: above 31 it is a success.
constexpr int result_file_not_found = 2;
constexpr int result_path_not_found = 3;
constexpr int result_too_many_open = 4;
constexpr int result_access_denied = 5;
constexpr int result_out_of_memory = 8;
constexpr int result_bad_format = 11; // not a program, or one that this host cannot run
constexpr int result_refused = 13;    // a name in the command line cannot be handed over (see command_line.h)
constexpr int result_no_association = 31;
constexpr int result_started = 33;

// The show states that are asked for most.
constexpr int normal_window = 1;
constexpr int shown_window = 5; // at the size and place that it has

class Process_launcher {
public:
    virtual ~Process_launcher() = default;

    // Starts a program that goes on by itself, and tells how that went. When it ends it leaves nothing
    // behind.
    virtual int execute(const std::string& command_line, int show_state);

    // Starts a program and waits for its end, however long that takes. Gives its exit code (128 and the
    // signal's number when a signal ended it), or nothing when it could not be started.
    virtual std::optional<int> create_and_wait(const std::string& command_line, int show_state);
};

// The launcher in use.
Process_launcher& launcher();

// Has another launcher in use while it lives.
class Launcher_guard {
public:
    explicit Launcher_guard(Process_launcher& replacement);
    Launcher_guard(const Launcher_guard&) = delete;
    Launcher_guard& operator=(const Launcher_guard&) = delete;
    ~Launcher_guard();

private:
    Process_launcher* previous_;
};

// Has something done, some twenty times a second, while create_and_wait() waits: painting, for instance. It
// does so while it lives; of several, the one made last counts.
class Waiting_guard {
public:
    explicit Waiting_guard(std::function<void()> meanwhile);
    Waiting_guard(const Waiting_guard&) = delete;
    Waiting_guard& operator=(const Waiting_guard&) = delete;
    ~Waiting_guard();

private:
    std::function<void()> previous_;
};

// Notices the end of the program that execute() or create_and_wait() starts next, the first one after this
// was made. One of execute() goes on by itself all the same, and outlives this process; something of it may
// wait for its end, and tells of it. Made one behind the other, not within one another.
class End_watch {
public:
    End_watch();
    ~End_watch();
    End_watch(const End_watch&) = delete;
    End_watch& operator=(const End_watch&) = delete;

    // Readable once the program has ended; negative as long as none has been started, and for one that was
    // waited for.
    int descriptor() const { return descriptor_; }
    // Its exit code (128 and the signal's number when a signal ended it) when it has ended since this was
    // last asked. Does not wait.
    std::optional<int> take_end();

private:
    friend class Process_launcher;
    int descriptor_ = -1;
    std::optional<int> waited_for_; // the exit code
};

// Tells by which command this program was started (argument 0 of its command line), and gives the full name
// of its file by that path, symbolic links unresolved. "" when no drive holds it.
std::string set_program_file(const std::string& argument_0);

} // namespace platform
