// Items with an integer key, and the list that finds them by it.
#pragma once

#include "foundation/lists.h"

#include <cstdint>

namespace TESK {

class Enumeration : public Item {
public:
    // The key, in decimal.
    std::string& label_to(std::string& buffer) const override;
    // By the keys, taken as unsigned: -1, 0 or 1. An item without an integer key is equal to any.
    int compare(const Item& other) const override;

    virtual std::int32_t get_int32() const = 0;
};

// A list of Enumeration items; any other item in it is passed over.
class Enumeration_list : public Bidirectional_list {
public:
    // The first item with the value, or null.
    virtual Enumeration* find(std::uint32_t value) const;
    // Deletes every item with the value; true if there was one.
    virtual bool remove_all(std::uint32_t value);
};

} // namespace TESK
