// Choices: a box that is checked or not, and a group of which one is chosen.
#pragma once

#include "toolkit/control.h"

class TCheckBox : public TControl {
public:
    explicit TCheckBox(std::string name, std::string text = {});

    bool checked() const { return checked_; }
    void set_checked(bool checked) { assign(checked_, checked, Aspect::checked); }

    // What a user does: a click turns the mark, then fires.
    bool click() override;
    // Clicks when the mark is another.
    bool check(bool checked = true);

protected:
    bool press(const Key& key) override;

private:
    bool checked_ = false;
};

class TRadioGroup : public TControl {
public:
    TRadioGroup(std::string name, std::string text, std::vector<std::string> items = {}, int columns = 1);

    const std::vector<std::string>& items() const { return items_; }
    // The index is kept where there still is such an item, and so are the translations of the same items.
    void set_items(std::vector<std::string> items);
    void add_item(const std::string& item);
    // As native_text() and translate_text(), for the items; another number of texts changes nothing.
    const std::vector<std::string>& native_items() const { return native_items_; }
    void translate_items(const std::vector<std::string>& translations);
    int columns() const { return columns_; }
    // The chosen item, or -1; an index outside the items is -1.
    int item_index() const { return item_index_; }
    void set_item_index(int index);

    // What a user does. Choosing what is chosen already fires nothing.
    bool select(int index);
    bool click() override { return select(item_index_); }

protected:
    bool press(const Key& key) override;

private:
    bool has_item(int index) const { return index >= 0 && index < static_cast<int>(items_.size()); }

    std::vector<std::string> items_;        // as they are on view
    std::vector<std::string> native_items_; // as the program set them
    int item_index_ = -1;
    int columns_;
};
