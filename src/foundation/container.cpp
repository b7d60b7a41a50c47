#include "foundation/container.h"

#include "foundation/lists.h"

namespace TESK {

bool matches(const Item& item, Item_filter filter) {
    switch (filter) {
    case Item_filter::all:
    case Item_filter::selected_or_checked: return true;
    case Item_filter::selected: return item.is_selected();
    case Item_filter::checked: return item.is_checked();
    case Item_filter::neither: return !item.is_selected() && !item.is_checked();
    case Item_filter::not_selected: return !item.is_selected();
    case Item_filter::not_checked: return !item.is_checked();
    case Item_filter::not_both: return !item.is_selected() || !item.is_checked();
    }
    return false;
}

Item* Container::detach(Item* item) {
    const auto place = iterator();
    if (place->find_item(item, true) != nullptr)
        place->detach_current();
    return item;
}

void Container::remove(Item* item) {
    const auto place = iterator();
    if (place->find_item(item, true) != nullptr)
        place->delete_current();
}

Item* Container::append_sorted(Item* item, Sort_order) {
    return append(item);
}

void Container::transfer_all_from(Container& from, Item_filter filter) {
    if (&from == this || from.is_empty())
        return;
    Unidirectional_list kept;
    while (!from.is_empty()) {
        std::unique_ptr<Item> item(from.pop_at_head());
        if (!matches(*item, filter))
            kept.append(item.release());
        else if (append(item.get()) != nullptr)
            static_cast<void>(item.release());
    }
    from.transfer_all_from(kept, Item_filter::all);
}

Item* Container::prepend(Item*) {
    return nullptr;
}

Item* Container::find_comparable(const Item& key, bool from_start) {
    return iterator()->find_comparable(key, from_start);
}

Item* Container::find_comparable_at_iterator(const Item& key, bool from_start) {
    return iterator()->find_comparable(key, from_start);
}

bool Container::remove_at(std::uint32_t index) {
    const auto place = iterator();
    return place->seek(index) != nullptr && place->delete_current();
}

Item* Container::get_nth(std::uint32_t number) const {
    return get_at(number == 0 ? 0 : number - 1);
}

bool Container::remove_nth(std::uint32_t number) {
    return remove_at(number == 0 ? 0 : number - 1);
}

void Container::check_all(bool checked) {
    const auto place = iterator();
    for (Item* item = place->first(); item != nullptr; item = place->next())
        item->set_checked(checked);
}

void Container::select_all(bool selected) {
    const auto place = iterator();
    for (Item* item = place->first(); item != nullptr; item = place->next())
        item->set_selected(selected);
}

std::ostream& Container::write(std::ostream& out) {
    const auto place = iterator();
    for (const Item* item = place->first(); item != nullptr; item = place->next())
        item->write(out);
    return out;
}

bool Container::get_modified(bool clear) {
    const bool result = modified_;
    if (clear)
        modified_ = false;
    return result;
}

void Container::set_modified(bool modified) {
    modified_ = modified;
}

} // namespace TESK
