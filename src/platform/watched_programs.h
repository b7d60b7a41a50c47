// Programs that run beside this one, several at a time, looked after without a thread: their ends are
// noticed, what they print is taken from them, and they can be ended. A desktop's event loop watches one
// descriptor.
//
// Each program is the leader of a process group of its own. When it ends, whatever it has started in the
// group is ended too, and none of them outlives this process: a small guard process ends them when this one
// is gone, by whatever signal.
#pragma once

#include "platform/host_handle.h"
#include "platform/process.h"

#include <chrono>
#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <sys/types.h>
#include <vector>

namespace platform {

class Program_guard;

struct Program_end {
    enum class Cause { exited, signalled };
    Cause cause = Cause::exited;
    int code = 0;              // the exit code, or the signal's number
    bool was_asked = false;    // end() had been called
    bool was_too_slow = false; // its time had run out
};

class Watched_programs {
public:
    // Who is told; called from poll() alone.
    class Listener {
    public:
        virtual ~Listener() = default;
        // A piece of what the program wrote on its standard output and error.
        virtual void printed(std::size_t program, std::string_view bytes) = 0;
        virtual void ended(std::size_t program, const Program_end& end) = 0;
    };

    using Clock = std::chrono::steady_clock;

    // The listener outlives it. `most`: how many programs can run at a time. `grace`: how long after the
    // polite signal (SIGTERM) the hard one (SIGKILL) follows.
    Watched_programs(Listener& listener, std::size_t most, std::chrono::milliseconds grace);
    // Ends what still runs, without waiting for the grace, and tells nobody.
    ~Watched_programs();
    Watched_programs(const Watched_programs&) = delete;
    Watched_programs& operator=(const Watched_programs&) = delete;

    // Starts what the command line says, in the folder, as process.h tells; its standard input is empty.
    // `program` is the caller's number for it. Above `limit` it is ended; 0 for no limit. Gives
    // result_started or what is wrong.
    int start(std::size_t program, const std::string& command_line, const std::string& folder,
              std::chrono::milliseconds limit = std::chrono::milliseconds(0));

    std::size_t running() const { return programs_.size(); }
    bool has_room() const { return programs_.size() < most_; }

    // Readable when poll() has something to do; -1 when the host had none to give.
    int descriptor() const { return events_.get(); }
    // Does what can be done without waiting.
    void poll();
    // Waits until the descriptor is readable; not longer than the time.
    void wait(std::chrono::milliseconds longest) const;

    // Each asks for the end of programs, by the signals; poll() tells of it.
    void end(std::size_t program);
    void end_all();

private:
    struct Program;

    Program* find(pid_t number);
    void ask_to_end(Program& program);
    void take_output(Program& program);
    void notice_end(Program& program);
    void forget(Program& program);
    void check_times();
    void set_alarm();
    bool watch(int descriptor, pid_t number, bool is_output) const;

    Listener& listener_;
    std::size_t most_;
    std::chrono::milliseconds grace_;
    Host_handle events_;
    Host_handle alarm_;
    Clock::time_point alarm_time_ = Clock::time_point::max();
    std::unique_ptr<Program_guard> guard_;
    std::vector<std::unique_ptr<Program>> programs_;
};

} // namespace platform
