#include "toolkit/ruler.h"

#include <algorithm>

void TRuler::set_stretches(std::vector<Stretch> stretches) {
    for (Stretch& stretch : stretches)
        stretch.width = std::max(stretch.width, 0);
    assign(stretches_, stretches, Aspect::value);
}

int TRuler::width() const {
    int sum = 0;
    for (const Stretch& stretch : stretches_)
        sum += stretch.width;
    return sum;
}
