// Copying and pasting blocks of a table's cells, as texts with tabulators.
#include "toolkit/desktop.h"
#include "toolkit/screen_language.h"
#include "toolkit/table.h"

#include <algorithm>

namespace {

// A cell whose text would be taken for several is put between quotes, as spreadsheets do.
std::string quoted(const std::string& text) {
    if (text.find_first_of("\t\r\n\"") == std::string::npos)
        return text;
    std::string result = "\"";
    for (const char letter : text)
        result += letter == '"' ? std::string("\"\"") : std::string(1, letter);
    return result + '"';
}

// The cells of a text, row by row. A line end behind the last row begins no further one.
std::vector<std::vector<std::string>> cells_of(const std::string& text) {
    std::vector<std::vector<std::string>> rows(1, std::vector<std::string>(1));
    bool in_quotes = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        std::string& cell = rows.back().back();
        const char letter = text[i];
        const char next = i + 1 < text.size() ? text[i + 1] : '\0';
        if (in_quotes) {
            if (letter != '"')
                cell += letter;
            else if (next == '"')
                cell += text[i++];
            else
                in_quotes = false;
        } else if (letter == '"' && cell.empty()) {
            in_quotes = true;
        } else if (letter == '\t') {
            rows.back().emplace_back();
        } else if (letter == '\n' || (letter == '\r' && next != '\n')) {
            if (i + 1 < text.size())
                rows.emplace_back(1);
        } else if (letter != '\r') {
            cell += letter;
        }
    }
    return rows;
}

} // namespace

// With whole rows the block has all columns.
Cell_block TTable::block_to_copy() const {
    if (selects_ == Selects::cells || ranges_.empty())
        return block_;
    return {ranges_.front().first, 0, ranges_.back().last, column_count() - 1};
}

bool TTable::copy() {
    if (!begin_action() || !current_desktop || !rows_ || ranges_.empty())
        return false;
    const Cell_block block = block_to_copy();
    std::string text;
    for (const Row_range& range : ranges_) {
        for (int row = range.first; row <= range.last; ++row) {
            const char* before = "";
            for (const int column : column_order_) {
                const bool is_in_block = column >= block.first_column && column <= block.last_column;
                if (!is_in_block || !columns_[static_cast<std::size_t>(column)].visible)
                    continue;
                text += before + quoted(rows_->cell(row, column).text);
                before = "\t";
            }
            text += '\n';
        }
    }
    current_desktop->set_clipboard_text(text);
    return true;
}

bool TTable::paste() {
    if (!begin_action() || !current_desktop || !rows_ || !has_row(cursor_row_))
        return false;
    const auto cells = cells_of(current_desktop->clipboard_text());
    Cell_block block = selects_ == Selects::cells ? block_ : Cell_block{};
    if (block.last_row < block.first_row)
        block = {cursor_row_, cursor_column_, cursor_row_, cursor_column_};
    const bool fills = cells.size() == 1 && cells[0].size() == 1;
    const int last_row = fills ? block.last_row : block.first_row + static_cast<int>(cells.size()) - 1;
    int refused = 0;
    std::string reason;
    for (int row = block.first_row; row <= last_row; ++row) {
        const auto& line = cells[fills ? 0 : static_cast<std::size_t>(row - block.first_row)];
        int column = block.first_column;
        for (std::size_t i = 0; fills ? column <= block.last_column : i < line.size(); ++i) {
            const std::string& text = line[fills ? 0 : i];
            // What was copied beside the cells that are edited comes back with them.
            const bool is_same = has_cell(row, column) && rows_->cell(row, column).text == text;
            const std::string why = is_same               ? std::string()
                                    : editor(row, column) ? rows_->set_text(row, column, text)
                                                          : worded("This cell cannot be edited.");
            refused += why.empty() ? 0 : 1;
            reason = reason.empty() ? why : reason;
            const int next = step_column(column, 1);
            column = next < 0 ? column_count() : next;
        }
    }
    rows_changed(block.first_row, last_row - block.first_row + 1);
    TForm* const holder = form();
    if (holder && refused > 0)
        holder->notice(worded("Cells that were not pasted: %1.", std::to_string(refused)) + " " + reason,
                       Mark::exclamation);
    else if (holder)
        holder->notice({});
    if (on_edited)
        on_edited();
    return true;
}
