#include "toolkit/check_box.h"

#include <algorithm>

TCheckBox::TCheckBox(std::string name, std::string text)
    : TControl(Control_kind::check_box, std::move(name), std::move(text)) {
    set_takes_focus(true);
}

bool TCheckBox::click() {
    if (!begin_action())
        return false;
    set_checked(!checked_);
    do_click();
    return true;
}

bool TCheckBox::check(bool checked) {
    return checked == checked_ ? begin_action() : click();
}

bool TCheckBox::press(const Key& key) {
    return key.code == Key_code::space && click();
}

TRadioGroup::TRadioGroup(std::string name, std::string text, std::vector<std::string> items, int columns)
    : TControl(Control_kind::radio_group, std::move(name), std::move(text)), items_(std::move(items)),
      native_items_(items_), columns_(std::max(columns, 1)) {
    set_takes_focus(true);
}

void TRadioGroup::set_items(std::vector<std::string> items) {
    if (items == native_items_)
        return;
    native_items_ = std::move(items);
    items_ = native_items_;
    item_index_ = has_item(item_index_) ? item_index_ : -1;
    notify(Aspect::all_lines);
}

void TRadioGroup::add_item(const std::string& item) {
    items_.push_back(item);
    native_items_.push_back(item);
    notify(Aspect::all_lines);
}

void TRadioGroup::translate_items(const std::vector<std::string>& translations) {
    if (translations.size() == items_.size())
        assign(items_, translations, Aspect::all_lines);
}

void TRadioGroup::set_item_index(int index) {
    assign(item_index_, has_item(index) ? index : -1, Aspect::cursor);
}

bool TRadioGroup::select(int index) {
    if (!begin_action() || !has_item(index))
        return false;
    if (index != item_index_) {
        set_item_index(index);
        do_click();
    }
    return true;
}

bool TRadioGroup::press(const Key& key) {
    switch (key.code) {
    case Key_code::up:
    case Key_code::left: return select(item_index_ - 1);
    case Key_code::down:
    case Key_code::right: return select(item_index_ + 1);
    default: return false;
    }
}
