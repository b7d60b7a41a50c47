// The singly and the doubly linked list that all lists of the suite are made of.
#pragma once

#include "foundation/container.h"

namespace TESK {

class Unidirectional_list : public Container {
public:
    // The chain of nodes belongs to the list: `next` only looks.
    class Node : public Container::Node {
    public:
        using Container::Node::Node;

        // The node before this one, where the node keeps it: null here.
        virtual Node* get_prev() const { return nullptr; }
        // Keeps the node before this one, where that can be kept.
        virtual void set_prev(Node*) {}

        Node* next = nullptr;
        // The node whose way back leads here, or null. It need not be the next one.
        Node* led_back_from = nullptr;
    };

    class Iterator : public Container::Iterator {
    public:
        explicit Iterator(Unidirectional_list& list) : list_(list), current_(list.head_) {}
        Item* first() override { return move_to(list_.head_); }
        Item* last() override { return move_to(list_.tail_); }
        Item* next() override;
        // Null at once: a singly linked list has no way back.
        Item* prev() override { return nullptr; }
        Item* current() override;
        Item* find_item(const Item* item, bool from_start) override;
        bool contains(const Item* item, bool from_start) override;
        Item* find_comparable(const Item& key, bool from_start) override;
        Item* seek(std::uint32_t index) override;
        Item* seek_nth(std::uint32_t number) override;
        bool delete_current() override;
        Item* detach_current() override;
        void reset() override { current_ = nullptr; }

    protected:
        Item* move_to(Node* node);

        Unidirectional_list& list_;
        Node* current_;
    };

    Unidirectional_list() = default;
    ~Unidirectional_list() override;

    std::uint32_t count() const override;
    Item* append(Item* item) override;
    Item* prepend(Item* item) override;
    std::uint32_t delete_all(Item_filter filter) override;
    Item* pop_at_head() override;
    Item* get_at(std::uint32_t index) const override;
    std::unique_ptr<Container::Iterator> iterator() override;
    bool is_empty() const override { return head_ == nullptr; }
    Node* head() const { return head_; }

    // The node whose successor holds the item, or precedes the node; null for the head's and for what is not
    // in the list.
    virtual Node* node_before_item(const Item* item) const;
    virtual Node* node_before(const Node* node) const;

    // Adds the item before another one, or at the head when `before` is not in the list. The new place keeps
    // no way back, in a Bidirectional_list either. Null returns null.
    virtual Item* insert_before(Item* item, Item* before);

    // Takes the last or the first item out and gives it to the caller; null from an empty list.
    virtual Item* pop_last();
    virtual Item* pop_first();
    // The same with the item behind a node of the list, or the first one when `before` is null.
    Item* pop_behind(Node* before);

    // Takes over all places of another list of its own class, behind its own, at no cost an item.
    void take_over(Unidirectional_list& from);

protected:
    // A new node of the kind that append() and prepend() link. The node takes the item.
    virtual std::unique_ptr<Node> make_node(Item* item) const;

    // Links a node behind another, or at the head when `before` is null.
    void link(std::unique_ptr<Node> node, Node* before);
    // Takes the node out of the chain and gives back its item; `before` is the node in front of it, or null.
    // A way back that led to it is forgotten.
    Item* unlink(Node* node, Node* before);

    Node* head_ = nullptr;
    Node* tail_ = nullptr;
    // Grows with every change of the chain or of the items' places in it.
    std::uint64_t changes_ = 0;
};

class Bidirectional_list : public Unidirectional_list {
public:
    using Base_node = Unidirectional_list::Node;

    class Node : public Base_node {
    public:
        using Base_node::Base_node;
        Base_node* get_prev() const override { return prev; }
        void set_prev(Base_node* node) override;

        Base_node* prev = nullptr;
    };

    class Iterator : public Unidirectional_list::Iterator {
    public:
        using Unidirectional_list::Iterator::Iterator;
        Item* prev() override;
    };

    // As the base does, and then rebuilds the ways back. Null does nothing. The other operations that take an
    // item out leave the ways back as they are: one that led to a node that is gone leads nowhere.
    void remove(Item* item) override;
    Item* append_sorted(Item* item, Sort_order order) override;
    std::unique_ptr<Container::Iterator> iterator() override;

    // As find_comparable, walking back from the tail, or from where a new iterator stands.
    virtual Item* find_backward(const Item& key, bool from_end);

    // Exchanges the items of two nodes; the nodes stay where they are.
    virtual void swap(Base_node* a, Base_node* b);

    // A stable exchange sort by the items' compare().
    virtual void sort(Sort_order order);

    // Sets every node's way back, where it keeps one, and the tail.
    void relink_backward();

protected:
    std::unique_ptr<Base_node> make_node(Item* item) const override;
};

// The items of a list as what they are, head to tail, for a range-for. The list must hold nothing but T, and
// must not lose the item that the loop stands on.
template <class T>
class Items_of {
public:
    explicit Items_of(const Unidirectional_list& list) : head_(list.head()) {}

    class Place {
    public:
        explicit Place(const Unidirectional_list::Node* node) : node_(node) {}
        T& operator*() const { return static_cast<T&>(*node_->item); }
        Place& operator++() {
            node_ = node_->next;
            return *this;
        }
        bool operator!=(const Place& other) const { return node_ != other.node_; }

    private:
        const Unidirectional_list::Node* node_;
    };

    Place begin() const { return Place(head_); }
    Place end() const { return Place(nullptr); }

private:
    const Unidirectional_list::Node* head_;
};

} // namespace TESK
