#include "toolkit/splitter.h"

#include <algorithm>

void TSplitter::set_position(int position) {
    assign(position_, std::clamp(position, -1, 1000), Aspect::value);
}

bool TSplitter::move(int position) {
    if (!begin_action())
        return false;
    const int before = position_;
    set_position(std::max(position, 0));
    if (position_ != before && on_move)
        on_move();
    return true;
}
