// Tells whether something waits for the user's answer, while what called for it is still at work.
#pragma once

// A message, a dialog, a menu or a form shown as a dialog: open as long as this lives.
class Open_dialog {
public:
    Open_dialog() { ++count_; }
    Open_dialog(const Open_dialog&) = delete;
    Open_dialog& operator=(const Open_dialog&) = delete;
    ~Open_dialog() { --count_; }

    static bool is_any_open() { return count_ > 0; }

private:
    static inline int count_ = 0;
};
