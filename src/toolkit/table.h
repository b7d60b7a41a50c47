// A table of any number of rows. It holds no cell: it asks what owns the rows for those that are on view.
// What changes is told to the view row by row.
#pragma once

#include "toolkit/picture.h"

#include <limits>

struct Table_column {
    std::string name; // by which an owner remembers it
    std::string caption;
    int width = 12; // in characters
    Align align = Align::start;
    bool visible = true;
    bool sortable = true;
    std::string hint{};
    bool caption_is_data = false; // a name of something, never translated
    // Gets a part of the room that is left, as long as the user has not given it a width. Without such a
    // column the last one gets all of it.
    bool shares_room = false;
    bool sized_by_user = false;

    bool operator==(const Table_column&) const = default;
};

struct Table_cell {
    std::string text{};
    Picture picture{};              // a light or another sign before the text
    Colour colour = desktop_colour; // behind the text
    bool strong = false;            // set off by a heavier type
    bool is_path = false;           // cut in its middle where it is too long
};

// How a cell is edited: as a text, as a number, by choosing one of the items, or by what the owner shows when
// on_edit asks for it.
struct Cell_editor {
    enum class Kind { text, number, choice, other };
    Kind kind = Kind::text;
    std::vector<std::string> items{};
};

// What a table shows. Rows and columns are counted from 0.
class Table_rows {
public:
    virtual ~Table_rows() = default;

    virtual int count() const = 0;
    virtual Table_cell cell(int row, int column) const = 0;
    virtual std::string hint(int, int) const { return {}; }
    // What stands before a row wherever the table is scrolled to, where the table has that.
    virtual Table_cell row_header(int) const { return {}; }

    // For tables with ticks.
    virtual bool ticked(int) const { return false; }
    virtual bool can_tick(int) const { return true; }
    virtual void set_ticked(int, bool) {}

    // Empty for a cell that is not edited.
    virtual std::optional<Cell_editor> editor(int, int) const { return {}; }
    // Puts what was typed, chosen or pasted into a cell that has an editor, and answers why not, in words for
    // the user; empty when it was taken.
    virtual std::string set_text(int, int, const std::string&) { return {}; }
};

// Rows from first to last.
struct Row_range {
    int first = 0;
    int last = 0;
    bool operator==(const Row_range&) const = default;
};

// The ranges in ascending order, those that overlap or touch joined, without rows that no table of `count`
// rows has.
std::vector<Row_range> in_order(std::vector<Row_range> ranges, int count = std::numeric_limits<int>::max());

// Cells from first to last; as long as the last row is above the first, none.
struct Cell_block {
    int first_row = 0;
    int first_column = 0;
    int last_row = -1;
    int last_column = -1;
    bool operator==(const Cell_block&) const = default;
};

class TTable : public TControl {
public:
    // What is selected: whole rows, or a block of cells.
    enum class Selects { rows, cells };
    // What a click or a step does to the selection: starts anew, goes on from where it began, or turns the
    // row alone.
    enum class Select { only, extend, toggle };

    // The first column has ticks or not. The control's text is what an empty table says in its middle.
    explicit TTable(std::string name, Selects selects = Selects::rows, bool has_ticks = false);

    // What the table shows; it must live as long as the table, or until null is set.
    void set_rows(Table_rows* rows);
    Table_rows* rows() const { return rows_; }
    int count() const { return count_; }
    Selects selects() const { return selects_; }
    bool has_ticks() const { return has_ticks_; }
    // To be set before the table is shown.
    void set_has_row_headers(bool has) { has_row_headers_ = has; }
    bool has_row_headers() const { return has_row_headers_; }

    // Captions are the program's, and may be translated like those of other controls.
    const std::vector<Table_column>& columns() const { return columns_; }
    int column_count() const { return static_cast<int>(columns_.size()); }
    void set_columns(std::vector<Table_column> columns);
    const std::string& shown_caption(int column) const;
    void translate_captions(const std::vector<std::string>& translations);
    void set_column_width(int column, int width);
    void set_column_visible(int column, bool visible);
    // The columns from left to right, as the user has put them: at first, and with other columns, in their
    // own order. Not all of them, or one twice, changes nothing.
    const std::vector<int>& column_order() const { return column_order_; }
    void set_column_order(const std::vector<int>& order);
    // How the columns are arranged and the rows sorted, as a text of one line that can be kept, and back.
    // What is no such text changes nothing; the owner sorts afterwards.
    std::string layout() const;
    void set_layout(const std::string& layout);
    // The column that the header marks as the one the rows are sorted by, or -1.
    int sort_column() const { return sort_column_; }
    bool sorted_down() const { return sorted_down_; }
    void set_sort(int column, bool down);

    // What the owner tells. Rows that came, went or changed: the cursor and the selection stay on their rows.
    // After rows_changed (all may be others) the cursor stays at its number, where there is one, and only
    // that row is selected: an owner that sorted puts it back with set_cursor.
    void rows_changed();
    void row_changed(int row) { rows_changed(row, 1); }
    void rows_changed(int first, int count);
    void rows_inserted(int first, int count);
    void rows_removed(int first, int count);

    // The cell under the cursor; -1 without one.
    int cursor_row() const { return cursor_row_; }
    int cursor_column() const { return cursor_column_; }
    // Moves the cursor and selects what is under it. A row outside the table takes the cursor away.
    void set_cursor(int row, int column = -1);
    // Scrolls so that the row is on view.
    void show_row(int row);

    bool selected(int row) const;
    int selected_count() const;
    // In ascending order, none touching another.
    const std::vector<Row_range>& selected_rows() const { return ranges_; }
    void set_selected_rows(std::vector<Row_range> ranges);
    // The block of cells; with whole rows, nothing.
    const Cell_block& selected_block() const { return block_; }

    // What a user does.
    bool click_cell(int row, int column, Select how = Select::only);
    bool select_row(int row, Select how = Select::only) { return click_cell(row, cursor_column_, how); }
    // Selects exactly these rows or cells, and puts the cursor there.
    bool select_rows(std::vector<Row_range> ranges, int row, int column);
    bool select_block(const Cell_block& block, int row, int column);
    bool select_all();
    // Turns the tick by its box: the cursor stays. The space bar turns those of all selected rows.
    bool toggle_tick(int row);
    bool toggle_selected_ticks();
    // Asks the owner to sort by the column: upward first, then downward.
    bool click_header(int column);
    bool resize_column(int column, int width);
    bool show_column(int column, bool visible);
    // Puts the column at that place from the left; only where whole rows are selected.
    bool move_column(int column, int place);
    // The menu that shows and hides columns, and sorts by them.
    bool open_header_menu();
    // Edits the cell, or else fires on_double_click.
    bool double_click(int row, int column);
    bool begin_edit(int row, int column);
    // What an editor of the cell came to. False, and a notice, where the owner refused it.
    bool edit_cell(int row, int column, const std::string& text);
    // The right button or the menu key; the cursor goes to the cell unless it is selected.
    bool open_menu(int row, int column);
    // Puts the selected cells on the clipboard, columns divided by tabulators, rows by line ends.
    bool copy();
    // Puts the clipboard's cells into those from the upper left selected one on. A single cell fills the
    // whole selected block. A notice tells how many were not taken.
    bool paste();
    // The keys that are no steps of the cursor: space, enter (with whole rows it opens, and F2 edits), F2,
    // the menu keys of a row and (Alt+Down) of the headings, copy, paste, select all.
    bool command_key(const Key& key);

    // Whether the user may edit it: a cell of that place exists and has an editor.
    std::optional<Cell_editor> editor(int row, int column) const;
    bool has_cell(int row, int column) const { return has_row(row) && has_column(column); }

    std::function<void()> on_change;    // the user moved the cursor to another row
    std::function<void()> on_selection; // the user selected other rows or cells
    std::function<void()> on_edited;    // cells were typed, chosen or pasted, and taken or not
    std::function<void(int row)> on_tick;
    std::function<void(int column, bool down)> on_sort;
    // The user made a column wider or narrower, showed, hid or moved it, or sorted by it.
    std::function<void()> on_columns;
    std::function<void(int row, int column)> on_double_click;
    std::function<void(int row, int column)>
        on_edit; // a cell whose editor is of another kind is to be edited
    std::function<void()> on_menu;

protected:
    bool press(const Key& key) override;

private:
    bool has_row(int row) const { return row >= 0 && row < count_; }
    bool has_column(int column) const { return column >= 0 && column < column_count(); }
    bool valid_cell(int& row, int& column) const;
    int step_column(int from, int step) const;
    bool step(int rows, int columns, bool extend);
    void place_cursor(int row, int column);
    void select_at(int row, int column, Select how);
    bool assign_selection(std::vector<Row_range> ranges, const Cell_block& block);
    bool finish_selection(int old_row, bool selection_differs);
    void shift_rows(int from, int by);
    Cell_block block_to_copy() const;
    void tick(int row, bool ticked);
    bool open(int row, int column, bool edits);

    Selects selects_;
    bool has_ticks_;
    bool has_row_headers_ = false;
    Table_rows* rows_ = nullptr;
    int count_ = 0;
    std::vector<Table_column> columns_;
    std::vector<std::string> shown_captions_;
    std::vector<int> column_order_;
    int sort_column_ = -1;
    bool sorted_down_ = false;
    int cursor_row_ = -1;
    int cursor_column_ = -1;
    int anchor_row_ = -1;
    int anchor_column_ = -1;
    std::vector<Row_range> ranges_;
    Cell_block block_;
};
