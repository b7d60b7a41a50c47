#include "toolkit/panel.h"

#include <algorithm>

void TContainer::set_layout(Layout layout, int columns) {
    layout_ = layout;
    columns_ = std::max(columns, 1);
}
