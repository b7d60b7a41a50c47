#include "toolkit/table.h"

#include "form_support.h"
#include "recording_view.h"
#include "support/sample_rows.h"
#include "toolkit/label.h"

namespace {

class Tables : public Form_parts {
protected:
    TTable& make(TTable::Selects selects = TTable::Selects::rows) {
        auto& table = form_.add<TTable>("table", selects, true);
        table.set_columns(Sample_rows::columns());
        table.set_rows(&rows_);
        return table;
    }

    Sample_rows rows_{10};
    TStatusLine& status_ = form_.add<TStatusLine>("status");
};

using Ranges = std::vector<Row_range>;

TEST_F(Tables, rows_are_selected_alone_in_ranges_and_one_by_one) {
    TTable& table = make();
    table.on_change = [&] { log_ += "change "; };
    table.on_selection = [&] { log_ += "selection "; };
    EXPECT_TRUE(table.click_cell(2, 1));
    EXPECT_TRUE(table.click_cell(4, 1, TTable::Select::extend));
    EXPECT_EQ(table.selected_rows(), (Ranges{{2, 4}}));
    EXPECT_TRUE(table.select_row(3, TTable::Select::toggle));
    EXPECT_TRUE(table.select_row(8, TTable::Select::toggle));
    EXPECT_EQ(table.selected_rows(), (Ranges{{2, 2}, {4, 4}, {8, 8}}));
    EXPECT_TRUE(table.selected(4) && !table.selected(3) && !table.selected(9));
    EXPECT_TRUE(table.key({.code = Key_code::down}));
    EXPECT_TRUE(table.key({.code = Key_code::home, .shift = true}));
    EXPECT_EQ(table.selected_rows(), (Ranges{{0, 9}}));
    EXPECT_EQ(table.cursor_row(), 0);
    log_.clear();
    EXPECT_TRUE(table.key({.text = "a", .control = true}));
    EXPECT_EQ(log_, "") << "all were selected already";
    EXPECT_FALSE(table.click_cell(10, 0));
    table.set_cursor(5);
    EXPECT_EQ(table.selected_count(), 1);
    EXPECT_EQ(log_, "") << "setting fires nothing";
}

TEST_F(Tables, cursor_and_selection_stay_on_their_rows) {
    TTable& table = make();
    table.set_cursor(5);
    table.set_selected_rows({{7, 8}, {1, 2}, {5, 5}});
    Recording_view view(table);
    table.rows_inserted(2, 3);
    EXPECT_EQ(table.cursor_row(), 8);
    EXPECT_EQ(table.selected_rows(), (Ranges{{1, 1}, {5, 5}, {8, 8}, {10, 11}}));
    table.rows_removed(0, 9);
    EXPECT_EQ(table.cursor_row(), -1);
    EXPECT_EQ(table.selected_rows(), (Ranges{{1, 2}}));
    EXPECT_EQ(table.count(), 4);
    view.changes.clear();
    table.row_changed(3);
    table.row_changed(4);
    ASSERT_EQ(view.changes.size(), 1u) << "one row, and none that is not there";
    EXPECT_TRUE(view.changes[0].aspect == Aspect::lines_changed && view.changes[0].first == 3 &&
                view.changes[0].count == 1);
}

TEST_F(Tables, ticks_are_turned_by_their_box_and_by_the_space_bar) {
    TTable& table = make();
    table.on_tick = [&](int row) { log_ += std::to_string(row) + " "; };
    table.set_cursor(3);
    EXPECT_TRUE(table.toggle_tick(1));
    EXPECT_EQ(table.cursor_row(), 3);
    EXPECT_FALSE(table.toggle_tick(Sample_rows::without_tick));
    table.set_selected_rows({{0, 4}});
    EXPECT_TRUE(table.key({.code = Key_code::space, .text = " "}));
    EXPECT_EQ(log_, "1 0 3 4 ") << "those that are not ticked yet, and can be";
    EXPECT_TRUE(table.key({.code = Key_code::space, .text = " "}));
    EXPECT_EQ(rows_.ticks(), 0);
}

TEST_F(Tables, a_header_asks_for_an_order_and_columns_are_the_users) {
    TTable& table = make();
    table.on_sort = [&](int column, bool down) { log_ += std::to_string(column) + (down ? "v " : "^ "); };
    table.on_columns = [&] { log_ += "columns "; };
    EXPECT_TRUE(table.click_header(1) && table.click_header(1) && table.click_header(0));
    EXPECT_FALSE(table.click_header(Sample_rows::notes_column));
    EXPECT_TRUE(table.resize_column(1, 30));
    desktop_.expect_menu("Value");
    EXPECT_TRUE(table.open_header_menu());
    EXPECT_FALSE(table.columns()[1].visible);
    desktop_.expect_menu("Sort by|Value");
    EXPECT_TRUE(table.key({.code = Key_code::down, .alt = true}));
    EXPECT_EQ(log_, "1^ columns 1v columns 0^ columns columns columns 1^ columns ");
    EXPECT_TRUE(table.show_column(0, false) && table.show_column(2, false));
    EXPECT_FALSE(table.show_column(3, false)) << "the last one stays";
    EXPECT_TRUE(table.show_column(2, true) && table.move_column(3, 0));
    EXPECT_TRUE(table.click_cell(0, 3) && table.key({.code = Key_code::right}));
    EXPECT_EQ(table.cursor_column(), 2) << "to what stands at the right";
    EXPECT_TRUE(table.copy());
    EXPECT_EQ(desktop_.clipboard_text(), rows_.cell(0, 3).text + '\t' + rows_.cell(0, 2).text + '\n');
}

TEST_F(Tables, cells_are_edited_where_the_owner_allows_it) {
    TTable& table = make();
    table.on_double_click = [&](int row, int) { log_ += "open " + std::to_string(row); };
    table.on_edit = [&](int, int column) { log_ += "edit " + std::to_string(column); };
    EXPECT_TRUE(table.edit_cell(2, Sample_rows::value_column, "7"));
    EXPECT_EQ(rows_.cell(2, Sample_rows::value_column).text, "7");
    EXPECT_FALSE(table.edit_cell(2, Sample_rows::value_column, "x"));
    EXPECT_EQ(status_.text(), "A value is a number.");
    EXPECT_FALSE(table.edit_cell(2, 0, "renamed"));
    Recording_view view(table);
    EXPECT_TRUE(table.double_click(4, Sample_rows::value_column));
    EXPECT_EQ(view.changes.back().aspect, Aspect::editing);
    EXPECT_TRUE(table.double_click(4, 0));
    EXPECT_TRUE(table.click_cell(4, Sample_rows::notes_column));
    EXPECT_TRUE(table.key({.code = Key_code::f2}));
    EXPECT_EQ(log_, "open 4edit 3");
}

TEST_F(Tables, blocks_of_cells_are_copied_and_pasted_as_spreadsheets_do) {
    TTable& table = make(TTable::Selects::cells);
    EXPECT_TRUE(table.edit_cell(1, Sample_rows::choice_column, "a \"b\"\tc"));
    EXPECT_TRUE(table.click_cell(0, 1));
    EXPECT_TRUE(table.click_cell(1, 2, TTable::Select::extend));
    EXPECT_TRUE(table.key({.text = "c", .control = true}));
    EXPECT_EQ(desktop_.clipboard_text(), "0\tlow\n1\t\"a \"\"b\"\"\tc\"\n");
    EXPECT_TRUE(table.click_cell(5, 1));
    EXPECT_TRUE(table.key({.text = "v", .control = true}));
    EXPECT_EQ(rows_.cell(6, 1).text, "1");
    EXPECT_EQ(rows_.cell(6, 2).text, "a \"b\"\tc");
    EXPECT_EQ(status_.text(), "");

    desktop_.set_clipboard_text("9");
    EXPECT_TRUE(table.select_block({2, 1, 4, 1}, 2, 1) && table.paste());
    EXPECT_EQ(rows_.cell(3, 1).text + rows_.cell(4, 1).text, "99") << "one cell fills the block";
    desktop_.set_clipboard_text("1\r\nx\r\n3\r\n4");
    EXPECT_TRUE(table.click_cell(8, 1) && table.paste());
    EXPECT_EQ(rows_.cell(8, 1).text, "1");
    EXPECT_EQ(status_.text(), "Cells that were not pasted: 3. A value is a number.");
}

} // namespace
