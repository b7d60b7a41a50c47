#include "foundation/association_list.h"

#include "foundation/arena.h"
#include "foundation/code_page_1252.h"

namespace TESK {

namespace {

bool equal_keys(std::string_view a, std::string_view b, bool case_sensitive) {
    return case_sensitive ? a == b : equal_ignoring_case(a, b);
}

// Up to so many items a walk is quicker than a table.
constexpr std::uint32_t longest_walk = 20;

// The number of the key's mark. Keys of one list often differ in their last characters alone.
std::size_t mark_of(std::string_view key) {
    const std::size_t size = key.size();
    std::size_t mark = size;
    if (size > 0)
        mark += 5U * static_cast<unsigned char>(key[size - 1]);
    if (size > 1)
        mark += 7U * static_cast<unsigned char>(key[size - 2]);
    return mark;
}

std::uint32_t hash_of(std::string_view key) {
    return static_cast<std::uint32_t>(std::hash<std::string_view>()(key));
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

class Alias_association_list::Arena_node : public Bidirectional_list::Node, public Arena_object {
public:
    using Bidirectional_list::Node::Node;
};

std::unique_ptr<Unidirectional_list::Node> Alias_association_list::make_node(Item* item) const {
    return std::make_unique<Arena_node>(item);
}

void Alias_association_list::Key_table::clear() {
    slots_.clear();
    items_.clear();
}

// The slot of the key or, when it is not there, the free one where it would go. The table is never full.
std::size_t Alias_association_list::Key_table::place_of(std::uint32_t hash, std::string_view key) const {
    const std::size_t mask = slots_.size() - 1;
    std::size_t place = hash & mask;
    while (slots_[place].number != 0 &&
           (slots_[place].hash != hash || items_[slots_[place].number - 1]->get_key_view() != key))
        place = (place + 1) & mask;
    return place;
}

void Alias_association_list::Key_table::grow() {
    std::vector<Slot> old(slots_.empty() ? 64 : slots_.size() * 2, Slot{0, 0});
    old.swap(slots_);
    const std::size_t mask = slots_.size() - 1;
    for (const Slot& slot : old) {
        if (slot.number == 0)
            continue;
        std::size_t place = slot.hash & mask;
        while (slots_[place].number != 0)
            place = (place + 1) & mask;
        slots_[place] = slot;
    }
}

void Alias_association_list::Key_table::add(Item& item, std::string_view key) {
    if (items_.size() * 2 >= slots_.size())
        grow();
    const std::uint32_t hash = hash_of(key);
    Slot& slot = slots_[place_of(hash, key)];
    if (slot.number == 0) {
        items_.push_back(&item);
        slot = {hash, static_cast<std::uint32_t>(items_.size())};
    }
}

Item* Alias_association_list::Key_table::find(std::string_view key) const {
    const std::uint32_t number = slots_.empty() ? 0 : slots_[place_of(hash_of(key), key)].number;
    return number == 0 ? nullptr : items_[number - 1];
}

Item* Alias_association_list::append(Item* item) {
    if (item == nullptr || refuses(item))
        return nullptr;
    link(std::make_unique<Arena_node>(item), tail_);
    // Only marks that lack nothing but this item can take it.
    if (marked_changes_ + 1 == changes_) {
        mark_item(*item);
        marked_changes_ = changes_;
    }
    return item;
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
    if (Item* item = find_here(key))
        return item;
    if (alias_index_.empty())
        return nullptr;
    const auto alias = alias_index_.find(key);
    return alias == alias_index_.end() ? nullptr : find_here(alias->second->get_actual());
}

void Alias_association_list::add_alias(const char* actual, const char* alias) {
    auto* added = new Alias(actual, alias);
    aliases_.append(added);
    alias_index_.try_emplace(added->get_alias(), added);
}

void Alias_association_list::delete_aliases() {
    alias_index_.clear();
    aliases_.delete_all(Item_filter::all);
}

Item* Alias_association_list::find_here(std::string_view key) const {
    if (marked_changes_ != changes_) {
        key_marks_.reset();
        marked_count_ = 0;
        marks_end_at_null_ = false;
        table_.clear();
        tabled_count_ = 0;
        for (const auto* node = head_; node != nullptr; node = node->next)
            mark_item(*node->item);
        marked_changes_ = changes_;
    }
    if (!key_marks_[mark_of(key) % key_marks_.size()])
        return nullptr;
    if (marked_count_ > longest_walk) {
        for (; tabled_count_ < marked_count_; ++tabled_count_) {
            last_tabled_ = tabled_count_ == 0 ? head_ : last_tabled_->next;
            table_.add(*last_tabled_->item, last_tabled_->item->get_key_view());
        }
        return table_.find(key);
    }
    for (const auto* node = head_; node != nullptr; node = node->next) {
        const std::string_view node_key = node->item->get_key_view();
        if (node_key.data() == nullptr)
            return nullptr;
        if (node_key == key)
            return node->item.get();
    }
    return nullptr;
}

const Alias* Alias_association_list::find_alias_ignoring_case(const char* key) const {
    for (const Alias& alias : Items_of<const Alias>(aliases_))
        if (equal_ignoring_case(alias.get_alias(), key))
            return &alias;
    return nullptr;
}

// An item without a key ends every search.
void Alias_association_list::mark_item(Item& item) const {
    const std::string_view key = item.get_key_view();
    marks_end_at_null_ = marks_end_at_null_ || key.data() == nullptr;
    if (marks_end_at_null_)
        return;
    ++marked_count_;
    key_marks_.set(mark_of(key) % key_marks_.size());
}

} // namespace TESK
