// Fires at regular times while it is enabled. No control: a form has it as a member.
#pragma once

#include <functional>

class TTimer {
public:
    explicit TTimer(int interval) : interval_(interval) {}
    ~TTimer() { set_enabled(false); }
    TTimer(const TTimer&) = delete;
    TTimer& operator=(const TTimer&) = delete;

    // In milliseconds.
    int interval() const { return interval_; }
    bool enabled() const { return enabled_; }
    // Enabling lets the first time come one interval later.
    void set_enabled(bool enabled);
    // What the desktop calls. A time that falls into a long operation is passed over.
    void fire() const;

    std::function<void()> on_timer;

private:
    int interval_;
    bool enabled_ = false;
};
