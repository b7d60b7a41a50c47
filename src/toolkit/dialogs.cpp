#include "toolkit/dialogs.h"

#include "toolkit/desktop.h"
#include "toolkit/screen_language.h"

Modal_result message_box(const std::string& text, const std::string& title, Button_set buttons) {
    return current_desktop ? current_desktop->message_box({worded(title), worded_lines(text), buttons})
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

void TPopupMenu::popup(int rise) {
    TPopupMenu shown = *this;
    for (Menu_item& item : shown.items)
        item.text = worded(item.text);
    const int chosen = current_desktop ? current_desktop->choose(shown, rise) : -1;
    if (chosen >= 0 && chosen < static_cast<int>(items.size())) {
        // A copy: the menu may be changed by what it starts.
        const Menu_item item = items[static_cast<std::size_t>(chosen)];
        if (item.enabled && item.on_click)
            item.on_click();
    }
}
