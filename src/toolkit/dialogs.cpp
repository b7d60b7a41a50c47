#include "toolkit/dialogs.h"

#include "toolkit/desktop.h"
#include "toolkit/screen_language.h"

Modal_result message_box(const std::string& text, const std::string& title, Button_set buttons,
                         Modal_result preset) {
    return current_desktop ? current_desktop->message_box({worded(title), worded_lines(text), buttons, preset})
                           : Modal_result::none;
}

void show_message(const std::string& text) {
    message_box(text, {}, Button_set::ok);
}

bool TFileDialog::execute() {
    if (!current_desktop)
        return false;
    const std::string native = std::exchange(title, worded(title));
    const bool chosen = current_desktop->run_file_dialog(*this);
    title = native;
    return chosen;
}
