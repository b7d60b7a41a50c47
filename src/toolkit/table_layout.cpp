// How a table's columns are arranged: in what order, and as a text that can be kept.
#include "toolkit/table.h"

#include <algorithm>
#include <numeric>
#include <sstream>

void TTable::set_column_order(const std::vector<int>& order) {
    if (std::is_permutation(order.begin(), order.end(), column_order_.begin(), column_order_.end()))
        assign(column_order_, order, Aspect::state);
}

bool TTable::move_column(int column, int place) {
    if (selects_ != Selects::rows || !has_column(column) || !has_column(place) || !begin_action())
        return false;
    std::vector<int> order = column_order_;
    std::erase(order, column);
    order.insert(order.begin() + place, column);
    if (order != column_order_) {
        set_column_order(order);
        if (on_columns)
            on_columns();
    }
    return true;
}

// "0 up name 24 state 17 run 17 hidden": what is sorted by, and the columns from left to right.
std::string TTable::layout() const {
    std::string text = std::to_string(sort_column_) + (sorted_down_ ? " down" : " up");
    for (const int number : column_order_) {
        const Table_column& column = columns_[static_cast<std::size_t>(number)];
        text += ' ' + column.name + ' ' + std::to_string(column.width) + (column.visible ? "" : " hidden");
    }
    return text;
}

void TTable::set_layout(const std::string& layout) {
    std::istringstream words(layout);
    int sort = -1;
    std::string word;
    if (!(words >> sort >> word) || sort < -1 || sort >= column_count())
        return;
    set_sort(sort, word == "down");
    std::vector<int> order;
    while (words >> word) {
        // The first column always stays.
        if (word == "hidden" && !order.empty()) {
            set_column_visible(order.back(), order.back() == 0);
            continue;
        }
        const auto found = std::find_if(columns_.begin(), columns_.end(),
                                        [&](const Table_column& known) { return known.name == word; });
        int width = 0;
        if (found == columns_.end() || !(words >> width))
            break;
        order.push_back(static_cast<int>(found - columns_.begin()));
        set_column_width(order.back(), std::clamp(width, 2, 500));
    }
    // Those that the text does not know come last.
    for (const int column : column_order_)
        if (std::find(order.begin(), order.end(), column) == order.end())
            order.push_back(column);
    set_column_order(order);
}
