// What a screen asks of the desktop beside being drawn.
#pragma once

#include "toolkit/form.h"

#include <string>

class Desktop {
public:
    virtual ~Desktop() = default;

    // Shows the form's window, or brings it to the front.
    virtual void show(TForm& form) = 0;
    // Shows the form's window before all others, and returns once the form is hidden again.
    virtual void run_modal(TForm& form) = 0;
};

// The desktop in use; null before there is one. Set by the entry, and by a Desktop_scope in tests.
extern Desktop* current_desktop;

// Makes a desktop the one in use, as long as the scope lives.
class Desktop_scope {
public:
    explicit Desktop_scope(Desktop& desktop) : before_(std::exchange(current_desktop, &desktop)) {}
    ~Desktop_scope() { current_desktop = before_; }
    Desktop_scope(const Desktop_scope&) = delete;
    Desktop_scope& operator=(const Desktop_scope&) = delete;

private:
    Desktop* before_;
};
