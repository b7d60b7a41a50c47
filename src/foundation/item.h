// The polymorphic items of the suite's lists, and the items that have a text key.
#pragma once

#include <ostream>
#include <string>
#include <string_view>

namespace TESK {

class Data_record; // lives in records/; the lists only hand it on
class Item;

class Item_interface {
public:
    // Writes the item's display text to the buffer, in place of what that held, and returns the buffer.
    virtual std::string& label_to(std::string& buffer) const = 0;

    virtual ~Item_interface() = default;

    // Negative, zero or positive, as this item stands before, beside or behind the other.
    virtual int compare(const Item& other) const = 0;

    // Writes the item as it stands in a file. Returns `out`.
    virtual std::ostream& write(std::ostream& out) const = 0;

    // Binds the item's entries to the record's current section. True when there was anything to bind to.
    virtual bool setup_structure(Data_record& record, bool for_write) = 0;

    virtual bool is_enabled() const = 0;
    virtual bool is_selected() const = 0;
    virtual bool is_checked() const = 0;

    // Marks the item where it can be marked. False where it cannot.
    virtual bool set_selected(bool selected) = 0;
    virtual bool set_checked(bool checked) = 0;

    // The item's text key: that of an Association, null for any other item.
    virtual const char* get_key() const = 0;

    // The same text with its length, so that a key may hold any byte; without data where the key is null.
    virtual std::string_view get_key_view() const = 0;
};

// The default behaviour: no text, equal to every other item, enabled, never marked.
class Item : public Item_interface {
public:
    std::string& label_to(std::string& buffer) const override;
    int compare(const Item& other) const override;
    std::ostream& write(std::ostream& out) const override;
    bool setup_structure(Data_record& record, bool for_write) override;
    bool is_enabled() const override { return true; }
    bool is_selected() const override { return false; }
    bool is_checked() const override { return false; }
    bool set_selected(bool selected) override;
    bool set_checked(bool checked) override;
    const char* get_key() const override { return nullptr; }
    std::string_view get_key_view() const override;

protected:
    Item() = default;
    Item(const Item&) = default;
    Item& operator=(const Item&) = default;
};

// An item with a text key, which is also its display text.
class Association : public Item {
public:
    // The key in the buffer; an empty text where the key is null.
    std::string& label_to(std::string& buffer) const override;

    // By the keys: byte by byte when either item says that case counts, otherwise ignoring case: -1, 0 or 1.
    // A null key on either side gives -1.
    int compare(const Item& other) const override;

    // May be null. The text belongs to the item and must not change while the item is in an
    // Alias_association_list.
    const char* get_key() const override = 0;

    virtual bool is_key_case_sensitive() const { return false; }
};

} // namespace TESK
