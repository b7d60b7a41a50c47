#include "editing/auto_lists.h"

namespace {

// The labels of the container's items, as lines; none for null.
std::vector<std::string> refill_list(TESK::Container* container) {
    std::vector<std::string> lines;
    if (container == nullptr)
        return lines;
    std::string label;
    const auto place = container->iterator();
    for (const TESK::Item* item = place->first(); item != nullptr; item = place->next())
        lines.push_back(screen_text(item->label_to(label)));
    return lines;
}

} // namespace

TAutoContainerComboBox::TAutoContainerComboBox(std::string name)
    : TAutoEntry<TComboBox>(std::move(name), true) {
    input_filter = typable_text;
}

void TAutoContainerComboBox::bind_to(TESK::Ustring* text, TESK::Container* items, const char* help_URL) {
    value = text;
    container_ = items;
    Help_link::set(help_URL);
    Update();
}

void TAutoContainerComboBox::Update() {
    set_items(refill_list(container_));
    set_text(value == nullptr ? "" : screen_text(*value));
}

void TAutoContainerComboBox::update_value() {
    if (value != nullptr)
        value->assign(record_text(text()));
}

void TAutoContainerComboBox::do_change() {
    update_value();
    TComboBox::do_change();
}

void TAutoContainerComboBox::leave() {
    restore_colour();
    update_value();
    update_parent();
}

void TAutoContainerListBox::bind_to(TESK::Container* items, const char* help_URL) {
    container_ = items;
    Help_link::set(help_URL);
    Update();
}

void TAutoContainerListBox::Update() {
    set_lines(refill_list(container_));
}

void TAutoContainerListBox::delete_selected() {
    if (container_ == nullptr)
        return;
    for (int i = count() - 1; i >= 0; --i)
        if (selected(i))
            container_->remove_at(static_cast<std::uint32_t>(i));
    Update();
}

void TAutoContainerListBox::move_selected_to(bool top) {
    int index = 0;
    while (index < count() && !selected(index))
        ++index;
    TESK::Item* item = container_ == nullptr || index == count()
                           ? nullptr
                           : container_->get_at(static_cast<std::uint32_t>(index));
    if (item == nullptr)
        return;
    container_->detach(item);
    // What cannot go to the top must not be lost.
    if (!top || container_->prepend(item) == nullptr)
        container_->append(item);
    Update();
}

void TAutoContainerCheckListBox::bind_to(TESK::Container* items, const char* help_URL) {
    container_ = items;
    Help_link::set(help_URL);
    Update();
}

void TAutoContainerCheckListBox::Update() {
    set_lines(refill_list(container_));
    if (container_ == nullptr)
        return;
    int index = 0;
    const auto place = container_->iterator();
    for (const TESK::Item* item = place->first(); item != nullptr; item = place->next(), ++index) {
        set_selected(index, item->is_selected());
        set_line_enabled(index, item->is_enabled());
        set_checked(index, item->is_checked());
    }
}

void TAutoContainerCheckListBox::update_value() {
    if (container_ == nullptr)
        return;
    int index = 0;
    const auto place = container_->iterator();
    for (TESK::Item* item = place->first(); item != nullptr; item = place->next(), ++index) {
        item->set_selected(selected(index));
        item->set_checked(checked(index));
    }
}

void TAutoContainerCheckListBox::do_check(int index) {
    TESK::Item* item =
        container_ == nullptr ? nullptr : container_->get_at(static_cast<std::uint32_t>(index));
    if (item != nullptr) {
        item->set_selected(selected(index));
        item->set_checked(checked(index));
    }
    TCheckListBox::do_check(index);
}

void TAutoContainerCheckListBox::do_click() {
    update_value();
    TCheckListBox::do_click();
}
