// Menus: the bar at the top of a form, and menus that come up at the pointer. Both are made of plain items.
#pragma once

#include "toolkit/control.h"

struct Menu_item {
    std::string text{};               // "&" before the letter that chooses it; "-" is a line between others
    std::function<void()> on_click{}; // none for a sub-menu
    bool enabled = true;
    std::string shortcut{}; // as key_name gives it; only in a form's menu
    std::string hint{};
    bool checkable = false;
    bool checked = false;
    bool text_is_data = false; // a file's name or the like, never translated
    std::vector<Menu_item> items{};
    // Brings the other fields up to date, each time before the item is shown or chosen.
    std::function<void(Menu_item& item)> on_update{};
};

// The way to an item: its index in the menu, then in each sub-menu on the way. Empty for none.
using Item_path = std::vector<int>;

// Brings the items and all below up to date.
void update_items(std::vector<Menu_item>& items);
// The way to "File|Save", without "&"; empty where there is none, or where it or a menu on the way is
// disabled. What is on the way is brought up to date.
Item_path find_item(std::vector<Menu_item>& items, const std::string& texts);
// The item at the end of the way, or null.
Menu_item* item_at(std::vector<Menu_item>& items, const Item_path& path);
// The text of the item in the user's language.
std::string shown_text(const Menu_item& item);

class TPopupMenu {
public:
    // Shows the menu at the pointer, `rise` desktop units above it, and runs what is chosen.
    void popup(int rise = 0);

    std::vector<Menu_item> items;
};

// The bar of a form: its items are the menus. Added to the form, it takes no place among the other controls.
class TMainMenu : public TControl {
public:
    explicit TMainMenu(std::string name) : TControl(Control_kind::main_menu, std::move(name)) {}

    std::vector<Menu_item>& items() { return items_; }
    void set_items(std::vector<Menu_item> items);
    // Shows the captions in the user's language anew; false where nothing changed. What is below a caption is
    // worded whenever it is opened.
    bool refresh_words();

    // What a user does. What has the focus is left first, so that what was typed there is complete, and gets
    // it back afterwards.
    bool choose(const std::string& texts) { return choose(find_item(items_, texts)); }
    bool choose(const Item_path& path);
    // Chooses the item of that shortcut; false when there is none, or it is disabled.
    bool press_shortcut(const Key& key);

private:
    std::vector<Menu_item> items_;
    std::vector<std::string> captions_; // as they were last shown
};
