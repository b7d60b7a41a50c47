#include "operations/scenario_variants.h"

#include "operations/setting_values.h"
#include "records/validation.h"

#include <algorithm>

Scenario_variants::Scenario_variants(const TESK::File_name& template_file, std::size_t count)
    : settings_(template_file), count_(count) {
    std::string value;
    for (const Setting& setting : settings_.all())
        old_values_.push_back(setting.entry().get_value(value));
}

std::string Scenario_variants::add_column(const std::string& name) {
    const Setting* setting = settings_.find(name);
    columns_.push_back({setting, "", "", {}});
    if (setting == nullptr)
        return "No section and key of that name are known.";
    setting->entry().get_value(columns_.back().old_value);
    return settings_.reason_not_to_set(*setting);
}

Scenario_variants::Verdict Scenario_variants::set(std::size_t column_index, std::size_t variant,
                                                  const std::string& value) {
    Column& column = columns_[column_index];
    const Value_trial trial = try_value(*column.setting, value);
    Verdict verdict;
    (trial.taken ? verdict.doubt : verdict.refusal) = trial.reason;
    if (trial.taken && trial.line != column.old_value) {
        TESK::VV_base_entry& entry = column.setting->entry();
        entry.set_value(TESK::Ustring(trial.text));
        if (column.lines.empty()) {
            column.sample = value;
            find_lines(column);
        }
        for (Lines& lines : column.lines)
            lines.setting->entry().label_cstr(lines.of_variant[variant]);
        entry.set_value(TESK::Ustring(column.old_value));
    }
    return verdict;
}

// Now that the setting has another value than the template: which lines of the file that changes.
void Scenario_variants::find_lines(Column& column) {
    std::string value;
    for (std::size_t i = 0; i < old_values_.size(); ++i) {
        const Setting& other = settings_.all()[i];
        if ((other.is_in_file() || &other == column.setting) &&
            other.entry().get_value(value) != old_values_[i])
            column.lines.push_back({&other, std::vector<std::string>(count_)});
    }
}

std::vector<std::string> Scenario_variants::settle() {
    std::vector<std::string> reasons(columns_.size());
    // The template with a line for each setting that it does not have.
    Record_settings extended(settings_.file());
    for (std::size_t i = 0; i < columns_.size(); ++i)
        reasons[i] = extend(extended, columns_[i]);
    base_ = extended.text();
    const std::string primary = settings_.record().get_primary_section_name();
    const Record_lines before(settings_.text(), primary);
    const Record_lines now(base_, primary);
    for (std::size_t i = 0; i < columns_.size(); ++i)
        for (const Lines& lines : columns_[i].lines) {
            const Record_line* line = now.find(lines.setting->section(), lines.setting->key());
            if (line == nullptr && reasons[i].empty())
                reasons[i] = "The setting cannot be given a value beside those of the other columns.";
            else if (line != nullptr && std::any_of(holes_.begin(), holes_.end(), [&](const Hole& hole) {
                         return !hole.is_header && hole.begin == line->begin;
                     }))
                reasons[i] = "It is the same setting as that of a column before.";
            else if (line != nullptr)
                dig_hole(before, now, lines);
        }
    std::sort(holes_.begin(), holes_.end(), [](const Hole& a, const Hole& b) { return a.begin < b.begin; });
    return reasons;
}

// Gives the text a line of the setting where it has none.
std::string Scenario_variants::extend(Record_settings& extended, const Column& column) const {
    if (column.lines.empty() || column.setting->is_in_file())
        return {};
    const Setting_change change =
        extended.set(column.setting->section(), column.setting->key(), column.sample);
    return change.done ? std::string() : change.reason;
}

void Scenario_variants::dig_hole(const Record_lines& before, const Record_lines& now, const Lines& lines) {
    const Record_line& line = *now.find(lines.setting->section(), lines.setting->key());
    const Record_line* old = before.find(lines.setting->section(), lines.setting->key());
    Hole hole{line.begin, line.end, "", {&lines}, false, ""};
    if (old != nullptr) {
        hole.original = settings_.text().substr(old->begin, old->end - old->begin);
    } else {
        hole.end = std::min(base_.find('\n', line.end), base_.size() - 1) + 1;
        hole.header_or_end = base_.substr(line.end, hole.end - line.end);
        dig_header(before, lines, line.begin);
    }
    holes_.push_back(std::move(hole));
}

// A section that the template lacks begins only where one of its settings has a value.
void Scenario_variants::dig_header(const Record_lines& before, const Lines& lines, std::size_t line_begin) {
    const std::string& section = lines.setting->section();
    if (before.has_header(section))
        return;
    const std::string header = '[' + section + ']';
    for (Hole& hole : holes_) {
        if (hole.is_header && hole.header_or_end.starts_with(header)) {
            hole.fill.push_back(&lines);
            return;
        }
    }
    const std::size_t begin = base_.rfind(header, line_begin);
    if (begin == std::string::npos)
        return;
    const std::size_t end = base_.find('\n', begin) + 1;
    holes_.push_back({begin, end, "", {&lines}, true, base_.substr(begin, end - begin)});
}

const std::string& Scenario_variants::text(std::size_t variant) {
    text_.clear();
    std::size_t place = 0;
    for (const Hole& hole : holes_) {
        text_.append(base_, place, hole.begin - place);
        place = hole.end;
        const auto line = std::find_if(hole.fill.begin(), hole.fill.end(), [&](const Lines* lines) {
            return !lines->of_variant[variant].empty();
        });
        if (line == hole.fill.end())
            text_ += hole.original;
        else if (hole.is_header)
            text_ += hole.header_or_end;
        else
            text_.append((*line)->of_variant[variant]).append(hole.header_or_end);
    }
    text_.append(base_, place);
    return text_;
}
