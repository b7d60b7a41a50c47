// Fires at regular times while it is enabled. No control: a form has it as a member.
#pragma once

#include <functional>

class TTimer {
public:
    explicit TTimer(int interval) : interval_(interval) {}
    ~TTimer();
    TTimer(const TTimer&) = delete;
    TTimer& operator=(const TTimer&) = delete;

    // In milliseconds.
    int interval() const { return interval_; }
    bool enabled() const { return enabled_; }
    // Enabling lets the first time come one interval later.
    void set_enabled(bool enabled);
    // Lets the timer be enabled by whatever a user does, and fire once for it: what only looks whether
    // something has changed then costs nothing while the program is at rest.
    void follow_user_actions();
    // A user has acted on a control.
    static void user_acted();
    // What the desktop calls. A time that falls into a long operation is passed over.
    void fire();

    std::function<void()> on_timer;

private:
    int interval_;
    bool enabled_ = false;
    bool follows_actions_ = false;
};
