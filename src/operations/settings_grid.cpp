#include "operations/settings_grid.h"

#include "foundation/code_page_1252.h"
#include "platform/interrupted_save.h"

#include <algorithm>
#include <sstream>

namespace {

constexpr std::size_t none = static_cast<std::size_t>(-1);

std::string in_lower_case(std::string text) {
    for (char& c : text)
        c = TESK::fold_case(c);
    return text;
}

} // namespace

void Settings_grid::clear() {
    *this = Settings_grid();
}

Operation_outcome Settings_grid::read(const std::vector<std::string>& files,
                                      const Operation_progress& progress) {
    clear();
    Operation_outcome outcome;
    const platform::Interruptions_view view;
    for (std::size_t i = 0; i < files.size(); ++i) {
        outcome.stopped = !goes_on(progress, i, files.size());
        if (outcome.stopped)
            break;
        if (std::string failure = add(TESK::File_name(files[i].c_str())); failure.empty())
            ++outcome.done;
        else
            outcome.not_done.push_back({files[i], std::move(failure)});
    }
    return outcome;
}

std::string Settings_grid::add(const TESK::File_name& file) {
    const auto settings = std::make_shared<const Record_settings>(file);
    if (!settings->failure().empty())
        return settings->failure();
    const std::size_t record = files_.size();
    const std::size_t rows_before = rows_.size();
    std::vector<std::pair<std::size_t, std::size_t>> behind; // an old row, and the new one that follows it
    std::vector<std::size_t> rows;
    rows.reserve(settings->all().size());
    std::size_t last_old_row = none;
    std::size_t next = 0; // the setting of the record before that would be met next
    bool is_laid_out_alike = last_ != nullptr && last_->all().size() == settings->all().size();
    bool is_keeper = false;
    for (const Setting& setting : settings->all()) {
        std::size_t index = row_for(setting, next);
        if (index == none) {
            index = new_row(setting);
            behind.emplace_back(last_old_row, index);
        } else if (index < rows_before) {
            last_old_row = index;
        }
        Row& row = rows_[index];
        if (row.rule == nullptr && setting.is_known()) {
            row.rule = &setting;
            row.folded += in_lower_case(setting.caption());
            is_keeper = true;
        }
        const Setting* const before =
            next > 0 && last_rows_[next - 1] == index ? &last_->all()[next - 1] : nullptr;
        is_laid_out_alike = is_laid_out_alike && before != nullptr &&
                            before->entry().type_code() == setting.entry().type_code();
        // A key that stands in two sections of the same name: the last one counts.
        row.values.resize(record + 1);
        row.values[record] = before != nullptr && setting.has_value_of(*before) ? row.values[record - 1]
                                                                                : intern(setting.value());
        rows.push_back(index);
    }
    for (Row& row : rows_) {
        row.values.resize(record + 1);
        row.differs = row.differs || row.values[record] != row.values.front();
    }
    files_.push_back(settings->file());
    if (!behind.empty())
        place_rows(behind);
    if (is_laid_out_alike)
        bonds_.push_back(bonds_.back());
    else
        note_bonds(*settings, rows);
    note_older_spellings(*settings);
    if (is_keeper)
        keepers_.push_back(settings);
    last_ = settings;
    last_rows_ = std::move(rows);
    return {};
}

// The row of the setting, or none. `next` is where it stands in the record before, if it stands there in the
// same order, and gets behind it.
std::size_t Settings_grid::row_for(const Setting& setting, std::size_t& next) const {
    const auto is_it = [&](std::size_t row) {
        return rows_[row].key == setting.key() && rows_[row].section == setting.section();
    };
    if (next < last_rows_.size() && is_it(last_rows_[next]))
        return last_rows_[next++];
    const auto found = places_.find(setting.name());
    if (found == places_.end() || !is_it(found->second))
        return none;
    const auto place =
        std::find(last_rows_.begin() + static_cast<std::ptrdiff_t>(std::min(next, last_rows_.size())),
                  last_rows_.end(), found->second);
    if (place != last_rows_.end())
        next = static_cast<std::size_t>(place - last_rows_.begin()) + 1;
    return found->second;
}

std::size_t Settings_grid::new_row(const Setting& setting) {
    Row row{.section = setting.section(), .key = setting.key(), .is_fixed = setting.is_fixed()};
    row.folded = in_lower_case(setting.name() + '\n');
    row.values.resize(files_.size());
    rows_.push_back(std::move(row));
    places_.try_emplace(setting.name(), rows_.size() - 1);
    return rows_.size() - 1;
}

// Puts new rows behind the old ones that they follow in their record.
void Settings_grid::place_rows(const std::vector<std::pair<std::size_t, std::size_t>>& behind) {
    std::multimap<std::size_t, std::size_t> followers(behind.begin(), behind.end());
    std::vector<std::size_t> merged;
    merged.reserve(rows_.size());
    const auto take = [&](std::size_t row) {
        const auto [first, last] = followers.equal_range(row);
        for (auto one = first; one != last; ++one)
            merged.push_back(one->second);
    };
    take(none);
    for (const std::size_t row : order_) {
        merged.push_back(row);
        take(row);
    }
    order_ = std::move(merged);
}

void Settings_grid::note_bonds(const Record_settings& settings, const std::vector<std::size_t>& rows) {
    std::multimap<const void*, std::size_t> fields;
    for (std::size_t i = 0; i < rows.size(); ++i)
        if (const void* field = settings.all()[i].field())
            fields.emplace(field, rows[i]);
    Bonds bonds;
    for (const auto& [field, row] : fields) {
        const auto [first, last] = fields.equal_range(field);
        for (auto other = first; other != last; ++other)
            if (other->second != row)
                bonds.emplace(row, other->second);
    }
    bonds_.push_back(std::make_shared<const Bonds>(std::move(bonds)));
}

void Settings_grid::note_older_spellings(const Record_settings& settings) {
    const std::size_t record = files_.size() - 1;
    for (const Older_spelling& older : settings.older_spellings()) {
        const auto row = places_.find(older.section + '.' + older.key);
        const auto old_row = places_.find(older.old_section + '.' + older.old_key);
        if (row != places_.end() && old_row != places_.end() &&
            rows_[old_row->second].values[record] != no_value)
            older_.try_emplace({record, row->second}, older.reason());
    }
}

Settings_grid::Value Settings_grid::intern(const std::string& value) {
    const auto [found, is_new] = value_places_.try_emplace(value, static_cast<Value>(values_.size()));
    if (is_new) {
        values_.push_back(value);
        folded_values_.push_back(in_lower_case(value));
    }
    return found->second;
}

std::vector<std::size_t> Settings_grid::find_rows(const std::string& words, bool only_differing) const {
    std::vector<std::size_t> found;
    for (const std::size_t row : order_)
        if (!only_differing || rows_[row].differs)
            found.push_back(row);
    std::istringstream stream(in_lower_case(words));
    for (std::string word; stream >> word;) {
        // Each value is looked at once, however many cells have it.
        std::vector<bool> has_word(values_.size());
        for (std::size_t value = 0; value < values_.size(); ++value)
            has_word[value] = folded_values_[value].find(word) != std::string::npos;
        std::erase_if(found, [&](std::size_t row) {
            const auto& values = rows_[row].values;
            return rows_[row].folded.find(word) == std::string::npos &&
                   std::none_of(values.begin(), values.end(), [&](Value value) { return has_word[value]; });
        });
    }
    return found;
}

void Settings_grid::set_value(std::size_t record, std::size_t row, const std::string& value) {
    std::vector<Value>& values = rows_[row].values;
    values[record] = intern(value);
    rows_[row].differs =
        std::any_of(values.begin(), values.end(), [&](Value one) { return one != values.front(); });
}

std::vector<std::size_t> Settings_grid::bound_to(std::size_t record, std::size_t row) const {
    std::vector<std::size_t> rows;
    const auto [first, last] = bonds_[record]->equal_range(row);
    for (auto one = first; one != last; ++one)
        rows.push_back(one->second);
    return rows;
}

std::string Settings_grid::reason_not_to_set(std::size_t record, std::size_t row) const {
    if (rows_[row].is_fixed)
        return Record_settings::fixed_reason;
    const auto older = older_.find({record, row});
    return older == older_.end() ? std::string() : older->second;
}
