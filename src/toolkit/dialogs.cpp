#include "toolkit/dialogs.h"

#include "toolkit/desktop.h"

Modal_result message_box(const std::string& text, const std::string& title, Button_set buttons) {
    return current_desktop ? current_desktop->message_box({title, text, buttons}) : Modal_result::none;
}

void show_message(const std::string& text) {
    message_box(text, {}, Button_set::ok);
}

bool TFileDialog::execute() {
    return current_desktop && current_desktop->run_file_dialog(*this);
}

void TPopupMenu::popup(int rise) {
    const int chosen = current_desktop ? current_desktop->choose(*this, rise) : -1;
    if (chosen >= 0 && chosen < static_cast<int>(items.size())) {
        // A copy: the menu may be changed by what it starts.
        const Menu_item item = items[static_cast<std::size_t>(chosen)];
        if (item.enabled && item.on_click)
            item.on_click();
    }
}
