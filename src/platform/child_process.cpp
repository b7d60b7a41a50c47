#include "platform/child_process.h"

#include "platform/current_directory.h"
#include "platform/host_handle.h"
#include "platform/host_names.h"
#include "platform/process.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

extern char** environ;

namespace platform {

namespace {

constexpr int exit_code_unknown = -1;

int result_of(int error_number) {
    switch (error_number) {
    case 0: return result_started;
    case ENOTDIR:
    case ENAMETOOLONG:
    case ELOOP: return result_path_not_found;
    case EMFILE:
    case ENFILE: return result_too_many_open;
    case EACCES:
    case EPERM:
    case ETXTBSY: return result_access_denied;
    case ENOMEM:
    case EAGAIN:
    case E2BIG: return result_out_of_memory;
    default: return result_bad_format;
    }
}

std::vector<std::string> environment_for(const Program_start& start, const std::string& folder) {
    std::vector<std::string> environment = start.settings;
    // By this the child learns by which path, of several, its directory was reached.
    environment.push_back("PWD=" + folder);
    const std::size_t own = environment.size();
    for (char** variable = environ; *variable != nullptr; ++variable) {
        const std::string setting = *variable;
        const auto overrides = [&](const std::string& other) {
            return other.compare(0, other.find('='), setting, 0, setting.find('=')) == 0;
        };
        if (std::none_of(environment.begin(), environment.begin() + static_cast<std::ptrdiff_t>(own),
                         overrides))
            environment.push_back(setting);
    }
    return environment;
}

// All that execve() needs, made before the fork: in the child nothing may be allocated.
class Child_image {
public:
    // `folder`: the host path of the program's directory, in which take_over() expects to be.
    Child_image(const Program_start& start, const std::string& folder)
        : arguments_(start.arguments), environment_(environment_for(start, folder)),
          keeps_terminal_(start.keeps_terminal) {
        arguments_.insert(arguments_.begin(), start.path);
        argument_pointers_ = pointers_to(arguments_);
        environment_pointers_ = pointers_to(environment_);
    }

    bool keeps_terminal() const { return keeps_terminal_; }

    // Turns the calling process into the program; writes the error number to `report` when that fails.
    [[noreturn]] void take_over(int report) const;
    // The same for a process whose files are arranged; returns when it fails.
    void execute() const {
        execve(argument_pointers_[0], argument_pointers_.data(), environment_pointers_.data());
    }

private:
    static std::vector<char*> pointers_to(std::vector<std::string>& texts) {
        std::vector<char*> pointers;
        for (std::string& text : texts)
            pointers.push_back(text.data());
        pointers.push_back(nullptr);
        return pointers;
    }

    std::vector<std::string> arguments_;
    std::vector<std::string> environment_;
    std::vector<char*> argument_pointers_;
    std::vector<char*> environment_pointers_;
    bool keeps_terminal_;
};

void close_all_on_exec() {
#ifdef CLOSE_RANGE_CLOEXEC
    if (close_range(STDERR_FILENO + 1, ~0U, CLOSE_RANGE_CLOEXEC) == 0)
        return;
#endif
    for (int file = STDERR_FILENO + 1; file < sysconf(_SC_OPEN_MAX); ++file)
        fcntl(file, F_SETFD, FD_CLOEXEC);
}

void arrange_files(bool keeps_input) {
    close_all_on_exec();
    if (!keeps_input)
        close(STDIN_FILENO);
    // A standard stream that is closed would be taken by the first file that the program opens.
    for (int file = STDIN_FILENO; file <= STDERR_FILENO; ++file)
        if (fcntl(file, F_GETFD) < 0)
            open("/dev/null", O_RDWR);
}

// Signals must be blocked when this is called: a handler of this program may not run in the child.
void arrange_signals() {
    struct sigaction standard {};
    standard.sa_handler = SIG_DFL;
    for (int signal = 1; signal < NSIG; ++signal) {
        struct sigaction current {};
        const bool is_kept = sigaction(signal, nullptr, &current) != 0 ||
                             (current.sa_handler == SIG_IGN && signal != SIGPIPE && signal != SIGCHLD);
        if (!is_kept)
            sigaction(signal, &standard, nullptr);
    }
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
}

void write_error(int report, int error_number) {
    // Without a reader there is nobody left to tell.
    [[maybe_unused]] const ssize_t count = write(report, &error_number, sizeof error_number);
}

void Child_image::take_over(int report) const {
    const int above_standard = fcntl(report, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
    arrange_files(keeps_terminal_);
    arrange_signals();
    execute();
    write_error(above_standard < 0 ? report : above_standard, errno);
    _exit(127);
}

// 0 when the other end was closed by a program that has begun.
int read_error(const Host_handle& report) {
    int error_number = 0;
    ssize_t count = 0;
    do
        count = read(report.get(), &error_number, sizeof error_number);
    while (count < 0 && errno == EINTR);
    return count == sizeof error_number ? error_number : 0;
}

int wait_for(pid_t child) {
    int status = 0;
    pid_t ended = 0;
    do
        ended = waitpid(child, &status, 0);
    while (ended < 0 && errno == EINTR);
    if (ended != child)
        return exit_code_unknown;
    return WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
}

// Forks with all signals blocked in the child, which does `body` with the pipe for its error number.
template <class Body>
pid_t fork_child(int report, const Body& body) {
    sigset_t all;
    sigset_t previous;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &previous);
    const pid_t child = fork();
    if (child == 0)
        body(report);
    const int error_number = errno;
    pthread_sigmask(SIG_SETMASK, &previous, nullptr);
    errno = error_number;
    return child;
}

// Forks and waits until the program has begun or has failed to. Gives the error number.
template <class Body>
int start_child(pid_t& child, const Body& body) {
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0)
        return errno;
    const Host_handle reading(ends[0]);
    Host_handle writing(ends[1]);
    child = fork_child(writing.get(), body);
    if (child < 0)
        return errno;
    writing.close_now();
    return read_error(reading);
}

// The child of vfork() runs in the memory of this process, which stands still until the program has begun: no
// page is copied, however large this process is. It may only make system calls and set `error_number`.
[[gnu::noinline]] pid_t vfork_program(const Child_image& image, const Group_start& how, int input,
                                      volatile int& error_number) {
    const pid_t child = vfork();
    if (child != 0)
        return child;
    if (how.own_session)
        setsid();
    else
        setpgid(0, 0);
    if (how.mark != nullptr)
        how.mark->store(getpid());
    if (chdir(how.folder.c_str()) == 0 && dup2(input, STDIN_FILENO) >= 0 &&
        dup2(how.output, STDOUT_FILENO) >= 0 && dup2(how.output, STDERR_FILENO) >= 0) {
        close_all_on_exec();
        arrange_signals();
        image.execute();
    }
    error_number = errno;
    _exit(127);
}

// Calls until the child has ended, which is then still to be waited for.
void call_until_ended(pid_t child, const std::function<void()>& meanwhile) {
    constexpr int pause = 50; // milliseconds
    const Host_handle end(static_cast<int>(
        syscall(SYS_pidfd_open, child, 0))); // readable at the end; without it the pause just passes
    pollfd watched{end.get(), POLLIN, 0};
    siginfo_t ended{};
    while (waitid(P_PID, static_cast<id_t>(child), &ended, WEXITED | WNOHANG | WNOWAIT) == 0 &&
           ended.si_pid == 0) {
        meanwhile();
        poll(&watched, 1, pause);
    }
}

// Starts the program, waits for it, and tells how it ended.
[[noreturn]] void become_starter(const Child_image& image, int report, int end_report) {
    const pid_t program = fork();
    if (program == 0)
        image.take_over(report);
    if (program < 0) {
        write_error(report, errno);
        _exit(127);
    }
    dup2(end_report, STDIN_FILENO);
    if (close_range(STDOUT_FILENO, ~0U, 0) != 0)
        for (int file = STDOUT_FILENO; file < sysconf(_SC_OPEN_MAX); ++file)
            close(file);
    const int exit_code = wait_for(program);
    // Without a reader there is nobody left to tell.
    [[maybe_unused]] const ssize_t count = write(STDIN_FILENO, &exit_code, sizeof exit_code);
    _exit(0);
}

// A descriptor that is none of the three of the standard streams: dup2() would let it be closed on exec.
Host_handle above_standard_streams(int descriptor) {
    return Host_handle(fcntl(descriptor, F_DUPFD_CLOEXEC, STDERR_FILENO + 1));
}

} // namespace

int start_in_group(const Program_start& start, const Group_start& how, pid_t& child) {
    const Child_image image(start, how.folder);
    const Host_handle null(open("/dev/null", O_RDWR | O_CLOEXEC));
    const Host_handle input = above_standard_streams(how.input < 0 ? null.get() : how.input);
    const Host_handle output = above_standard_streams(how.output < 0 ? null.get() : how.output);
    Group_start placed = how;
    placed.output = output.get();

    sigset_t all;
    sigset_t previous;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &previous);
    volatile int error_number = 0;
    child = vfork_program(image, placed, input.get(), error_number);
    const int fork_error = errno;
    pthread_sigmask(SIG_SETMASK, &previous, nullptr);
    if (child < 0)
        return result_of(fork_error);
    if (error_number != 0) {
        wait_for(child);
        child = -1;
        if (how.mark != nullptr)
            how.mark->store(0);
    }
    return result_of(error_number);
}

int start_detached(const Program_start& start, int end_report) {
    const Child_image image(start, host_path(current_directory()));
    pid_t child = -1;
    // The grandchild is adopted by the host when the child ends, so nobody has to wait for it.
    const int error_number = start_child(child, [&](int report) {
        if (!image.keeps_terminal())
            setsid();
        const pid_t grandchild = fork();
        if (grandchild == 0 && end_report >= 0)
            become_starter(image, report, end_report);
        if (grandchild == 0)
            image.take_over(report);
        if (grandchild < 0)
            write_error(report, errno);
        _exit(0);
    });
    if (child > 0)
        wait_for(child);
    return result_of(error_number);
}

int start_and_wait(const Program_start& start, int& exit_code, const std::function<void()>& meanwhile) {
    const Child_image image(start, host_path(current_directory()));
    pid_t child = -1;
    const int error_number = start_child(child, [&](int report) { image.take_over(report); });
    if (child > 0 && meanwhile)
        call_until_ended(child, meanwhile);
    if (child > 0)
        exit_code = wait_for(child);
    return result_of(error_number);
}

} // namespace platform
