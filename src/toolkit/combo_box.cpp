#include "toolkit/combo_box.h"

#include <algorithm>

TComboBox::TComboBox(std::string name, bool editable)
    : TCustomEdit(Control_kind::combo_box, std::move(name), false), editable_(editable) {
    set_read_only(!editable);
}

void TComboBox::set_items(std::vector<std::string> items) {
    items_ = std::move(items);
    native_words_.clear();
    notify(Aspect::all_lines);
}

void TComboBox::set_words(std::vector<std::string> words) {
    set_items(words);
    native_words_ = std::move(words);
}

void TComboBox::translate_words(const std::vector<std::string>& translations) {
    if (translations.size() != native_words_.size() || translations == items_)
        return;
    const int chosen = item_index();
    items_ = translations;
    notify(Aspect::all_lines);
    set_item_index(chosen);
}

void TComboBox::add_item(const std::string& item) {
    items_.push_back(item);
    notify(Aspect::all_lines);
}

int TComboBox::item_index() const {
    const auto found = std::find(items_.begin(), items_.end(), text());
    return found == items_.end() ? -1 : static_cast<int>(found - items_.begin());
}

void TComboBox::set_item_index(int index) {
    set_text(has_item(index) ? items_[static_cast<std::size_t>(index)] : std::string());
}

bool TComboBox::select(int index) {
    if (!begin_action() || !has_item(index))
        return false;
    if (items_[static_cast<std::size_t>(index)] != text()) {
        set_item_index(index);
        do_change();
    }
    return true;
}

bool TComboBox::press(const Key& key) {
    switch (key.code) {
    case Key_code::up: return select(item_index() - 1);
    case Key_code::down: return select(item_index() + 1);
    default: return TCustomEdit::press(key);
    }
}
