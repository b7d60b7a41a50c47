// Rows for tests of tables: a name with a tick, a number, a choice, and notes edited elsewhere.
#pragma once

#include "toolkit/table.h"

#include <algorithm>

class Sample_rows : public Table_rows {
public:
    static constexpr int value_column = 1;
    static constexpr int choice_column = 2;
    static constexpr int notes_column = 3;
    static constexpr int without_tick = 2; // the row that cannot be ticked

    explicit Sample_rows(int count) {
        for (int row = 0; row < count; ++row)
            rows_.push_back({"scenario " + std::to_string(row), std::to_string(row), "low", "..."});
        ticked_.resize(rows_.size());
    }

    static std::vector<Table_column> columns() {
        return {{"name", "Name", 20},
                {"value", "Value", 8, Align::end},
                {"choice", "Choice", 10},
                {"notes", "Notes", 10, Align::start, true, false}};
    }

    int count() const override { return static_cast<int>(rows_.size()); }
    Table_cell cell(int row, int column) const override {
        ++asked;
        return {at(row)[static_cast<std::size_t>(column)], column == 0 ? status_light(row % 14) : Picture{}};
    }
    std::string hint(int row, int column) const override {
        return column == 0 ? "File of " + at(row)[0] : "";
    }
    bool ticked(int row) const override { return ticked_[static_cast<std::size_t>(row)]; }
    bool can_tick(int row) const override { return row != without_tick; }
    void set_ticked(int row, bool ticked) override { ticked_[static_cast<std::size_t>(row)] = ticked; }
    std::optional<Cell_editor> editor(int, int column) const override {
        switch (column) {
        case value_column: return Cell_editor{Cell_editor::Kind::number};
        case choice_column: return Cell_editor{Cell_editor::Kind::choice, {"low", "high"}};
        case notes_column: return Cell_editor{Cell_editor::Kind::other};
        default: return {};
        }
    }
    std::string set_text(int row, int column, const std::string& text) override {
        if (column == value_column && text.find_first_not_of("0123456789") != std::string::npos)
            return "A value is a number.";
        rows_[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)] = text;
        return {};
    }

    auto ticks() const { return std::count(ticked_.begin(), ticked_.end(), true); }

    mutable int asked = 0; // how many cells were asked for

private:
    const std::vector<std::string>& at(int row) const { return rows_[static_cast<std::size_t>(row)]; }

    std::vector<std::vector<std::string>> rows_;
    std::vector<bool> ticked_;
};
