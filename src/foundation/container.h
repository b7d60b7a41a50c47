// What every list of the suite can do. A list owns its items: destroying it, or removing an item from it,
// deletes them; the operations that hand an item back (detach, pop_...) pass it to the caller.
#pragma once

#include "foundation/item.h"

#include <cstdint>
#include <memory>

namespace TESK {

// Any other value leaves a list as it is.
enum class Sort_order : std::uint8_t { ascending = 0, descending = 1 };

// Which items an operation on many takes.
enum class Item_filter : std::uint8_t {
    all = 0,
    selected = 1,
    checked = 2,
    selected_or_checked = 3, // every item: the test is not made
    neither = 4,
    not_selected = 5,
    not_checked = 6,
    not_both = 7,
};

// Whether the filter takes the item; a value outside the enumeration takes none.
bool matches(const Item& item, Item_filter filter);

class Container {
public:
    // A place in a list. It owns the item that stands there.
    class Node {
    public:
        explicit Node(Item* owned) : item(owned) {}
        virtual ~Node() = default;
        Node(const Node&) = delete;
        Node& operator=(const Node&) = delete;

        int compare(const Item& other) const { return item->compare(other); }
        std::string& label_to(std::string& buffer) const { return item->label_to(buffer); }
        std::ostream& write(std::ostream& out) const { return item->write(out); }
        bool setup_structure(Data_record& record, bool for_write) {
            return item->setup_structure(record, for_write);
        }

        std::unique_ptr<Item> item;
    };

    // Walks a list. Every moving operation returns the item at the new place, or null. A list that changes
    // by another way than through the iterator can leave it on a place that is gone.
    class Iterator {
    public:
        virtual ~Iterator() = default;
        virtual Item* first() = 0;
        virtual Item* last() = 0;
        virtual Item* next() = 0;
        virtual Item* prev() = 0;
        // The item at the iterator; without a place it moves to the head first.
        virtual Item* current() = 0;
        // Moves to the item, from the head or from the current place on. Null leaves the iterator behind the
        // end.
        virtual Item* find_item(const Item* item, bool from_start) = 0;
        virtual bool contains(const Item* item, bool from_start) = 0;
        // Moves to the first item whose compare(key) is 0.
        virtual Item* find_comparable(const Item& key, bool from_start) = 0;
        // Moves to the item of a zero-based index; null leaves the iterator where it is.
        virtual Item* seek(std::uint32_t index) = 0;
        // The same, one-based; number 0 is taken as 1.
        virtual Item* seek_nth(std::uint32_t number) = 0;
        // Takes the current item out, deletes it, and moves to the next; true when there was one.
        virtual bool delete_current() = 0;
        // Takes the current item out, gives it to the caller, and moves to the next one, or from the last one
        // to the head.
        virtual Item* detach_current() = 0;
        // Leaves the iterator without a place.
        virtual void reset() = 0;
    };

    Container() = default;
    virtual ~Container() = default;
    Container(const Container&) = delete;
    Container& operator=(const Container&) = delete;

    // The number of items, by walking the chain.
    virtual std::uint32_t count() const = 0;

    // Takes the item out, by identity, without deleting it. Returns `item`, whether it was in the list or
    // not.
    virtual Item* detach(Item* item);

    // Takes the item out, by identity, and deletes it. An item that is not in the list is left alone.
    virtual void remove(Item* item);

    // Adds at the tail and returns `item`. Null returns null and adds nothing.
    virtual Item* append(Item* item) = 0;

    // Adds, in a list that can sort, in the order told. Null returns null.
    virtual Item* append_sorted(Item* item, Sort_order order);

    // Takes all matching items of another list, in their order; the others stay there in theirs. An item that
    // append() refuses is lost to both lists, and deleted.
    virtual void transfer_all_from(Container& from, Item_filter filter);

    // Adds at the head and returns `item`; null where that cannot be.
    virtual Item* prepend(Item* item);

    // Deletes the matching items and returns how many they were.
    virtual std::uint32_t delete_all(Item_filter filter) = 0;

    // Takes the first item out and gives it to the caller; null from an empty list.
    virtual Item* pop_at_head() = 0;

    // The first item whose compare(key) is 0, or null.
    virtual Item* find_comparable(const Item& key, bool from_start);
    virtual Item* find_comparable_at_iterator(const Item& key, bool from_start);

    // The item at a zero-based index, or null.
    virtual Item* get_at(std::uint32_t index) const = 0;
    // Deletes the item at a zero-based index; true if there was one.
    virtual bool remove_at(std::uint32_t index);
    // The same, one-based; number 0 is taken as 1.
    virtual Item* get_nth(std::uint32_t number) const;
    virtual bool remove_nth(std::uint32_t number);

    virtual void check_all(bool checked);
    virtual void select_all(bool selected);

    // A new iterator, on the head.
    virtual std::unique_ptr<Iterator> iterator() = 0;

    virtual bool is_empty() const = 0;

    // Each item's write(), head to tail, with nothing between. Returns `out`.
    virtual std::ostream& write(std::ostream& out);

    // Whether items have been added or taken out since the flag was last cleared.
    virtual bool get_modified(bool clear);
    virtual void set_modified(bool modified);

protected:
    bool modified_ = false;
};

} // namespace TESK
