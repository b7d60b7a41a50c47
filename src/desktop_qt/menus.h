// Filling Qt's menus from plain items.
#pragma once

#include "desktop_qt/view.h"
#include "toolkit/menu.h"

class QAction;
class QMenu;

using Wording_of = std::function<std::string(const Menu_item& item)>;

// Puts the items, and the sub-menus below, into an empty menu, by the words that `shown` gives. `above` is
// the way to the menu itself.
void fill_menu(QMenu& menu, const std::vector<Menu_item>& items, const Wording_of& shown,
               const Wording_of& hint, const Item_path& above = {});
// The way to the item that an action stands for; empty for none.
Item_path path_of(const QAction* action);
