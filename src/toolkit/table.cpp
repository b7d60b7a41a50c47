#include "toolkit/table.h"

#include "toolkit/form.h"
#include "toolkit/menu.h"
#include "toolkit/screen_language.h"

#include <algorithm>

std::vector<Row_range> in_order(std::vector<Row_range> ranges, int count) {
    std::sort(ranges.begin(), ranges.end(),
              [](const Row_range& a, const Row_range& b) { return a.first < b.first; });
    std::vector<Row_range> joined;
    for (Row_range range : ranges) {
        range.first = std::max(range.first, 0);
        range.last = std::min(range.last, count - 1);
        if (range.last < range.first)
            continue;
        if (!joined.empty() && range.first <= joined.back().last + 1)
            joined.back().last = std::max(joined.back().last, range.last);
        else
            joined.push_back(range);
    }
    return joined;
}

namespace {

// The rows without one of them.
std::vector<Row_range> without(const std::vector<Row_range>& ranges, int row) {
    std::vector<Row_range> rest;
    for (const Row_range& range : ranges) {
        if (row < range.first || row > range.last) {
            rest.push_back(range);
            continue;
        }
        rest.push_back({range.first, row - 1});
        rest.push_back({row + 1, range.last});
    }
    return rest;
}

} // namespace

TTable::TTable(std::string name, Selects selects, bool has_ticks)
    : TControl(Control_kind::table, std::move(name)), selects_(selects), has_ticks_(has_ticks) {
    set_takes_focus(true);
}

void TTable::set_rows(Table_rows* rows) {
    rows_ = rows;
    rows_changed();
}

void TTable::set_columns(std::vector<Table_column> columns) {
    columns_ = std::move(columns);
    shown_captions_.clear();
    column_order_.clear();
    for (const Table_column& column : columns_) {
        column_order_.push_back(static_cast<int>(shown_captions_.size()));
        shown_captions_.push_back(column.caption_is_data ? column.caption : worded(column.caption));
    }
    sort_column_ = has_column(sort_column_) ? sort_column_ : -1;
    cursor_column_ = has_column(cursor_column_) ? cursor_column_ : -1;
    block_ = {};
    notify(Aspect::children);
}

const std::string& TTable::shown_caption(int column) const {
    static const std::string none;
    return has_column(column) ? shown_captions_[static_cast<std::size_t>(column)] : none;
}

void TTable::translate_captions(const std::vector<std::string>& translations) {
    if (translations.size() == shown_captions_.size())
        assign(shown_captions_, translations, Aspect::state);
}

void TTable::set_column_width(int column, int width) {
    if (has_column(column))
        assign(columns_[static_cast<std::size_t>(column)].width, std::clamp(width, 1, 1000), Aspect::state);
}

void TTable::set_column_visible(int column, bool visible) {
    if (has_column(column))
        assign(columns_[static_cast<std::size_t>(column)].visible, visible, Aspect::state);
}

void TTable::set_sort(int column, bool down) {
    sorted_down_ = down;
    sort_column_ = has_column(column) ? column : -1;
    notify(Aspect::state);
}

void TTable::rows_changed() {
    count_ = rows_ ? rows_->count() : 0;
    place_cursor(has_row(cursor_row_) ? cursor_row_ : -1, cursor_column_);
    notify(Aspect::all_lines);
}

void TTable::rows_changed(int first, int count) {
    const int last = std::min(first + count, count_);
    first = std::max(first, 0);
    if (first < last)
        notify({Aspect::lines_changed, first, last - first});
}

void TTable::rows_inserted(int first, int count) {
    first = std::clamp(first, 0, count_);
    if (count <= 0)
        return;
    count_ += count;
    shift_rows(first, count);
    notify({Aspect::lines_inserted, first, count});
}

void TTable::rows_removed(int first, int count) {
    first = std::clamp(first, 0, count_);
    count = std::min(count, count_ - first);
    if (count <= 0)
        return;
    for (int& row : {std::ref(cursor_row_), std::ref(anchor_row_)})
        row = row >= first && row < first + count ? -1 : row;
    std::vector<Row_range> left;
    for (const Row_range& range : ranges_) {
        left.push_back({range.first, std::min(range.last, first - 1)});
        left.push_back({std::max(range.first, first + count), range.last});
    }
    ranges_ = in_order(left, count_);
    count_ -= count;
    shift_rows(first, -count);
    notify({Aspect::lines_removed, first, count});
}

// The rows from `from` on have moved.
void TTable::shift_rows(int from, int by) {
    for (int& row : {std::ref(cursor_row_), std::ref(anchor_row_)})
        row += row >= from ? by : 0;
    std::vector<Row_range> moved;
    for (const Row_range& range : ranges_) {
        if (range.first < from && range.last >= from) {
            moved.push_back({range.first, from - 1});
            moved.push_back({from + by, range.last + by});
        } else {
            const int shift = range.first >= from ? by : 0;
            moved.push_back({range.first + shift, range.last + shift});
        }
    }
    ranges_ = in_order(moved, count_);
    block_ = {};
}

void TTable::set_cursor(int row, int column) {
    place_cursor(row, column < 0 ? cursor_column_ : column);
    notify(Aspect::cursor);
}

void TTable::place_cursor(int row, int column) {
    if (!has_row(row)) {
        cursor_row_ = anchor_row_ = -1;
        ranges_.clear();
        block_ = {};
        return;
    }
    select_at(row, has_column(column) ? column : std::max(step_column(-1, 1), 0), Select::only);
}

void TTable::show_row(int row) {
    if (has_row(row))
        notify({Aspect::line_on_view, row, 1});
}

bool TTable::selected(int row) const {
    const auto behind =
        std::upper_bound(ranges_.begin(), ranges_.end(), row,
                         [](int wanted, const Row_range& range) { return wanted < range.first; });
    return behind != ranges_.begin() && row <= std::prev(behind)->last;
}

int TTable::selected_count() const {
    int total = 0;
    for (const Row_range& range : ranges_)
        total += range.last - range.first + 1;
    return total;
}

void TTable::set_selected_rows(std::vector<Row_range> ranges) {
    if (selects_ == Selects::rows && assign_selection(in_order(std::move(ranges), count_), {}))
        notify(Aspect::cursor);
}

// Answers whether they differ.
bool TTable::assign_selection(std::vector<Row_range> ranges, const Cell_block& block) {
    if (ranges == ranges_ && block == block_)
        return false;
    ranges_ = std::move(ranges);
    block_ = block;
    return true;
}

bool TTable::valid_cell(int& row, int& column) const {
    if (!has_column(column))
        column = std::max(step_column(-1, 1), 0);
    return has_row(row);
}

// The nearest visible column to the right (1) or to the left (-1), or -1; from the edge without a column.
int TTable::step_column(int from, int step) const {
    const auto here = std::find(column_order_.begin(), column_order_.end(), from);
    int place = here == column_order_.end() ? -1 : static_cast<int>(here - column_order_.begin());
    for (place += step; has_column(place); place += step) {
        const int column = column_order_[static_cast<std::size_t>(place)];
        if (columns_[static_cast<std::size_t>(column)].visible)
            return column;
    }
    return -1;
}

// Moves the cursor there, and the selection with it.
void TTable::select_at(int row, int column, Select how) {
    cursor_row_ = row;
    cursor_column_ = column;
    if (how != Select::extend || anchor_row_ < 0) {
        anchor_row_ = row;
        anchor_column_ = column;
    }
    const auto [top, bottom] = std::minmax(anchor_row_, row);
    const auto [left, right] = std::minmax(anchor_column_, column);
    if (selects_ == Selects::cells) {
        assign_selection({{top, bottom}}, {top, left, bottom, right});
        return;
    }
    std::vector<Row_range> ranges{{top, bottom}};
    if (how == Select::toggle) {
        ranges = selected(row) ? without(ranges_, row) : ranges_;
        if (!selected(row))
            ranges.push_back({row, row});
    }
    assign_selection(in_order(std::move(ranges), count_), {});
}

// Tells the view, then the owner.
bool TTable::finish_selection(int old_row, bool selection_differs) {
    notify(Aspect::cursor);
    if (cursor_row_ != old_row && on_change)
        on_change();
    if (selection_differs && on_selection)
        on_selection();
    return true;
}

bool TTable::click_cell(int row, int column, Select how) {
    if (!begin_action() || !valid_cell(row, column))
        return false;
    const int old_row = cursor_row_;
    const auto old_ranges = ranges_;
    const Cell_block old_block = block_;
    select_at(row, column, how);
    finish_selection(old_row, ranges_ != old_ranges || block_ != old_block);
    do_click();
    return true;
}

bool TTable::select_rows(std::vector<Row_range> ranges, int row, int column) {
    if (selects_ != Selects::rows || !begin_action())
        return false;
    const int old_row = cursor_row_;
    if (valid_cell(row, column)) {
        cursor_row_ = row;
        cursor_column_ = column;
        if (anchor_row_ < 0 || ranges.size() <= 1)
            anchor_row_ = row;
    }
    return finish_selection(old_row, assign_selection(in_order(std::move(ranges), count_), {}));
}

bool TTable::select_block(const Cell_block& block, int row, int column) {
    if (selects_ != Selects::cells || !begin_action() || !has_cell(block.first_row, block.first_column) ||
        !has_cell(block.last_row, block.last_column) || !has_cell(row, column))
        return false;
    const int old_row = cursor_row_;
    cursor_row_ = row;
    cursor_column_ = column;
    anchor_row_ = row == block.first_row ? block.last_row : block.first_row;
    anchor_column_ = column == block.first_column ? block.last_column : block.first_column;
    return finish_selection(old_row, assign_selection({{block.first_row, block.last_row}}, block));
}

bool TTable::select_all() {
    if (count_ == 0 || columns_.empty())
        return begin_action();
    const int row = std::max(cursor_row_, 0);
    const int column = std::max(cursor_column_, 0);
    return selects_ == Selects::rows ? select_rows({{0, count_ - 1}}, row, column)
                                     : select_block({0, 0, count_ - 1, column_count() - 1}, 0, 0);
}

void TTable::tick(int row, bool ticked) {
    rows_->set_ticked(row, ticked);
    row_changed(row);
    if (on_tick)
        on_tick(row);
}

bool TTable::toggle_tick(int row) {
    if (!has_ticks_ || !begin_action() || !has_row(row) || !rows_->can_tick(row))
        return false;
    tick(row, !rows_->ticked(row));
    return true;
}

// All get what the row under the cursor gets.
bool TTable::toggle_selected_ticks() {
    if (!has_ticks_ || !begin_action() || !has_row(cursor_row_))
        return false;
    const bool ticked = !rows_->ticked(cursor_row_);
    for (const Row_range& range : std::vector(ranges_))
        for (int row = range.first; row <= range.last && has_row(row); ++row)
            if (rows_->can_tick(row) && rows_->ticked(row) != ticked)
                tick(row, ticked);
    return true;
}

bool TTable::click_header(int column) {
    if (!begin_action() || !has_column(column) || !columns_[static_cast<std::size_t>(column)].sortable)
        return false;
    set_sort(column, column == sort_column_ && !sorted_down_);
    if (on_sort)
        on_sort(sort_column_, sorted_down_);
    if (on_columns)
        on_columns();
    return true;
}

bool TTable::resize_column(int column, int width) {
    if (!in_reach() || !has_column(column))
        return false;
    const int before = columns_[static_cast<std::size_t>(column)].width;
    columns_[static_cast<std::size_t>(column)].sized_by_user = true;
    set_column_width(column, width);
    if (columns_[static_cast<std::size_t>(column)].width != before && on_columns)
        on_columns();
    return true;
}

// The last column that is shown stays.
bool TTable::show_column(int column, bool visible) {
    const auto shown =
        std::count_if(columns_.begin(), columns_.end(), [](const Table_column& one) { return one.visible; });
    if (!begin_action() || !has_column(column) || (!visible && shown <= 1))
        return false;
    if (columns_[static_cast<std::size_t>(column)].visible != visible) {
        set_column_visible(column, visible);
        if (on_columns)
            on_columns();
    }
    return true;
}

bool TTable::open_header_menu() {
    if (!begin_action())
        return false;
    TPopupMenu menu;
    for (const int column : column_order_) {
        const bool visible = columns_[static_cast<std::size_t>(column)].visible;
        menu.items.push_back({.text = shown_caption(column),
                              .on_click = [this, column, visible] { show_column(column, !visible); },
                              .checkable = true,
                              .checked = visible});
    }
    Menu_item sorting{.text = worded("Sort by")};
    for (const int column : column_order_)
        if (columns_[static_cast<std::size_t>(column)].sortable)
            sorting.items.push_back({.text = shown_caption(column),
                                     .on_click = [this, column] { click_header(column); },
                                     .checkable = true,
                                     .checked = column == sort_column_});
    if (!sorting.items.empty())
        menu.items.insert(menu.items.end(), {Menu_item{.text = "-"}, std::move(sorting)});
    menu.popup();
    return true;
}

bool TTable::double_click(int row, int column) {
    if (!click_cell(row, column))
        return false;
    open(row, column, true);
    return true;
}

// Edits the cell, where that is wanted and possible, or opens what the row stands for. False when there is
// nothing of both.
bool TTable::open(int row, int column, bool edits) {
    if (edits && editor(row, column))
        return begin_edit(row, column);
    if (on_double_click)
        on_double_click(row, column);
    return static_cast<bool>(on_double_click);
}

std::optional<Cell_editor> TTable::editor(int row, int column) const {
    return rows_ && has_cell(row, column) ? rows_->editor(row, column) : std::nullopt;
}

bool TTable::begin_edit(int row, int column) {
    const auto how = editor(row, column);
    if (!how || !begin_action())
        return false;
    if (how->kind != Cell_editor::Kind::other)
        notify({Aspect::editing, row, column});
    else if (on_edit)
        on_edit(row, column);
    return true;
}

bool TTable::edit_cell(int row, int column, const std::string& text) {
    if (!begin_action() || !editor(row, column))
        return false;
    const std::string refused = rows_->set_text(row, column, text);
    row_changed(row);
    if (TForm* const holder = form())
        holder->notice(refused, refused.empty() ? Mark::none : Mark::exclamation);
    if (on_edited)
        on_edited();
    return refused.empty();
}

bool TTable::open_menu(int row, int column) {
    if (!begin_action())
        return false;
    if (has_row(row) && !selected(row))
        click_cell(row, column);
    if (on_menu)
        on_menu();
    return true;
}

bool TTable::command_key(const Key& key) {
    const std::string name = key_name(key);
    if (name == "Space" && has_ticks_)
        return toggle_selected_ticks();
    if (name == "F2")
        return begin_edit(cursor_row_, cursor_column_);
    if (name == "Enter" && has_row(cursor_row_))
        return open(cursor_row_, cursor_column_, selects_ == Selects::cells);
    if (name == "Menu" || name == "Shift+F10")
        return open_menu(cursor_row_, cursor_column_);
    if (name == "Alt+Down")
        return open_header_menu();
    if (name == "Ctrl+C" || name == "Ctrl+Ins")
        return copy();
    if (name == "Ctrl+V" || name == "Shift+Ins")
        return paste();
    return name == "Ctrl+A" && select_all();
}

bool TTable::step(int rows, int columns, bool extend) {
    const int row = std::clamp(std::max(cursor_row_, 0) + rows, 0, count_ - 1);
    const int column = columns == 0 ? cursor_column_ : step_column(cursor_column_, columns);
    return click_cell(row, column < 0 ? cursor_column_ : column, extend ? Select::extend : Select::only);
}

bool TTable::press(const Key& key) {
    constexpr int page = 20;
    const bool has_no_cursor = cursor_row_ < 0;
    switch (key.code) {
    case Key_code::up: return step(-1, 0, key.shift);
    case Key_code::down: return key.alt ? command_key(key) : step(has_no_cursor ? 0 : 1, 0, key.shift);
    case Key_code::left: return step(0, -1, key.shift);
    case Key_code::right: return step(0, 1, key.shift);
    case Key_code::page_up: return step(-page, 0, key.shift);
    case Key_code::page_down: return step(page, 0, key.shift);
    case Key_code::home: return step(-count_, 0, key.shift);
    case Key_code::end: return step(count_, 0, key.shift);
    default: return command_key(key);
    }
}
