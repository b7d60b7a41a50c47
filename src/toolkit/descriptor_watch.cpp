#include "toolkit/descriptor_watch.h"

#include "toolkit/desktop.h"

void TDescriptor_watch::set_enabled(bool enabled) {
    if (enabled == enabled_)
        return;
    enabled_ = enabled;
    if (current_desktop) {
        if (enabled)
            current_desktop->start_watch(*this);
        else
            current_desktop->stop_watch(*this);
    }
}

void TDescriptor_watch::fire() const {
    const bool held = current_desktop && current_desktop->holds_input();
    if (enabled_ && !held && on_ready)
        on_ready();
}
