// What is to be changed in the settings of a grid. The grid shows it at once; the files change when
// change_settings() is given changes(). Nothing is read for that: what may stand in a row is known.
#pragma once

#include "operations/settings_change.h"
#include "operations/settings_grid.h"

#include <map>
#include <string>
#include <utility>
#include <vector>

class Settings_plan {
public:
    // The grid outlives the plan; what is wanted must be forgotten before it is read anew.
    explicit Settings_plan(Settings_grid& grid) : grid_(&grid) {}

    // Whether the value, as a person writes it, can be had in the cell of a record, and why not, or why it is
    // doubtful. If so, it is wanted from now on; the rows that are bound to the same field show it too. The
    // value that the record has already is no change.
    Setting_verdict want(std::size_t record, std::size_t row, const std::string& value);
    // The cell, and those that follow it, get back what the record has.
    void take_back(std::size_t record, std::size_t row);
    void forget_all();
    // What was wanted of the record now stands in its file.
    void done(std::size_t record);

    bool is_empty() const { return wanted_.empty(); }
    bool is_wanted(std::size_t record, std::size_t row) const { return wanted_.contains({record, row}); }
    // Why the wanted value is doubtful; nothing when it is not.
    std::string remark(std::size_t record, std::size_t row) const;
    std::vector<std::size_t> changed_records() const;
    // What is wanted of each of the changed records, its settings in the order of the rows.
    std::vector<Settings_change> changes() const;

private:
    struct Wanted {
        Settings_grid::Value before; // what the record has
        std::string remark;          // a plain English sentence
        bool follows; // it is bound to the field of another row, for which the value was wanted
    };
    using Place = std::pair<std::size_t, std::size_t>; // record and row, by which records come together

    void show(std::size_t record, std::size_t row, const std::string& value, Wanted wanted);

    Settings_grid* grid_;
    std::map<Place, Wanted> wanted_;
};
