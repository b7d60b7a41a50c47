#include "foundation/text_list.h"

#include "foundation/code_page_1252.h"

#include <cstring>

namespace TESK {

Text_list::Text_list(const char* text, char separator) {
    if (text == nullptr)
        return;
    const std::size_t length = std::strlen(text);
    std::size_t start = 0;
    for (std::size_t i = 0; i < length; ++i) {
        // The character at which a piece ends never belongs to it, the last one of the text included.
        if (text[i] == separator || i + 1 == length) {
            append(new Item(std::string(text + start, i - start)));
            start = i + 1;
        }
    }
}

Text_list::Item* Text_list::find(const char* text, bool case_sensitive) const {
    for (const auto* node = head_; text != nullptr && node != nullptr; node = node->next) {
        auto* item = dynamic_cast<Item*>(node->item.get());
        if (item != nullptr && (case_sensitive ? *item == text : equal_ignoring_case(*item, text)))
            return item;
    }
    return nullptr;
}

std::string& Text_list::to_string(std::string& out) const {
    for (const auto* node = head_; node != nullptr; node = node->next)
        if (const auto* item = dynamic_cast<const Item*>(node->item.get()))
            out += *item;
    return out;
}

} // namespace TESK
