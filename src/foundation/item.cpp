#include "foundation/item.h"

#include "foundation/code_page_1252.h"

#include <cstring>

namespace TESK {

std::string& Item::label_to(std::string& buffer) const {
    buffer.clear();
    return buffer;
}

int Item::compare(const Item&) const {
    return 0;
}

std::ostream& Item::write(std::ostream& out) const {
    return out;
}

bool Item::setup_structure(Data_record&, bool) {
    return false;
}

bool Item::set_selected(bool) {
    return false;
}

bool Item::set_checked(bool) {
    return false;
}

std::string_view Item::get_key_view() const {
    const char* key = get_key();
    return key == nullptr ? std::string_view() : std::string_view(key);
}

std::string& Association::label_to(std::string& buffer) const {
    const char* key = get_key();
    return buffer.assign(key == nullptr ? "" : key);
}

int Association::compare(const Item& other) const {
    const char* key = get_key();
    const char* other_key = other.get_key();
    if (key == nullptr || other_key == nullptr)
        return -1;
    const auto* association = dynamic_cast<const Association*>(&other);
    if (is_key_case_sensitive() || (association != nullptr && association->is_key_case_sensitive())) {
        const int order = std::strcmp(key, other_key);
        return order == 0 ? 0 : order < 0 ? -1 : 1;
    }
    return compare_ignoring_case(key, other_key);
}

} // namespace TESK
