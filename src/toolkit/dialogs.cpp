#include "toolkit/dialogs.h"

#include "toolkit/desktop.h"
#include "toolkit/open_dialog.h"
#include "toolkit/screen_language.h"

#include <algorithm>

Modal_result message_box(const std::string& text, const std::string& title, Button_set buttons,
                         Modal_result preset) {
    const Open_dialog open;
    return current_desktop
               ? current_desktop->message_box({worded(title), worded_lines(text), buttons, preset})
               : Modal_result::none;
}

void show_message(const std::string& text) {
    message_box(text, {}, Button_set::ok);
}

bool TFileDialog::execute() {
    if (!current_desktop)
        return false;
    const Open_dialog open;
    const std::string native = std::exchange(title, worded(title));
    const bool chosen = current_desktop->run_file_dialog(*this);
    title = native;
    return chosen;
}

std::vector<File_kind> TFileDialog::kinds() const {
    std::vector<File_kind> found;
    for (std::size_t start = 0; start < filter.size();) {
        const std::size_t end = std::min(filter.find_first_of("|;", start), filter.size());
        const std::string part = filter.substr(start, end - start);
        if (part.starts_with('*') && !found.empty())
            found.back().masks.push_back(part);
        else if (!part.empty())
            found.push_back({part, {}});
        start = end + 1;
    }
    const std::string preferred = "*." + default_extension;
    for (File_kind& kind : found)
        std::stable_partition(kind.masks.begin(), kind.masks.end(),
                              [&](const std::string& mask) { return mask == preferred; });
    return found;
}
