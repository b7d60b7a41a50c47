#include "app/recent_projects.h"

#include "editing/bound_control.h"
#include "foundation/code_page_1252.h"
#include "names/directory_name.h"
#include "names/file_name.h"
#include "platform/listing.h"
#include "platform/shell.h"

namespace {

constexpr std::size_t most_shown = 12;
constexpr std::string_view shortcut_extension = ".lnk";

bool is_project(const std::string& name) {
    return platform::matches_mask(name, "*.tvp") || platform::matches_mask(name, "*.TVS_project");
}

// As it stands in a menu, where "&" marks a letter.
std::string in_menu(const std::string& text) {
    std::string shown;
    for (const char c : text)
        shown.append(c == '&' ? 2 : 1, c);
    return shown;
}

} // namespace

std::vector<Menu_item> recent_project_items(const std::string& current,
                                            const std::function<void(const std::string& file)>& open) {
    std::vector<Menu_item> items;
    for (const std::string& shortcut : platform::shell().recent_documents()) {
        std::string name = shortcut.substr(shortcut.rfind('\\') + 1);
        name.erase(name.size() - std::min(name.size(), shortcut_extension.size()));
        if (!is_project(name) || items.size() == most_shown)
            continue;
        const std::optional<std::string> file = platform::shell().resolve_shortcut(shortcut);
        Menu_item item;
        item.text_is_data = true;
        item.text = in_menu(screen_text(file ? *file : name));
        if (!file)
            item.hint = "This file is not there any more.";
        else if (TESK::equal_ignoring_case(*file, current))
            item.hint = "This project is open.";
        else
            item.on_click = [open, file] { open(*file); };
        item.enabled = item.hint.empty();
        items.push_back(std::move(item));
    }
    return items;
}
