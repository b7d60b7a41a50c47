// Tells when a descriptor of the host (a pipe, a socket, the notices of changes in a folder) has something to
// read, so that nobody has to ask again and again. No control: a form has it as a member.
#pragma once

#include <functional>

class TDescriptor_watch {
public:
    // The descriptor stays open, and somebody else's, as long as the watch is enabled.
    explicit TDescriptor_watch(int descriptor) : descriptor_(descriptor) {}
    ~TDescriptor_watch() { set_enabled(false); }
    TDescriptor_watch(const TDescriptor_watch&) = delete;
    TDescriptor_watch& operator=(const TDescriptor_watch&) = delete;

    int descriptor() const { return descriptor_; }
    bool enabled() const { return enabled_; }
    void set_enabled(bool enabled);
    // What the desktop calls. During a long operation nothing is told: what is left unread is told behind it.
    void fire() const;

    std::function<void()> on_ready; // is to read what there is, or is told again at once

private:
    int descriptor_;
    bool enabled_ = false;
};
