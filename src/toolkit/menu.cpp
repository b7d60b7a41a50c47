#include "toolkit/menu.h"

#include "toolkit/desktop.h"
#include "toolkit/mnemonics.h"
#include "toolkit/screen_language.h"

#include <algorithm>

namespace {

void update(Menu_item& item) {
    if (item.on_update)
        item.on_update(item);
}

Menu_item* item_of(std::vector<Menu_item>& items, int index) {
    return index >= 0 && index < static_cast<int>(items.size()) ? &items[static_cast<std::size_t>(index)]
                                                                : nullptr;
}

// The way to the enabled item of that shortcut.
bool find_shortcut(std::vector<Menu_item>& items, const std::string& shortcut, Item_path& path) {
    for (int index = 0; Menu_item* const item = item_of(items, index); ++index) {
        path.push_back(index);
        if (item->shortcut == shortcut) {
            update(*item);
            if (item->enabled)
                return true;
        }
        if (find_shortcut(item->items, shortcut, path))
            return true;
        path.pop_back();
    }
    return false;
}

} // namespace

void update_items(std::vector<Menu_item>& items) {
    for (Menu_item& item : items) {
        update(item);
        update_items(item.items);
    }
}

Item_path find_item(std::vector<Menu_item>& items, const std::string& texts) {
    Item_path path;
    std::vector<Menu_item>* among = &items;
    std::size_t begin = 0;
    for (;;) {
        const std::size_t end = std::min(texts.find('|', begin), texts.size());
        const std::string wanted = texts.substr(begin, end - begin);
        for (Menu_item& item : *among)
            update(item);
        const auto found = std::find_if(among->begin(), among->end(), [&](const Menu_item& item) {
            return without_mnemonic(item.text) == wanted;
        });
        if (found == among->end() || !found->enabled)
            return {};
        path.push_back(static_cast<int>(found - among->begin()));
        if (end == texts.size())
            return path;
        among = &found->items;
        begin = end + 1;
    }
}

Menu_item* item_at(std::vector<Menu_item>& items, const Item_path& path) {
    std::vector<Menu_item>* among = &items;
    Menu_item* item = nullptr;
    for (const int index : path) {
        item = item_of(*among, index);
        if (!item)
            return nullptr;
        among = &item->items;
    }
    return item;
}

std::string shown_text(const Menu_item& item) {
    return item.text_is_data ? item.text : worded(item.text);
}

void TPopupMenu::popup(int rise) {
    if (!current_desktop)
        return;
    if (Menu_item* const chosen = item_at(items, current_desktop->choose(*this, rise))) {
        // A copy: the menu may be changed by what it starts.
        const Menu_item item = *chosen;
        if (item.enabled && item.on_click)
            item.on_click();
    }
}

void TMainMenu::set_items(std::vector<Menu_item> items) {
    items_ = std::move(items);
    refresh_words();
    notify(Aspect::all_lines);
}

bool TMainMenu::refresh_words() {
    std::vector<std::string> captions;
    for (const Menu_item& item : items_)
        captions.push_back(shown_text(item));
    return assign(captions_, captions, Aspect::text);
}

bool TMainMenu::choose(const Item_path& path) {
    Menu_item* const item = item_at(items_, path);
    if (!item || !begin_action())
        return false;
    if (item->on_update)
        item->on_update(*item);
    if (!item->enabled || !item->on_click)
        return false;
    TForm* const holder = form();
    TControl* const had_focus = holder ? holder->focused_control() : nullptr;
    if (holder)
        holder->leave_focus();
    // A copy: the menu may be changed by what it starts. So may the controls: who had the focus may be gone.
    const std::function<void()> work = item->on_click;
    work();
    if (holder && holder->visible() && !holder->focused_control())
        holder->walk([&](TControl& control) {
            if (&control == had_focus)
                control.focus();
            return &control != had_focus;
        });
    return true;
}

bool TMainMenu::press_shortcut(const Key& key) {
    const std::string name = key_name(key);
    Item_path path;
    return !name.empty() && find_shortcut(items_, name, path) && choose(path);
}
