// What the controls that are bound to a field of a record have in common: the control shows the field, and
// the field follows what the user does. The field outlives the control or the binding.
#pragma once

#include "names/smart_file_name.h"
#include "toolkit/control.h"

#include <optional>
#include <string>

// The colours of a control with the focus and of one that is disabled.
constexpr Colour focus_colour = 0xdcffff;
constexpr Colour disabled_colour = 0xc0c0c0;

// Text of a record on the screen, and back: without the characters that a record cannot hold.
std::string screen_text(const std::string& record_text);
std::string record_text(const std::string& screen_text);

// What remains of a text that is typed into a field of a record.
std::string typable_text(const std::string& screen_text);

// Says that a record cannot hold these characters, in the user's language.
std::string untypable(const std::string& refused);

// Brings what holds a control in line with the value that the control left behind.
void update_parent_of(const TControl& control);

// The address of the help on a control.
class Help_link {
public:
    // Null leaves the address that there is.
    void set(const char* help_URL);
    // Null while there is none.
    const TESK::Smart_file_name* get_help_URL() const { return help_URL_ ? &*help_URL_ : nullptr; }
    // Opens the page, when it is a file that exists or an address on the web.
    void open();

private:
    std::optional<TESK::Smart_file_name> help_URL_;
};

// What is chosen, not typed: when the focus leaves a control that is bound, the value and what holds the
// control follow once more, as with an edit.
template <class Choice>
class TAutoChoice : public Choice, public Help_link {
public:
    using Choice::Choice;

    // The control to the value. Does nothing while nothing is bound.
    virtual void update_value() {}
    virtual bool is_bound() const = 0;

protected:
    void do_exit() override {
        if (is_bound()) {
            leave();
            update_parent_of(*this);
        }
        Choice::do_exit();
    }
    virtual void leave() { update_value(); }
};
