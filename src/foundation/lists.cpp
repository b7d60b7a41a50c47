#include "foundation/lists.h"

#include <utility>

namespace TESK {

Item* Unidirectional_list::Iterator::move_to(Node* node) {
    current_ = node;
    return node == nullptr ? nullptr : node->item.get();
}

Item* Unidirectional_list::Iterator::next() {
    return current_ == nullptr ? nullptr : move_to(current_->next);
}

Item* Unidirectional_list::Iterator::current() {
    return move_to(current_ == nullptr ? list_.head_ : current_);
}

Item* Unidirectional_list::Iterator::find_item(const Item* item, bool from_start) {
    Item* at = from_start ? first() : current();
    while (at != nullptr && at != item)
        at = next();
    return at;
}

bool Unidirectional_list::Iterator::contains(const Item* item, bool from_start) {
    return find_item(item, from_start) != nullptr;
}

Item* Unidirectional_list::Iterator::find_comparable(const Item& key, bool from_start) {
    Item* at = from_start ? first() : current();
    while (at != nullptr && at->compare(key) != 0)
        at = next();
    return at;
}

Item* Unidirectional_list::Iterator::seek(std::uint32_t index) {
    Node* node = list_.head_;
    for (; node != nullptr && index > 0; --index)
        node = node->next;
    return node == nullptr ? nullptr : move_to(node);
}

Item* Unidirectional_list::Iterator::seek_nth(std::uint32_t number) {
    return seek(number == 0 ? 0 : number - 1);
}

bool Unidirectional_list::Iterator::delete_current() {
    return std::unique_ptr<Item>(detach_current()) != nullptr;
}

Item* Unidirectional_list::Iterator::detach_current() {
    if (current_ == nullptr)
        return nullptr;
    Node* gone = std::exchange(current_, current_->next);
    Item* item = list_.unlink(gone, list_.node_before(gone));
    if (current_ == nullptr)
        current_ = list_.head_;
    return item;
}

Unidirectional_list::~Unidirectional_list() {
    while (head_ != nullptr)
        delete std::exchange(head_, head_->next);
}

std::uint32_t Unidirectional_list::count() const {
    std::uint32_t result = 0;
    for (const Node* node = head_; node != nullptr; node = node->next)
        ++result;
    return result;
}

Item* Unidirectional_list::append(Item* item) {
    if (item != nullptr)
        link(make_node(item), tail_);
    return item;
}

Item* Unidirectional_list::prepend(Item* item) {
    if (item != nullptr)
        link(make_node(item), nullptr);
    return item;
}

std::uint32_t Unidirectional_list::delete_all(Item_filter filter) {
    std::uint32_t deleted = 0;
    Unidirectional_list kept;
    while (!is_empty()) {
        std::unique_ptr<Item> item(pop_first());
        if (matches(*item, filter))
            ++deleted;
        else
            kept.append(item.release());
    }
    transfer_all_from(kept, Item_filter::all);
    return deleted;
}

Item* Unidirectional_list::pop_at_head() {
    return pop_first();
}

Item* Unidirectional_list::get_at(std::uint32_t index) const {
    const Node* node = head_;
    for (; node != nullptr && index > 0; --index)
        node = node->next;
    return node == nullptr ? nullptr : node->item.get();
}

std::unique_ptr<Container::Iterator> Unidirectional_list::iterator() {
    return std::make_unique<Iterator>(*this);
}

Unidirectional_list::Node* Unidirectional_list::node_before_item(const Item* item) const {
    for (Node* node = head_; node != nullptr; node = node->next)
        if (node->next != nullptr && node->next->item.get() == item)
            return node;
    return nullptr;
}

Unidirectional_list::Node* Unidirectional_list::node_before(const Node* node) const {
    if (node == head_)
        return nullptr;
    Node* before = head_;
    while (before != nullptr && before->next != node)
        before = before->next;
    return before;
}

Item* Unidirectional_list::insert_before(Item* item, Item* before) {
    if (item != nullptr)
        link(std::make_unique<Node>(item), node_before_item(before));
    return item;
}

Item* Unidirectional_list::pop_last() {
    return tail_ == nullptr ? nullptr : unlink(tail_, node_before(tail_));
}

Item* Unidirectional_list::pop_first() {
    return pop_behind(nullptr);
}

Item* Unidirectional_list::pop_behind(Node* before) {
    Node* node = before == nullptr ? head_ : before->next;
    return node == nullptr ? nullptr : unlink(node, before);
}

void Unidirectional_list::take_over(Unidirectional_list& from) {
    if (from.head_ == nullptr)
        return;
    (tail_ == nullptr ? head_ : tail_->next) = from.head_;
    from.head_->set_prev(tail_);
    tail_ = from.tail_;
    from.head_ = from.tail_ = nullptr;
    for (Unidirectional_list* list : {this, &from}) {
        list->modified_ = true;
        ++list->changes_;
    }
}

std::unique_ptr<Unidirectional_list::Node> Unidirectional_list::make_node(Item* item) const {
    return std::make_unique<Node>(item);
}

void Unidirectional_list::link(std::unique_ptr<Node> node, Node* before) {
    Node*& place = before == nullptr ? head_ : before->next;
    node->next = place;
    node->set_prev(before);
    // Only a node at the head becomes a way back for the one behind it: that one had none before.
    if (before == nullptr && place != nullptr)
        place->set_prev(node.get());
    place = node.release();
    if (place->next == nullptr)
        tail_ = place;
    modified_ = true;
    ++changes_;
}

Item* Unidirectional_list::unlink(Node* node, Node* before) {
    const std::unique_ptr<Node> gone(node);
    (before == nullptr ? head_ : before->next) = node->next;
    if (node == tail_)
        tail_ = before;
    node->set_prev(nullptr);
    if (node->led_back_from != nullptr)
        node->led_back_from->set_prev(nullptr);
    modified_ = true;
    ++changes_;
    return node->item.release();
}

void Bidirectional_list::Node::set_prev(Base_node* node) {
    if (prev != nullptr)
        prev->led_back_from = nullptr;
    prev = node;
    if (prev != nullptr)
        prev->led_back_from = this;
}

Item* Bidirectional_list::Iterator::prev() {
    return current_ == nullptr ? nullptr : move_to(current_->get_prev());
}

void Bidirectional_list::remove(Item* item) {
    if (item == nullptr)
        return;
    Unidirectional_list::remove(item);
    relink_backward();
}

Item* Bidirectional_list::append_sorted(Item* item, Sort_order order) {
    if (append(item) == nullptr)
        return nullptr;
    sort(order);
    return item;
}

std::unique_ptr<Container::Iterator> Bidirectional_list::iterator() {
    return std::make_unique<Iterator>(*this);
}

Item* Bidirectional_list::find_backward(const Item& key, bool from_end) {
    const auto place = iterator();
    Item* at = from_end ? place->last() : place->current();
    while (at != nullptr && at->compare(key) != 0)
        at = place->prev();
    return at;
}

void Bidirectional_list::swap(Base_node* a, Base_node* b) {
    std::swap(a->item, b->item);
    ++changes_;
}

void Bidirectional_list::sort(Sort_order order) {
    const auto out_of_order = [order](const Base_node& a, const Base_node& b) {
        const int comparison = a.compare(*b.item);
        return (order == Sort_order::ascending && comparison > 0) ||
               (order == Sort_order::descending && comparison < 0);
    };
    // Items that compare in a circle would be exchanged for ever; a true order is reached in as many passes
    // as there are items.
    bool exchanged = true;
    for (std::uint32_t passes = count(); exchanged && passes > 0; --passes) {
        exchanged = false;
        for (Base_node* node = head_; node != nullptr && node->next != nullptr; node = node->next) {
            if (out_of_order(*node, *node->next)) {
                swap(node, node->next);
                exchanged = true;
            }
        }
    }
}

void Bidirectional_list::relink_backward() {
    Base_node* before = nullptr;
    for (Base_node* node = head_; node != nullptr; node = node->next) {
        node->set_prev(before);
        before = node;
    }
    tail_ = before;
}

std::unique_ptr<Unidirectional_list::Node> Bidirectional_list::make_node(Item* item) const {
    return std::make_unique<Node>(item);
}

} // namespace TESK
