// The reader of tables, over libcsv.
#pragma once

#include "operations/table_reader.h"

class Csv_table_reader : public Table_reader {
public:
    // Refuses a quotation mark that has no counterpart or stands in the middle of a cell, a table of more
    // than 100,000 rows or 2,000,000 cells, and text of 16 bits a character.
    Text_table read(std::string_view text) override;
};
