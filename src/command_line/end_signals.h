// The signals by which a user ends a program: while one of these lives, they ask for the end of what is going
// on, so that it can be told how far that came.
#pragma once

#include <csignal>
#include <iterator>

class End_signals {
public:
    // What sigaction() takes: SA_RESETHAND lets a second signal end the program at once.
    explicit End_signals(int flags = 0);
    End_signals(const End_signals&) = delete;
    End_signals& operator=(const End_signals&) = delete;
    ~End_signals();

    // How often it was asked for.
    static int asked();

private:
    static constexpr int signals[] = {SIGINT, SIGTERM, SIGHUP};
    struct sigaction old_[std::size(signals)]{};
};
