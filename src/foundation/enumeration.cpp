#include "foundation/enumeration.h"

#include "foundation/numbers.h"

namespace TESK {

std::string& Enumeration::label_to(std::string& buffer) const {
    buffer.clear();
    append_integer(buffer, get_int32());
    return buffer;
}

int Enumeration::compare(const Item& other) const {
    const auto* enumeration = dynamic_cast<const Enumeration*>(&other);
    if (enumeration == nullptr)
        return 0;
    const auto a = static_cast<std::uint32_t>(get_int32());
    const auto b = static_cast<std::uint32_t>(enumeration->get_int32());
    return a == b ? 0 : a < b ? -1 : 1;
}

Enumeration* Enumeration_list::find(std::uint32_t value) const {
    for (const auto* node = head_; node != nullptr; node = node->next) {
        auto* item = dynamic_cast<Enumeration*>(node->item.get());
        if (item != nullptr && static_cast<std::uint32_t>(item->get_int32()) == value)
            return item;
    }
    return nullptr;
}

bool Enumeration_list::remove_all(std::uint32_t value) {
    bool removed = false;
    while (Enumeration* item = find(value)) {
        remove(item);
        removed = true;
    }
    return removed;
}

} // namespace TESK
