// What a screen asks the user beside its own controls: messages, file names, a choice from a menu.
#pragma once

#include "toolkit/form.h"
#include "toolkit/menu.h"

enum class Button_set { ok, ok_cancel, yes_no, yes_no_cancel, abort_retry_ignore };

struct Message {
    std::string title;
    std::string text;
    Button_set buttons = Button_set::ok;
    Modal_result preset = Modal_result::none; // the button that enter presses; none lets the desktop choose
};

// Shows a message and answers the button; closing it answers cancel, or no, or abort, or ok, by what there
// is. Where pressing enter too soon would lose something, `preset` names the harmless button.
Modal_result message_box(const std::string& text, const std::string& title, Button_set buttons,
                         Modal_result preset = Modal_result::none);
// A plain message, without a title of its own.
void show_message(const std::string& text);

// Asks for the name of a file. The fields say how to ask; a dialog that ended with OK has put the answer in.
// One kind of file that a file dialog offers.
struct File_kind {
    std::string description;
    std::vector<std::string> masks;
};

class TFileDialog {
public:
    enum class Purpose { open, save };

    explicit TFileDialog(Purpose asked_for = Purpose::open) : purpose(asked_for) {}

    // Answers whether a file was chosen.
    bool execute();
    // The kinds of file that the filter names: several masks behind a description are one kind, the one of
    // the default extension first.
    std::vector<File_kind> kinds() const;

    Purpose purpose;
    std::string title;
    // Descriptions, each with its wildcards behind it, "|" or ";" between all:
    // "Scenario (*.tvn)|*.old|*.tvn|All files (*.*)|*.*".
    std::string filter;
    std::string default_extension; // for a name without one; without point
    std::string initial_folder;
    std::string file_name;          // suggested, then chosen
    std::vector<std::string> files; // all that were chosen
    bool multi_select = false;
    bool must_exist = false;
};
