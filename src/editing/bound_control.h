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
