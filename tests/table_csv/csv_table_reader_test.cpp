#include "table_csv/csv_table_reader.h"

#include <gtest/gtest.h>

namespace {

// The rows with their numbers, "|" between cells and ";" behind each row; or the failure.
std::string read(std::string_view text) {
    const Text_table table = Csv_table_reader().read(text);
    std::string result;
    for (const Text_table::Row& row : table.rows) {
        result += std::to_string(row.number) + ':';
        for (const std::string& cell : row.cells)
            result += cell + '|';
        result += ';';
    }
    return table.failure.empty() ? result : table.failure;
}

TEST(Csv_table_reader, reads_what_spreadsheets_write_and_counts_rows_as_they_do) {
    for (const auto& [text, expected] : {
             std::pair("name,H2O.1\r\na,0.5\r\n\r\n,\r\nb,\"0,7\"\r\n", "1:name|H2O.1|;2:a|0.5|;5:b|0,7|;"),
             {"name\tH2O.1\na, b\t\n\tc", "1:name|H2O.1|;2:a, b||;3:|c|;"},
             {"\xEF\xBB\xBFname;x.y\ra;1,5\rb;2", "1:name|x.y|;2:a|1,5|;3:b|2|;"},
             {"name\n\"two\r\nlines \"\"x\"\"\"\nb", "1:name|;2:two\r\nlines \"x\"|;3:b|;"},
             {"", ""},
             {"\n\n", ""},
         })
        EXPECT_EQ(read(text), expected) << text;
}

TEST(Csv_table_reader, refuses_a_table_of_which_it_cannot_tell_the_cells) {
    const char* const quotation =
        "Row 2: a quotation mark has no counterpart, or stands in the middle of a cell.";
    for (const char* text : {"name\n\"a,b\nc\nd", "name\na\"b\n", "name\n\"a\"b\n"})
        EXPECT_EQ(read(text), quotation) << text;
    EXPECT_TRUE(read(std::string_view("n\0a\0m\0e\0", 8)).starts_with("The table must be saved"));
    EXPECT_EQ(read("name\n" + std::string(3'000'000, 'x')).size(), 3'000'012U);
    std::string rows;
    for (int i = 0; i <= 100'000; ++i)
        rows += "a\n";
    for (const std::string& large : {rows, std::string(2'000'001, ',')})
        EXPECT_TRUE(read(large).starts_with("The table has more than"));
}

} // namespace
