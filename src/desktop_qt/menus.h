// Filling Qt's menus from plain items.
#pragma once

#include "desktop_qt/view.h"
#include "toolkit/menu.h"

class QAction;
class QMenu;

// Puts the items, and the sub-menus below, into an empty menu. `above` is the way to the menu itself.
void fill_menu(QMenu& menu, const std::vector<Menu_item>& items, const Item_path& above = {});
// The way to the item that an action stands for; empty for none.
Item_path path_of(const QAction* action);
