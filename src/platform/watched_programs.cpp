#include "platform/watched_programs.h"

#include "platform/child_process.h"
#include "platform/host_names.h"
#include "platform/process_status.h"
#include "platform/program_guard.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <optional>
#include <poll.h>
#include <sys/epoll.h>
#include <sys/syscall.h>
#include <sys/timerfd.h>
#include <sys/wait.h>
#include <unistd.h>

namespace platform {

namespace {

constexpr std::chrono::milliseconds leftover_check(50);

// What an event is about: the number of the process, and one bit.
constexpr std::uint64_t output_event = 1;
constexpr std::uint64_t alarm_event = 0;

std::uint64_t event_key(pid_t number, bool is_output) {
    return (static_cast<std::uint64_t>(number) << 1) | (is_output ? output_event : 0);
}

} // namespace

struct Watched_programs::Program {
    std::size_t caller_number = 0;
    pid_t number = -1;
    Host_handle process;
    Host_handle output;
    std::atomic<pid_t>* mark = nullptr;
    Clock::time_point limit = Clock::time_point::max();
    Clock::time_point hard_end = Clock::time_point::max();
    Program_end end;
    bool is_over = false; // its own end was noticed; what it has started is still there
    bool was_asked = false;
    bool was_too_slow = false;
};

Watched_programs::Watched_programs(Listener& listener, std::size_t most, std::chrono::milliseconds grace)
    : listener_(listener), most_(std::max<std::size_t>(most, 1)), grace_(grace),
      events_(epoll_create1(EPOLL_CLOEXEC)),
      alarm_(timerfd_create(CLOCK_MONOTONIC, TFD_CLOEXEC | TFD_NONBLOCK)),
      guard_(std::make_unique<Program_guard>(most_, grace)) {
    epoll_event event{};
    event.events = EPOLLIN;
    event.data.u64 = alarm_event;
    epoll_ctl(events_.get(), EPOLL_CTL_ADD, alarm_.get(), &event);
}

Watched_programs::~Watched_programs() {
    for (const auto& program : programs_) {
        kill(-program->number, SIGKILL);
        siginfo_t info{};
        if (!program->is_over)
            waitid(P_PID, static_cast<id_t>(program->number), &info, WEXITED);
        if (program->mark != nullptr)
            program->mark->store(0);
    }
}

bool Watched_programs::watch(int descriptor, pid_t number, bool is_output) const {
    epoll_event event{};
    event.events = EPOLLIN;
    event.data.u64 = event_key(number, is_output);
    return epoll_ctl(events_.get(), EPOLL_CTL_ADD, descriptor, &event) == 0;
}

int Watched_programs::start(std::size_t caller_number, const std::string& command_line,
                            const std::string& folder, std::chrono::milliseconds limit) {
    Program_start start;
    if (const int result = plan_start(command_line, start); result != result_started)
        return result;
    auto program = std::make_unique<Program>();
    int ends[2];
    program->mark = guard_->free_mark();
    // Without a guard nothing is started: it could not be stopped for certain.
    if (program->mark == nullptr || pipe2(ends, O_CLOEXEC) != 0)
        return result_too_many_open;
    program->output = Host_handle(ends[0]);
    const Host_handle writing(ends[1]);
    fcntl(program->output.get(), F_SETFL, O_NONBLOCK);

    Group_start how;
    how.folder = host_path(folder);
    how.output = writing.get();
    how.mark = program->mark;
    if (const int result = start_in_group(start, how, program->number); result != result_started)
        return result;
    program->caller_number = caller_number;
    program->process = Host_handle(static_cast<int>(syscall(SYS_pidfd_open, program->number, 0)));
    if (limit.count() > 0)
        program->limit = Clock::now() + limit;
    const bool is_watched = program->process.is_open() &&
                            watch(program->process.get(), program->number, false) &&
                            watch(program->output.get(), program->number, true);
    programs_.push_back(std::move(program));
    if (!is_watched) {
        Program& unwatched = *programs_.back();
        kill(-unwatched.number, SIGKILL);
        siginfo_t info{};
        waitid(P_PID, static_cast<id_t>(unwatched.number), &info, WEXITED);
        forget(unwatched);
        return result_too_many_open;
    }
    if (limit.count() > 0)
        set_alarm();
    return result_started;
}

Watched_programs::Program* Watched_programs::find(pid_t number) {
    const auto found = std::find_if(programs_.begin(), programs_.end(),
                                    [&](const auto& program) { return program->number == number; });
    return found == programs_.end() ? nullptr : found->get();
}

void Watched_programs::take_output(Program& program) {
    std::array<char, 16384> bytes;
    // A program that never stops printing is not to keep the others waiting.
    constexpr int most_pieces = 16;
    for (int piece = 0; piece < most_pieces && program.output.is_open(); ++piece) {
        const ssize_t count = read(program.output.get(), bytes.data(), bytes.size());
        if (count > 0)
            listener_.printed(program.caller_number, {bytes.data(), static_cast<std::size_t>(count)});
        else if (count == 0)
            program.output.close_now();
        else if (errno != EINTR)
            return;
    }
}

void Watched_programs::notice_end(Program& program) {
    siginfo_t info{};
    if (program.is_over || waitid(P_PID, static_cast<id_t>(program.number), &info, WEXITED | WNOHANG) != 0 ||
        info.si_pid == 0)
        return;
    program.end.cause =
        info.si_code == CLD_EXITED ? Program_end::Cause::exited : Program_end::Cause::signalled;
    program.end.code = info.si_status;
    program.end.was_asked = program.was_asked;
    program.end.was_too_slow = program.was_too_slow;
    program.is_over = true;
    program.process.close_now();
    program.limit = Clock::time_point::max();
    // As long as there are others in the group, its number is given to nobody else.
    if (kill(-program.number, SIGTERM) == 0) {
        program.hard_end = Clock::now() + grace_;
        set_alarm();
    } else {
        forget(program);
    }
}

// Tells of an end, when there was one, and drops the program.
void Watched_programs::forget(Program& program) {
    const auto place = std::find_if(programs_.begin(), programs_.end(),
                                    [&](const auto& other) { return other.get() == &program; });
    const std::unique_ptr<Program> ended = std::move(*place);
    std::swap(*place, programs_.back());
    programs_.pop_back();
    ended->mark->store(0);
    if (!ended->is_over)
        return;
    take_output(*ended);
    listener_.ended(ended->caller_number, ended->end);
}

void Watched_programs::ask_to_end(Program& program) {
    if (program.hard_end != Clock::time_point::max())
        return;
    kill(-program.number, SIGTERM);
    // One that is stopped gets no polite signal before it goes on.
    kill(-program.number, SIGCONT);
    program.hard_end = Clock::now() + grace_;
    set_alarm();
}

void Watched_programs::end(std::size_t caller_number) {
    for (const auto& program : programs_) {
        if (program->caller_number != caller_number || program->is_over)
            continue;
        program->was_asked = true;
        ask_to_end(*program);
    }
}

void Watched_programs::end_all() {
    for (const auto& program : programs_) {
        if (program->is_over)
            continue;
        program->was_asked = true;
        ask_to_end(*program);
    }
}

void Watched_programs::check_times() {
    std::vector<pid_t> numbers;
    for (const auto& program : programs_)
        numbers.push_back(program->number);
    const Clock::time_point now = Clock::now();
    for (const pid_t number : numbers) {
        Program& program = *find(number);
        if (now >= program.limit) {
            program.limit = Clock::time_point::max();
            program.was_too_slow = true;
            ask_to_end(program);
        }
        if (now >= program.hard_end)
            kill(-number, SIGKILL);
        if (program.is_over && (now >= program.hard_end || !is_group_alive(number)))
            forget(program);
    }
    set_alarm();
}

void Watched_programs::set_alarm() {
    Clock::time_point next = Clock::time_point::max();
    const Clock::time_point now = Clock::now();
    for (const auto& program : programs_) {
        // The hard signal is given once more as long as the program is there.
        const auto hard_end = std::max(program->hard_end, now + leftover_check);
        const auto wake = program->is_over ? now + leftover_check : hard_end;
        next = std::min({next, program->limit, program->hard_end == Clock::time_point::max() ? next : wake});
    }
    if (next == alarm_time_)
        return;
    alarm_time_ = next;
    itimerspec time{};
    if (next != Clock::time_point::max()) {
        const auto pause = std::max(next - now, Clock::duration(1));
        const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(pause);
        time.it_value.tv_sec = seconds.count();
        time.it_value.tv_nsec = std::chrono::nanoseconds(pause - seconds).count();
    }
    timerfd_settime(alarm_.get(), 0, &time, nullptr);
}

void Watched_programs::poll() {
    std::array<epoll_event, 64> events;
    const int count = epoll_wait(events_.get(), events.data(), static_cast<int>(events.size()), 0);
    bool is_alarm = false;
    for (int i = 0; i < count; ++i) {
        const std::uint64_t key = events[static_cast<std::size_t>(i)].data.u64;
        if (key == alarm_event) {
            std::uint64_t expirations = 0;
            is_alarm = read(alarm_.get(), &expirations, sizeof expirations) > 0 || is_alarm;
            continue;
        }
        // One that ended a moment ago may be gone already.
        Program* const program = find(static_cast<pid_t>(key >> 1));
        if (program != nullptr && (key & output_event) != 0)
            take_output(*program);
        else if (program != nullptr)
            notice_end(*program);
    }
    if (is_alarm) {
        alarm_time_ = Clock::time_point::max();
        check_times();
    }
}

void Watched_programs::wait(std::chrono::milliseconds longest) const {
    pollfd watched{events_.get(), POLLIN, 0};
    ::poll(&watched, 1, static_cast<int>(longest.count()));
}

} // namespace platform
