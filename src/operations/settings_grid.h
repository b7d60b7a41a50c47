// The settings of many records side by side: a row for each key that one of them has, in the records' own
// order. A record is read once. All texts are in code page 1252.
#pragma once

#include "operations/operation_outcome.h"
#include "operations/record_settings.h"

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

class Settings_grid {
public:
    // What stands in a cell, the same number for the same text; 0 where a record has no such setting.
    using Value = std::uint32_t;
    static constexpr Value no_value = 0;

    struct Row {
        std::string section;
        std::string key;
        const Setting* rule = nullptr; // what may stand there; null for what no record declares
        bool is_fixed = false;         // see Setting::is_fixed
        bool differs = false;          // not all records have the same
        std::string folded{};          // what a search finds: section, key and caption
        std::vector<Value> values{};   // by records, one for each
    };

    // Reads the records in place of those before; the others are compared with the first. What cannot be read
    // is no record of the grid and is named with the reason. Relative names in them count from the current
    // directory.
    Operation_outcome read(const std::vector<std::string>& files, const Operation_progress& progress);
    // Adds one record. Gives why it cannot be read; nothing when it was.
    std::string add(const TESK::File_name& file);

    // Full names, by records.
    const std::vector<std::string>& files() const { return files_; }
    const std::vector<Row>& rows() const { return rows_; }
    // Which row stands where.
    const std::vector<std::size_t>& order() const { return order_; }
    const std::string& text(Value value) const { return values_[value]; }

    // The rows, in order, in whose keys, captions or values each of the words is found, and that differ if
    // only those are wanted.
    std::vector<std::size_t> find_rows(const std::string& words, bool only_differing) const;

    // Shows another value in a cell that has one; the record and its file stay as they are.
    void set_value(std::size_t record, std::size_t row, const std::string& value);
    // The other rows that are bound to the same field of the record.
    std::vector<std::size_t> bound_to(std::size_t record, std::size_t row) const;
    // Why a record has no other value in a row, whatever the value; nothing when it can have one.
    std::string reason_not_to_set(std::size_t record, std::size_t row) const;

private:
    // Rows of a record that are bound to one field, each with each.
    using Bonds = std::multimap<std::size_t, std::size_t>;

    void clear();
    std::size_t row_for(const Setting& setting, std::size_t& next) const;
    std::size_t new_row(const Setting& setting);
    void place_rows(const std::vector<std::pair<std::size_t, std::size_t>>& behind);
    void note_bonds(const Record_settings& settings, const std::vector<std::size_t>& rows);
    void note_older_spellings(const Record_settings& settings);
    Value intern(const std::string& value);

    std::vector<std::string> files_;
    std::vector<Row> rows_;
    std::vector<std::size_t> order_;
    std::unordered_map<std::string, std::size_t> places_; // rows, by "section.key"
    std::vector<std::string> values_{""};
    std::vector<std::string> folded_values_{""};
    std::unordered_map<std::string, Value> value_places_;
    std::vector<std::shared_ptr<const Record_settings>> keepers_;      // of the rows' rules
    std::vector<std::shared_ptr<const Bonds>> bonds_;                  // by records, which mostly share them
    std::map<std::pair<std::size_t, std::size_t>, std::string> older_; // record and row, with the reason

    // The record before: most have the same settings in the same places, and mostly with the same values.
    std::shared_ptr<const Record_settings> last_;
    std::vector<std::size_t> last_rows_; // by its settings
};
