// What the tests of the lists share: an item that is counted, and lists told as texts.
#pragma once

#include "foundation/association_list.h"

#include <gtest/gtest.h>
#include <optional>
#include <sstream>

namespace TESK {

using Key = std::optional<std::string>;

// An item of a key, perhaps null. "b" and "d" begin as selected, "c" and "d" as checked.
class Test_item : public Association {
public:
    explicit Test_item(Key key, bool case_sensitive = false)
        : key_(std::move(key)), case_sensitive_(case_sensitive) {
        ++live;
    }
    ~Test_item() override { --live; }
    const char* get_key() const override { return key_ ? key_->c_str() : nullptr; }
    std::string_view get_key_view() const override { return key_ ? *key_ : std::string_view(); }
    bool is_key_case_sensitive() const override { return case_sensitive_; }
    std::ostream& write(std::ostream& out) const override { return out << key_.value_or("-"); }
    bool is_selected() const override { return selected_; }
    bool is_checked() const override { return checked_; }
    bool set_selected(bool selected) override { return selected_ = selected; }
    bool set_checked(bool checked) override { return checked_ = checked; }

    static inline unsigned live = 0;

private:
    Key key_;
    bool case_sensitive_;
    bool selected_ = key_ == "b" || key_ == "d";
    bool checked_ = key_ == "c" || key_ == "d";
};

// Adds an item for each letter; "-" has no key.
inline void fill(Container& list, std::string_view letters) {
    for (const char letter : letters)
        list.append(new Test_item(letter == '-' ? Key() : Key({letter})));
}

inline std::string forwards(Container& list) {
    std::ostringstream out;
    list.write(out);
    return out.str();
}

inline std::string backwards(Container& list) {
    std::ostringstream out;
    const auto place = list.iterator();
    for (const Item* item = place->last(); item != nullptr; item = place->prev())
        item->write(out);
    return out.str();
}

// One change of a list, told by a letter, at an index or with a key where it needs one.
inline void change(Bidirectional_list& list, char operation, std::uint32_t index, const Key& key) {
    auto item = std::make_unique<Test_item>(key);
    Item* there = list.get_at(index);
    Item* added = nullptr;
    switch (operation) {
    case 'a': added = list.append(item.get()); break;
    case 'h': added = list.prepend(item.get()); break;
    case 'i': added = list.insert_before(item.get(), there); break;
    case 's': added = list.append_sorted(item.get(), Sort_order::ascending); break;
    case 'r': list.remove(there); break;
    case 'd': delete list.detach(there); break;
    case 'k': list.remove_at(index); break;
    case 'p': delete list.pop_first(); break;
    case 'P': delete list.pop_last(); break;
    case 'S': list.sort(Sort_order::descending); break;
    }
    if (added != nullptr)
        static_cast<void>(item.release());
}

class List_test : public testing::Test {
protected:
    void TearDown() override { EXPECT_EQ(Test_item::live, 0U); }
};

} // namespace TESK
