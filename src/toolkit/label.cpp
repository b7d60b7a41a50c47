#include "toolkit/label.h"

#include <algorithm>

void TProgressBar::set_position(int position) {
    assign(position_, std::clamp(position, 0, maximum_), Aspect::value);
}

void TProgressBar::set_maximum(int maximum) {
    assign(maximum_, std::max(maximum, 0), Aspect::value);
    set_position(position_);
}
