// A window that shows a table of a map or of a run (.dbf): to be sorted by any column and copied into a
// spreadsheet. Nothing in it changes the file.
#pragma once

#include "operations/attribute_table.h"
#include "toolkit/button.h"
#include "toolkit/form.h"
#include "toolkit/label.h"
#include "toolkit/table.h"

#include <memory>
#include <string>
#include <vector>

// What to tell the user of a table that cannot be shown, or not all of it; empty when all is well.
std::string trouble_with(const Attribute_table& table, const std::string& file_name);

// The rows of a table file in some order.
class Attribute_rows : public Table_rows {
public:
    // Shows them in the order of the file.
    void set_contents(Attribute_table contents);
    void sort(int column, bool down);

    const Attribute_table& contents() const { return contents_; }
    int count() const override { return static_cast<int>(order_.size()); }
    Table_cell cell(int row, int column) const override;
    // Where a row of the file is on view, and which one is there.
    int place_of(std::uint32_t number) const;
    std::uint32_t number_at(int row) const { return order_[static_cast<std::size_t>(row)]; }

private:
    Attribute_table contents_;
    std::vector<std::uint32_t> order_; // the rows of the file as they are shown
};

class Table_window : public TForm {
public:
    Table_window();

    // Reads the file (a full name), also when it is on view already, and shows it from its first row on.
    void read(const std::string& file_name);
    const std::string& file() const { return file_; }

    TLabel& file_label;
    TTable& table;
    TButton& copy_all_button; // with the names of the columns
    TButton& close_button;
    TStatusLine& status_line;

private:
    void show_columns();
    void sort(int column, bool down);
    void copy_all();

    std::string file_;
    Attribute_rows rows_;
};

// The table windows that are open beside a project.
class Table_windows {
public:
    // Shows the table in a window of its own; one that shows it already reads it anew and comes to the front.
    void show(const std::string& file_name);

    const std::vector<std::unique_ptr<Table_window>>& windows() const { return windows_; }

private:
    std::vector<std::unique_ptr<Table_window>> windows_; // closed ones too, until another is opened
};
