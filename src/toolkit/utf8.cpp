#include "toolkit/utf8.h"

#include <algorithm>

namespace utf8 {

int length(std::string_view text) {
    return static_cast<int>(
        std::count_if(text.begin(), text.end(), [](char byte) { return !is_continuation(byte); }));
}

std::size_t offset(std::string_view text, int index) {
    std::size_t byte = 0;
    for (; byte < text.size(); ++byte)
        if (!is_continuation(text[byte]) && index-- <= 0)
            return byte;
    return byte;
}

} // namespace utf8
