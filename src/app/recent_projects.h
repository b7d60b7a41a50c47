// The projects that were open of late, as items of a menu.
#pragma once

#include "toolkit/menu.h"

#include <functional>
#include <string>
#include <vector>

// An item for each of the latest projects, the newest first, which hands its file (in code page 1252) to
// `open`. What is gone, and `current`, the one that is open, cannot be chosen; the hint says why.
std::vector<Menu_item> recent_project_items(const std::string& current,
                                            const std::function<void(const std::string& file)>& open);
