// The rows of the page of settings: the keys of many scenarios under their sections, a column for the values
// of each, and what the user wants to have changed in them.
#pragma once

#include "operations/settings_grid.h"
#include "operations/settings_plan.h"
#include "toolkit/table.h"

#include <optional>
#include <string>
#include <vector>

class Setting_rows : public Table_rows {
public:
    // Columns before those of the scenarios.
    enum Column { key_column, caption_column, unit_column, range_column, changers_column, first_scenario };
    static std::vector<Table_column> columns();

    // Reads the files, the one that the others are compared with first, and forgets what was wanted. Those
    // that cannot be read get no column; they are named with the reason.
    Operation_outcome read(const std::vector<std::string>& files, const Operation_progress& progress);
    // Says that the first file is the one that the others were made from: who has changed it is told.
    void set_has_common(bool has_common) { has_common_ = has_common; }
    bool has_common() const { return has_common_; }
    // Says that the file of a column is only shown, and why, in the user's language.
    void set_only_shown(std::size_t record, std::string reason) { only_shown_[record] = std::move(reason); }
    const std::string& only_shown(std::size_t record) const { return only_shown_[record]; }

    // Shows the rows in whose keys or values all words of the filter, in code page 1252, are found, and that
    // differ between scenarios if only those are wanted.
    void filter(const std::string& words, bool only_differing);
    // How many settings are shown, and how many there are.
    std::size_t settings_shown() const { return settings_shown_; }
    std::size_t total() const { return grid_.order().size(); }

    const Settings_grid& grid() const { return grid_; }
    Settings_plan& plan() { return plan_; }
    const Settings_plan& plan() const { return plan_; }

    // The record and the row of the grid that a cell shows; nothing for one that shows no value.
    struct Place {
        std::size_t record;
        std::size_t row;
    };
    std::optional<Place> place_of(int row, int column) const;
    // The row that shows the values of a row of the grid, or -1.
    int row_of(std::size_t grid_row) const;
    // What is to be said of the value of a cell, in the user's language; mostly nothing.
    std::string remark(int row, int column) const;

    // Table_rows
    int count() const override { return static_cast<int>(shown_.size()); }
    Table_cell cell(int row, int column) const override;
    std::string hint(int row, int column) const override;
    Table_cell row_header(int row) const override { return cell(row, key_column); }
    std::optional<Cell_editor> editor(int row, int column) const override;
    std::string set_text(int row, int column, const std::string& text) override;

private:
    struct Line {
        std::size_t row;
        bool is_heading; // of the row's section
    };

    const Settings_grid::Row& row_at(int row) const {
        return grid_.rows()[shown_[static_cast<std::size_t>(row)].row];
    }
    Table_cell description_cell(const Settings_grid::Row& row, int column) const;
    Table_cell value_cell(const Place& place) const;
    bool differs(const Place& place) const;
    std::string changers_of(const Settings_grid::Row& row) const;

    Settings_grid grid_;
    Settings_plan plan_{grid_};
    std::vector<Line> shown_;
    std::size_t settings_shown_ = 0;
    bool has_common_ = false;
    std::vector<std::string> only_shown_; // by records; empty for those that are edited
};
