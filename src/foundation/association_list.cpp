#include "foundation/association_list.h"

#include "foundation/code_page_1252.h"

namespace TESK {

namespace {

bool equal_keys(std::string_view a, std::string_view b, bool case_sensitive) {
    return case_sensitive ? a == b : equal_ignoring_case(a, b);
}

} // namespace

bool Association_list::refuses(const Item* item) const {
    return unique_keys_ && item != nullptr && find(item->get_key(), true) != nullptr;
}

Item* Association_list::append(Item* item) {
    return refuses(item) ? nullptr : Bidirectional_list::append(item);
}

Item* Association_list::prepend(Item* item) {
    return refuses(item) ? nullptr : Bidirectional_list::prepend(item);
}

bool Association_list::remove_all(const char* key, bool case_sensitive) {
    bool removed = false;
    while (Item* item = find(key, case_sensitive)) {
        remove(item);
        removed = true;
    }
    return removed;
}

Item* Association_list::find(const char* key, bool case_sensitive) const {
    if (key == nullptr)
        return nullptr;
    const std::string_view wanted = key;
    for (const auto* node = head_; node != nullptr; node = node->next) {
        const char* node_key = node->item->get_key();
        if (node_key == nullptr)
            return nullptr;
        if (equal_keys(node_key, wanted, case_sensitive))
            return node->item.get();
    }
    return nullptr;
}

Item* Alias_association_list::append(Item* item) {
    Item* appended = Association_list::append(item);
    // Only an index that lacks nothing but this item can take it.
    if (appended != nullptr && index_changes_ + 1 == changes_) {
        index(*appended);
        index_changes_ = changes_;
    }
    return appended;
}

Item* Alias_association_list::find(const char* key, bool case_sensitive) const {
    if (key == nullptr)
        return nullptr;
    if (case_sensitive)
        return find_exact(key);
    if (Item* item = Association_list::find(key, false))
        return item;
    const Alias* alias = find_alias_ignoring_case(key);
    return alias == nullptr ? nullptr : Association_list::find(alias->get_actual(), false);
}

Item* Alias_association_list::find_exact(std::string_view key) const {
    const Item* item = find_indexed(key);
    if (item == nullptr) {
        const auto alias = alias_index_.find(key);
        if (alias != alias_index_.end())
            item = find_indexed(alias->second->get_actual());
    }
    return const_cast<Item*>(item);
}

void Alias_association_list::add_alias(const char* actual, const char* alias) {
    const auto* added = new Alias(actual, alias);
    aliases_.append(const_cast<Alias*>(added));
    alias_index_.try_emplace(added->get_alias(), added);
}

void Alias_association_list::delete_aliases() {
    alias_index_.clear();
    aliases_.delete_all(Item_filter::all);
}

const Item* Alias_association_list::find_indexed(std::string_view key) const {
    if (index_changes_ != changes_) {
        index_.clear();
        index_ends_at_null_ = false;
        for (const auto* node = head_; node != nullptr; node = node->next)
            index(*node->item);
        index_changes_ = changes_;
    }
    const auto found = index_.find(key);
    return found == index_.end() ? nullptr : found->second;
}

const Alias* Alias_association_list::find_alias_ignoring_case(const char* key) const {
    const auto place = const_cast<Association_list&>(aliases_).iterator();
    for (const Item* item = place->first(); item != nullptr; item = place->next()) {
        const auto* alias = static_cast<const Alias*>(item);
        if (equal_ignoring_case(alias->get_alias(), key))
            return alias;
    }
    return nullptr;
}

void Alias_association_list::index(const Item& item) const {
    if (index_ends_at_null_)
        return;
    const std::string_view key = item.get_key_view();
    if (key.data() == nullptr)
        index_ends_at_null_ = true;
    else
        index_.try_emplace(key, &item);
}

} // namespace TESK
