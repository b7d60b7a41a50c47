// What the program asks of a reader of tables in text form. The one real reader lies in a library of its own.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

struct Text_table {
    struct Row {
        std::size_t number = 0; // as a spreadsheet counts, from 1 and with empty rows
        std::vector<std::string> cells;
    };
    std::vector<Row> rows; // those in which something stands
    std::string failure;   // a plain English sentence; empty when all of it was read
};

class Table_reader {
public:
    virtual ~Table_reader() = default;

    // Reads a table whose cells stand between tabs, semicolons or commas, whichever the first line has, and
    // may be quoted. The bytes of the cells stay as they are, but for blanks around them.
    virtual Text_table read(std::string_view text) = 0;
};
