#include "toolkit/timer.h"

#include "toolkit/desktop.h"

#include <vector>

namespace {

std::vector<TTimer*> followers; // the timers that follow what users do

} // namespace

TTimer::~TTimer() {
    set_enabled(false);
    std::erase(followers, this);
}

void TTimer::set_enabled(bool enabled) {
    if (enabled == enabled_)
        return;
    enabled_ = enabled;
    if (current_desktop) {
        if (enabled)
            current_desktop->start_timer(*this);
        else
            current_desktop->stop_timer(*this);
    }
}

void TTimer::follow_user_actions() {
    if (!follows_actions_)
        followers.push_back(this);
    follows_actions_ = true;
}

void TTimer::user_acted() {
    for (TTimer* const timer : followers)
        timer->set_enabled(true);
}

void TTimer::fire() {
    const bool held = current_desktop && current_desktop->holds_input();
    if (!enabled_ || held)
        return;
    if (follows_actions_)
        set_enabled(false);
    if (on_timer)
        on_timer();
}
