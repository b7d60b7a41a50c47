// What a screen asks of the desktop beside being drawn.
#pragma once

#include "toolkit/dialogs.h"

class TDescriptor_watch;
class TTimer;

class Desktop {
public:
    virtual ~Desktop() = default;

    // Shows the form's window, or brings it to the front.
    virtual void show(TForm& form) = 0;
    // Shows the form's window before all others, and returns once the form is hidden again.
    virtual void run_modal(TForm& form) = 0;
    // Shows the form and lets the user work, until the form is hidden. What a handler throws comes out here.
    virtual void run(TForm& main_form) = 0;

    virtual Modal_result message_box(const Message& message) = 0;
    // Fills in what was chosen; false when nothing was.
    virtual bool run_file_dialog(TFileDialog& dialog) = 0;
    // Which item was chosen, as find_item takes it; empty for none.
    virtual Item_path choose(TPopupMenu& menu, int rise) = 0;

    // Lets what changed be painted during a long operation. What the user does meanwhile has no effect,
    // except closing a window: the answer is false from then on, the operation should end early, and the
    // window closes behind it.
    bool process_messages();
    // The user wants no window closed after all: process_messages() answers true again.
    virtual void stay_open() = 0;
    bool holds_input() const { return holds_input_; }
    // The pointer that tells the user to wait; calls nest.
    virtual void set_busy(bool busy) = 0;
    virtual void minimise() = 0;
    virtual void restore() = 0;

    virtual void start_timer(TTimer& timer) = 0;
    virtual void stop_timer(TTimer& timer) = 0;
    virtual void start_watch(TDescriptor_watch& watch) = 0;
    virtual void stop_watch(TDescriptor_watch& watch) = 0;

    // The text that was copied last, here or in another program, in UTF-8; empty for none.
    virtual std::string clipboard_text() const = 0;
    virtual void set_clipboard_text(const std::string& text) = 0;

    // Has what the desktop itself says (the menus of edits, the dialogs of files) appear in the language of
    // that code, where it knows it; "" and unknown ones bring its own words back.
    virtual void use_language(const std::string& code) = 0;

    // Hands an address on the web to the user's browser.
    virtual void open_web_address(const std::string& address) = 0;

protected:
    // Paints; answers false once the user wants to close a window.
    virtual bool paint_pending() = 0;

private:
    bool holds_input_ = false;
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

// Shows the busy pointer as long as the scope lives.
class Busy_pointer {
public:
    Busy_pointer() : desktop_(current_desktop) {
        if (desktop_)
            desktop_->set_busy(true);
    }
    ~Busy_pointer() {
        if (desktop_)
            desktop_->set_busy(false);
    }
    Busy_pointer(const Busy_pointer&) = delete;
    Busy_pointer& operator=(const Busy_pointer&) = delete;

private:
    Desktop* desktop_;
};
