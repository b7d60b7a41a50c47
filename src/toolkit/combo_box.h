// A text with a list to choose it from, with or without the right to type another.
#pragma once

#include "toolkit/edit.h"

class TComboBox : public TCustomEdit {
public:
    explicit TComboBox(std::string name, bool editable = false);

    // Whether other texts than the items can be typed.
    bool editable() const { return editable_; }
    const std::vector<std::string>& items() const { return items_; }
    // The text stays, whether it is among the items or not.
    void set_items(std::vector<std::string> items);
    void add_item(const std::string& item);
    // The same for items that are the program's own words, which are translated like captions.
    void set_words(std::vector<std::string> words);
    const std::vector<std::string>& native_words() const { return native_words_; }
    // Shows translations in place of all words; the one that is chosen stays chosen.
    void translate_words(const std::vector<std::string>& translations);
    // The first item that is exactly the text, or -1.
    int item_index() const;
    // Makes an item the text; an index outside the items makes it empty.
    void set_item_index(int index);

    // What a user does. Choosing what is chosen already fires nothing.
    bool select(int index);

protected:
    bool press(const Key& key) override;

private:
    bool has_item(int index) const { return index >= 0 && index < static_cast<int>(items_.size()); }

    std::vector<std::string> items_;
    std::vector<std::string> native_words_; // none for items that are data
    bool editable_;
};
