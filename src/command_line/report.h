// What a command reports, once for all forms: a table that fits a terminal, lines with tabs between the
// values for a pipe, or JSON.
#pragma once

#include "command_line/session.h"

#include <nlohmann/json.hpp>

#include <string>
#include <vector>

using Json = nlohmann::ordered_json;

// A column: its key in JSON, which in upper case stands above it on a terminal.
struct Column {
    const char* key;
    bool is_shown = true; // else it stands in JSON alone
};

class Report {
public:
    Report(Session& session, std::vector<Column> columns);
    Report(const Report&) = delete;
    Report& operator=(const Report&) = delete;
    // Ends the array of a command that fails between two rows.
    ~Report();

    // Adds a row, a value for each column: texts in UTF-8, numbers, flags, or null for what there is not.
    // False once nobody reads any more.
    bool add(const std::vector<Json>& row);
    // Writes what is left. JSON is one array of all rows.
    void finish();

private:
    void write_table();
    void write_line(const std::vector<std::string>& cells);

    Session& session_;
    std::vector<Column> columns_;
    std::vector<std::vector<std::string>> rows_; // of a table
    bool is_first_ = true;                       // of the rows in JSON
    bool is_finished_ = false;
};

// A call that is refused as a whole reports that in JSON: an object with the sentence, unless rows stand
// there already.
void print_refusal(Session& session, const std::string& sentence);

// Prints one thing: an object in JSON, else a line for each member.
void print_object(Session& session, const Json& object);

// A value as a cell shows it, on one line.
std::string cell_text(const Json& value);
