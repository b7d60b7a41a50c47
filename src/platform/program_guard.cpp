#include "platform/program_guard.h"

#include <cerrno>
#include <csignal>
#include <ctime>
#include <fcntl.h>
#include <new>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

namespace platform {

namespace {

void close_but(int kept) {
    if (kept > 0)
        close_range(0, static_cast<unsigned>(kept) - 1, 0);
    close_range(static_cast<unsigned>(kept) + 1, ~0U, 0);
}

} // namespace

Program_guard::Program_guard(std::size_t most, std::chrono::milliseconds grace) : most_(most) {
    int ends[2];
    void* const shared = mmap(nullptr, most * sizeof(std::atomic<pid_t>), PROT_READ | PROT_WRITE,
                              MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (shared == MAP_FAILED)
        return;
    marks_ = static_cast<std::atomic<pid_t>*>(shared);
    for (std::size_t i = 0; i < most; ++i)
        new (marks_ + i) std::atomic<pid_t>(0);
    if (pipe2(ends, O_CLOEXEC) != 0)
        return;
    const Host_handle guarded(ends[0]);
    life_line_ = Host_handle(ends[1]);
    sigset_t all;
    sigset_t previous;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &previous);
    guard_ = fork();
    if (guard_ == 0)
        stand_guard(guarded.get(), grace);
    pthread_sigmask(SIG_SETMASK, &previous, nullptr);
}

Program_guard::~Program_guard() {
    life_line_.close_now();
    int status = 0;
    if (guard_ > 0)
        while (waitpid(guard_, &status, 0) < 0 && errno == EINTR) {
        }
    if (marks_ != nullptr)
        munmap(marks_, most_ * sizeof(std::atomic<pid_t>));
}

std::atomic<pid_t>* Program_guard::free_mark() {
    for (std::size_t i = 0; marks_ != nullptr && i < most_; ++i)
        if (marks_[i].load() == 0)
            return marks_ + i;
    return nullptr;
}

// In a fork of a process that may have threads: nothing here allocates or locks. All signals stay blocked,
// and the session is another one, so that what ends the guarded process does not end the guard.
void Program_guard::stand_guard(int life_line, std::chrono::milliseconds grace) const {
    setsid();
    close_but(life_line);
    char byte = 0;
    while (read(life_line, &byte, 1) < 0 && errno == EINTR) {
    }
    bool any = false;
    for (std::size_t i = 0; i < most_; ++i) {
        const pid_t group = marks_[i].load();
        any = (group > 0 && kill(-group, SIGTERM) == 0) || any;
    }
    if (!any)
        _exit(0);
    const auto milliseconds = grace.count();
    timespec pause{milliseconds / 1000, milliseconds % 1000 * 1'000'000};
    nanosleep(&pause, nullptr);
    for (std::size_t i = 0; i < most_; ++i) {
        const pid_t group = marks_[i].load();
        if (group > 0)
            kill(-group, SIGKILL);
    }
    _exit(0);
}

} // namespace platform
