// Lists whose items are found by a text key, with or without old names that lead to new keys.
#pragma once

#include "foundation/lists.h"

#include <bitset>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace TESK {

class Association_list : public Bidirectional_list {
public:
    // With `unique_keys`, append() and prepend() refuse an item whose key stands in the list byte for byte:
    // they return null, and the item stays the caller's.
    explicit Association_list(bool unique_keys = false) : unique_keys_(unique_keys) {}

    Item* append(Item* item) override;
    Item* prepend(Item* item) override;

    // Deletes every item with the key; true if there was one.
    virtual bool remove_all(const char* key, bool case_sensitive);

    // The first item with the key, byte for byte or ignoring case; null when there is none, or when the key
    // is null. An item without a key ends the search.
    virtual Item* find(const char* key, bool case_sensitive) const;

protected:
    bool refuses(const Item* item) const;

private:
    bool unique_keys_;
};

// An old key and the key that replaced it.
class Alias : public Item {
public:
    Alias(const char* actual, const char* alias) : alias_(alias), actual_(actual) {}

    const char* get_alias() const { return alias_.c_str(); }
    const char* get_actual() const { return actual_.c_str(); }

private:
    std::string alias_;
    std::string actual_;
};

// A list in which an old key goes on finding an item under its new one. The keys of its items must not change
// while they are in the list: long lists are searched through a table of their keys.
class Alias_association_list : public Association_list {
public:
    using Association_list::Association_list;

    Item* append(Item* item) override;

    // The item with the key; when there is none, the one whose key the alias `key` stands for.
    Item* find(const char* key, bool case_sensitive) const override;

    // The same for a key of any bytes, byte for byte.
    Item* find_exact(std::string_view key) const;

    // Lets a search for `alias` find the item with the key `actual`. Of two equal aliases the first serves.
    void add_alias(const char* actual, const char* alias);

    void delete_aliases();

private:
    // Where the items are found by the hash of their keys: the first item of each key. Short lists are
    // walked. The slots hold numbers of items, so that the table of a long list stays small and grows without
    // a look at the items.
    class Key_table {
    public:
        void clear();
        // Keeps the item unless there is one with its key.
        void add(Item& item, std::string_view key);
        Item* find(std::string_view key) const;

    private:
        struct Slot {
            std::uint32_t hash;
            std::uint32_t number; // of the item, from 1; 0 where the slot is free
        };
        std::size_t place_of(std::uint32_t hash, std::string_view key) const;
        void grow();

        std::vector<Slot> slots_;
        std::vector<Item*> items_;
    };
    class Arena_node;

    std::unique_ptr<Unidirectional_list::Node> make_node(Item* item) const override;

    Item* find_here(std::string_view key) const;
    void mark_item(Item& item) const;
    const Alias* find_alias_ignoring_case(const char* key) const;

    Association_list aliases_;
    std::unordered_map<std::string_view, const Alias*> alias_index_;
    // These hold as long as marked_changes_ is the list's own count of changes.
    // A bit for each key: most keys that are not there are told by it.
    mutable std::bitset<512> key_marks_;
    mutable std::uint64_t marked_changes_ = 0;
    mutable std::uint32_t marked_count_ = 0;
    mutable bool marks_end_at_null_ = false;
    // What stands in the table: it takes the rest when it is asked.
    mutable Key_table table_;
    mutable std::uint32_t tabled_count_ = 0;
    mutable const Unidirectional_list::Node* last_tabled_ = nullptr;
};

} // namespace TESK
