// Families of scenarios from a table: one row a scenario, made from one template. The column "name" names
// it, a column "description" describes it, and every other column is a setting by its name "section.key". An
// empty cell keeps the template's value, and so does every setting without a column.
#pragma once

#include "operations/bulk_files.h"
#include "operations/operation_outcome.h"
#include "operations/scenario_variants.h"
#include "operations/table_reader.h"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

// What is wrong with a cell, or with a whole column: in its header, then.
struct Table_fault {
    std::size_t row = 0; // as a spreadsheet counts
    std::string column;
    std::string reason; // a plain English sentence
};

struct Table_check {
    std::size_t count = 0;             // how many scenarios the table makes
    std::vector<std::string> existing; // the file names of those that are there already
    // What no name, key, type or range takes: nothing is written as long as there is any. Only the first
    // thousand are kept, and counted all.
    std::vector<Table_fault> faults;
    std::size_t fault_count = 0;
    std::vector<Table_fault> doubts; // values that are taken, and doubtful; the first thousand
    std::string refused;             // why the table or the template cannot be read at all

    bool may_write() const { return refused.empty() && fault_count == 0 && count > 0; }
};

// The check in sentences, a line each, as people read it.
std::string describe_table_check(const Table_check& check);

class Scenario_table {
public:
    // Checks the table against the template and the scenarios in the folder, and writes nothing. Texts of the
    // table are UTF-8 where all of it is that, else code page 1252.
    Scenario_table(Text_table table, const TESK::File_name& template_file,
                   const TESK::Directory_name& folder);

    const Table_check& check() const { return check_; }

    // Writes the scenarios, over those that exist already. With `backups`, which may be null, the change can
    // be undone. Refused when the check found a fault.
    Operation_outcome write(Change_backups* backups, const Operation_progress& progress);

private:
    void convert_texts();
    bool read_header();
    void read_names();
    void read_values();
    void note_fault(std::size_t row, std::size_t column, std::string reason);
    const std::string& header(std::size_t column) const;

    Text_table table_; // in code page 1252; the first row is the header
    Bulk_files files_;
    Table_check check_;
    std::unique_ptr<Scenario_variants> variants_; // null without a header and a template
    std::size_t name_column_ = 0;
    std::vector<std::size_t> setting_columns_; // of the table, by columns of the variants
    std::vector<std::string> names_;           // the files, without their folder
};
