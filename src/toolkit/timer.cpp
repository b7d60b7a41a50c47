#include "toolkit/timer.h"

#include "toolkit/desktop.h"

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

void TTimer::fire() const {
    const bool held = current_desktop && current_desktop->holds_input();
    if (enabled_ && !held && on_timer)
        on_timer();
}
