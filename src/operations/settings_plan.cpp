#include "operations/settings_plan.h"

#include "operations/setting_values.h"

namespace {

Value_trial try_in_row(const Settings_grid::Row& row, const std::string& value) {
    return row.rule == nullptr ? try_undeclared_value(value) : try_value(*row.rule, value);
}

} // namespace

Setting_verdict Settings_plan::want(std::size_t record, std::size_t row, const std::string& value) {
    const Settings_grid::Row& target = grid_->rows()[row];
    if (target.values[record] == Settings_grid::no_value)
        return {false, "The record has no such section and key."};
    if (std::string reason = grid_->reason_not_to_set(record, row); !reason.empty())
        return {false, std::move(reason)};
    const Value_trial trial = try_in_row(target, value);
    if (!trial.taken || trial.value == grid_->text(target.values[record]))
        return {trial.taken, trial.reason};
    for (const std::size_t other : grid_->bound_to(record, row)) {
        const Value_trial same = try_in_row(grid_->rows()[other], value);
        show(record, other, same.taken ? same.value : trial.value, {0, "", true});
    }
    show(record, row, trial.value, {0, trial.reason, false});
    return {true, trial.reason};
}

// What the record has is not wanted.
void Settings_plan::show(std::size_t record, std::size_t row, const std::string& value, Wanted wanted) {
    const auto found = wanted_.find({record, row});
    wanted.before = found == wanted_.end() ? grid_->rows()[row].values[record] : found->second.before;
    grid_->set_value(record, row, value);
    if (grid_->rows()[row].values[record] != wanted.before)
        wanted_.insert_or_assign({record, row}, std::move(wanted));
    else if (found != wanted_.end())
        wanted_.erase(found);
}

void Settings_plan::take_back(std::size_t record, std::size_t row) {
    std::vector<std::size_t> rows = grid_->bound_to(record, row);
    rows.push_back(row);
    for (const std::size_t one : rows)
        if (const auto found = wanted_.find({record, one}); found != wanted_.end()) {
            grid_->set_value(record, one, grid_->text(found->second.before));
            wanted_.erase(found);
        }
}

void Settings_plan::forget_all() {
    for (const auto& [place, wanted] : wanted_)
        grid_->set_value(place.first, place.second, grid_->text(wanted.before));
    wanted_.clear();
}

void Settings_plan::done(std::size_t record) {
    wanted_.erase(wanted_.lower_bound({record, 0}), wanted_.lower_bound({record + 1, 0}));
}

std::string Settings_plan::remark(std::size_t record, std::size_t row) const {
    const auto found = wanted_.find({record, row});
    return found == wanted_.end() ? std::string() : found->second.remark;
}

std::vector<std::size_t> Settings_plan::changed_records() const {
    std::vector<std::size_t> records;
    for (auto one = wanted_.begin(); one != wanted_.end(); one = wanted_.lower_bound({records.back() + 1, 0}))
        records.push_back(one->first.first);
    return records;
}

std::vector<Settings_change> Settings_plan::changes() const {
    std::vector<Settings_change> changes;
    for (const std::size_t record : changed_records()) {
        changes.push_back({grid_->files()[record], {}});
        for (auto one = wanted_.lower_bound({record, 0}); one != wanted_.end() && one->first.first == record;
             ++one) {
            const Settings_grid::Row& row = grid_->rows()[one->first.second];
            if (!one->second.follows)
                changes.back().settings.push_back({row.section, row.key, grid_->text(row.values[record])});
        }
    }
    return changes;
}
