#include "toolkit/list_box.h"

#include <algorithm>
#include <utility>

TListBox::TListBox(Control_kind kind, std::string name, bool has_check_marks, bool multi_select)
    : TControl(kind, std::move(name)), has_check_marks_(has_check_marks), multi_select_(multi_select) {
    set_takes_focus(true);
}

const Line& TListBox::line(int index) const {
    static const Line none;
    return has_line(index) ? lines_[static_cast<std::size_t>(index)] : none;
}

int TListBox::index_of(const std::string& text) const {
    const auto found =
        std::find_if(lines_.begin(), lines_.end(), [&](const Line& line) { return line.text == text; });
    return found == lines_.end() ? -1 : static_cast<int>(found - lines_.begin());
}

void TListBox::set_lines(const std::vector<std::string>& texts) {
    std::vector<Line> lines;
    lines.reserve(texts.size());
    for (const std::string& text : texts)
        lines.push_back(Line{text});
    replace_lines(std::move(lines), -1);
}

void TListBox::replace_lines(std::vector<Line> lines, int item_index) {
    lines_ = std::move(lines);
    item_index_ = has_line(item_index) ? item_index : -1;
    tell({Aspect::all_lines});
}

void TListBox::insert_line(int index, const std::string& text) {
    index = std::clamp(index, 0, count());
    lines_.insert(lines_.begin() + index, Line{text});
    if (item_index_ >= index)
        ++item_index_;
    tell({Aspect::lines_inserted, index, 1});
}

void TListBox::remove_line(int index) {
    if (!has_line(index))
        return;
    lines_.erase(lines_.begin() + index);
    if (item_index_ == index)
        item_index_ = -1;
    else if (item_index_ > index)
        --item_index_;
    tell({Aspect::lines_removed, index, 1});
}

void TListBox::tell(const Change& change) {
    notify(change);
    if (on_told)
        on_told(change);
}

template <class Value>
void TListBox::set_in_line(int index, Value Line::*field, const Value& value) {
    if (!has_line(index))
        return;
    Line& changed = lines_[static_cast<std::size_t>(index)];
    if (changed.*field != value) {
        changed.*field = value;
        tell({Aspect::lines_changed, index, 1});
    }
}

void TListBox::set_line_text(int index, const std::string& text) {
    set_in_line(index, &Line::text, text);
}

void TListBox::set_line_enabled(int index, bool enabled) {
    set_in_line(index, &Line::enabled, enabled);
}

void TListBox::set_line_faint(int index, bool faint) {
    set_in_line(index, &Line::faint, faint);
}

void TListBox::set_checked(int index, bool checked) {
    set_in_line(index, &Line::checked, checked);
}

void TListBox::set_all_checked(bool checked) {
    for (int index = 0; index < count(); ++index)
        set_checked(index, checked);
}

int TListBox::checked_count() const {
    return static_cast<int>(
        std::count_if(lines_.begin(), lines_.end(), [](const Line& line) { return line.checked; }));
}

void TListBox::set_selected(int index, bool selected) {
    if (multi_select_)
        set_in_line(index, &Line::selected, selected);
    else if (selected || index == item_index_)
        set_item_index(selected ? index : -1);
}

void TListBox::set_item_index(int index) {
    index = has_line(index) ? index : -1;
    if (!multi_select_) {
        set_in_line(item_index_, &Line::selected, false);
        set_in_line(index, &Line::selected, true);
    }
    if (std::exchange(item_index_, index) != index)
        tell({Aspect::cursor});
}

void TListBox::show_line(int index) {
    if (has_line(index))
        tell({Aspect::line_on_view, index, 1});
}

void TListBox::select_only(const std::vector<int>& indexes) {
    std::vector<bool> wanted(lines_.size());
    for (const int index : indexes)
        if (has_line(index))
            wanted[static_cast<std::size_t>(index)] = true;
    for (int index = 0; index < count(); ++index)
        set_in_line(index, &Line::selected, static_cast<bool>(wanted[static_cast<std::size_t>(index)]));
}

bool TListBox::select(int index) {
    if (!begin_action() || !has_line(index) || !line(index).enabled)
        return false;
    const bool moves = index != item_index_;
    if (multi_select_)
        select_only({index});
    set_item_index(index);
    if (moves)
        do_change();
    do_click();
    return true;
}

bool TListBox::select_lines(const std::vector<int>& indexes) {
    if (!multi_select_ || !begin_action())
        return false;
    select_only(indexes);
    const int last = indexes.empty() ? item_index_ : indexes.back();
    const bool moves = last != item_index_;
    set_item_index(last);
    if (moves)
        do_change();
    do_click();
    return true;
}

bool TListBox::check(int index, bool checked) {
    if (!has_check_marks_ || !begin_action() || !has_line(index) || !line(index).enabled)
        return false;
    if (checked != line(index).checked) {
        set_checked(index, checked);
        do_check(index);
    }
    return true;
}

bool TListBox::double_click(int index) {
    if (!select(index))
        return false;
    if (on_double_click)
        on_double_click();
    return true;
}

bool TListBox::press(const Key& key) {
    switch (key.code) {
    case Key_code::up: return select(item_index_ - 1);
    case Key_code::down: return select(item_index_ + 1);
    case Key_code::home: return select(0);
    case Key_code::end: return select(count() - 1);
    case Key_code::space: return check(item_index_, !checked(item_index_));
    default: return false;
    }
}

void TListBox::do_change() {
    if (on_change)
        on_change();
}

void TListBox::do_check(int index) {
    if (on_check)
        on_check(index);
}
