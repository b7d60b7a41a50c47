#include "command_line/end_signals.h"

namespace {

volatile std::sig_atomic_t asked_to_end = 0;

} // namespace

End_signals::End_signals(int flags) {
    struct sigaction action {};
    action.sa_handler = [](int) { asked_to_end = asked_to_end + 1; };
    action.sa_flags = flags;
    for (std::size_t i = 0; i < std::size(signals); ++i)
        sigaction(signals[i], &action, &old_[i]);
}

End_signals::~End_signals() {
    for (std::size_t i = 0; i < std::size(signals); ++i)
        sigaction(signals[i], &old_[i], nullptr);
}

int End_signals::asked() {
    return asked_to_end;
}
