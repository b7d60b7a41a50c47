// The rows of the page of settings: the keys of many scenarios, a column for the values of each, and what
// the user wants to have changed in them.
#pragma once

#include "operations/operation_outcome.h"
#include "operations/record_settings.h"
#include "operations/settings_change.h"
#include "toolkit/table.h"

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

class Setting_rows : public Table_rows {
public:
    // Columns before those of the scenarios.
    enum Column { section_column, key_column, caption_column, unit_column, range_column, first_scenario };
    static std::vector<Table_column> columns();

    // Reads the files, the one that the others are compared with first, and forgets what was wanted. Those
    // that cannot be read get no column; they are named with the reason.
    Operation_outcome read(const std::vector<std::string>& files);
    // Full names, by columns.
    const std::vector<std::string>& files() const { return files_; }

    // Shows the rows in whose keys or values all words of the filter, in code page 1252, are found, and that
    // differ between scenarios if only those are wanted.
    void filter(const std::string& words, bool only_differing);
    std::size_t total() const { return order_.size(); }

    bool has_changes() const { return !wanted_.empty(); }
    std::size_t changed_files() const;
    // What is wanted of each file that is to change, its settings in the order of the rows.
    std::vector<Settings_change> changes() const;
    void forget_changes();
    // What was wanted of this file now stands in it.
    void changes_done(const std::string& file);
    // Why the value of a cell is doubtful or cannot be had, in the user's language; mostly nothing.
    std::string remark(int row, int column) const;
    std::function<void()> on_wanted; // a change of a cell was taken

    // Table_rows
    int count() const override { return static_cast<int>(shown_.size()); }
    Table_cell cell(int row, int column) const override;
    std::string hint(int row, int column) const override;
    std::optional<Cell_editor> editor(int row, int column) const override;
    std::string set_text(int row, int column, const std::string& text) override;

private:
    using Value = std::uint32_t; // a place in values_; 0 where a file has no such setting
    struct Row {
        std::string section;
        std::string key;
        std::string caption;
        std::string unit;
        std::string range;
        std::string folded; // what the filter finds
        std::vector<std::string> choices;
        Setting_kind kind = Setting_kind::text;
        bool is_known = false;
        bool is_fixed = false;
        bool differs = false;
        std::vector<Value> values; // by scenarios
    };
    struct Wanted {
        Value before;
        std::string remark; // a plain English sentence
    };
    using Place = std::pair<std::size_t, std::size_t>; // scenario and row, by which files come together

    void add(const Record_settings& settings, std::size_t scenario);
    std::size_t new_row(const Setting& setting);
    Value intern(const std::string& value);
    void compare(Row& row);
    const Row& row_at(int row) const { return rows_[shown_[static_cast<std::size_t>(row)]]; }
    const Wanted* wanted_at(int row, int column) const;
    Settings_change change_of(std::size_t scenario) const;

    std::vector<std::string> files_;
    std::vector<Row> rows_;
    std::vector<std::size_t> order_; // rows, as the records have them
    std::vector<std::size_t> shown_;
    std::unordered_map<std::string, std::size_t> places_; // rows, by "section.key"
    std::vector<std::string> values_;
    std::vector<std::string> folded_values_;
    std::unordered_map<std::string, Value> value_places_;
    std::map<Place, Wanted> wanted_;
};
