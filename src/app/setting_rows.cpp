#include "app/setting_rows.h"

#include "editing/bound_control.h"
#include "foundation/code_page_1252.h"
#include "toolkit/screen_language.h"

#include <algorithm>
#include <cmath>
#include <sstream>

namespace {

constexpr Colour blue = 0xc06000;
constexpr Colour orange = 0x0070d0;
constexpr Colour grey = 0x808080;
constexpr Picture other_value{Shape::diamond, blue, Mark::none, false, "differs from the first scenario"};
constexpr Picture changed{Shape::disc, blue, Mark::asterisk, false, "changed, not applied yet"};
constexpr Picture doubtful{Shape::octagon, orange, Mark::exclamation, false, "doubtful value"};
constexpr Picture undeclared{Shape::ring, grey, Mark::question, false, "unknown to this program"};

std::string in_lower_case(std::string text) {
    for (char& c : text)
        c = TESK::fold_case(c);
    return text;
}

// The limits beyond which no value is taken, or else those beyond which it is doubtful.
std::string range_of(const Setting& setting) {
    const TESK::Valid_number* const guard = setting.guard();
    if (guard == nullptr)
        return {};
    // Limits near the ends of what a number can be are none.
    const auto is_bounded = [](double low, double high) { return std::fabs(low) > 1e-30 || high < 1e38; };
    if (is_bounded(guard->error_low, guard->error_high))
        return guard->range_text(TESK::Validation_status::error_low);
    return is_bounded(guard->warning_low, guard->warning_high)
               ? guard->range_text(TESK::Validation_status::warning_low)
               : std::string();
}

} // namespace

std::vector<Table_column> Setting_rows::columns() {
    return {{"section", "Section", 16, Align::start, true, false},
            {"key", "Key", 22, Align::start, true, false},
            {"caption", "Meaning", 24, Align::start, true, false},
            {"unit", "Unit", 8, Align::start, true, false},
            {"range", "Range", 22, Align::start, true, false}};
}

Setting_rows::Value Setting_rows::intern(const std::string& value) {
    const auto [found, is_new] = value_places_.try_emplace(value, static_cast<Value>(values_.size()));
    if (is_new) {
        values_.push_back(value);
        folded_values_.push_back(in_lower_case(value));
    }
    return found->second;
}

void Setting_rows::compare(Row& row) {
    row.differs = std::any_of(row.values.begin(), row.values.end(),
                              [&](Value value) { return value != row.values.front(); });
}

Operation_outcome Setting_rows::read(const std::vector<std::string>& files) {
    files_.clear();
    rows_.clear();
    order_.clear();
    shown_.clear();
    places_.clear();
    value_places_.clear();
    wanted_.clear();
    values_.assign(1, "");
    folded_values_.assign(1, "");
    Operation_outcome outcome;
    for (const std::string& file : files) {
        const Record_settings settings(TESK::File_name(file.c_str()));
        if (!settings.failure().empty()) {
            outcome.not_done.push_back({file, settings.failure()});
            continue;
        }
        files_.push_back(settings.file());
        add(settings, files_.size() - 1);
        ++outcome.done;
    }
    for (Row& row : rows_) {
        row.values.resize(files_.size());
        compare(row);
    }
    return outcome;
}

// What only a later file has stands behind what it follows there.
void Setting_rows::add(const Record_settings& settings, std::size_t scenario) {
    std::vector<std::pair<std::size_t, std::size_t>> behind; // a place in the order, and the row for it
    std::vector<std::size_t> place_of(rows_.size());
    for (std::size_t place = 0; place < order_.size(); ++place)
        place_of[order_[place]] = place;
    std::size_t place = 0;
    for (const Setting& setting : settings.all()) {
        const auto [found, is_new] = places_.try_emplace(setting.name(), rows_.size());
        if (is_new)
            behind.emplace_back(place, new_row(setting));
        else if (found->second < place_of.size())
            place = place_of[found->second] + 1;
        Row& row = rows_[found->second];
        row.values.resize(scenario + 1);
        row.values[scenario] = intern(setting.value());
    }
    if (behind.empty())
        return;
    std::stable_sort(behind.begin(), behind.end(),
                     [](const auto& a, const auto& b) { return a.first < b.first; });
    std::vector<std::size_t> merged;
    auto next = behind.begin();
    for (std::size_t old = 0; old <= order_.size(); ++old) {
        for (; next != behind.end() && next->first == old; ++next)
            merged.push_back(next->second);
        if (old < order_.size())
            merged.push_back(order_[old]);
    }
    order_ = std::move(merged);
}

std::size_t Setting_rows::new_row(const Setting& setting) {
    Row row;
    row.section = setting.section();
    row.key = setting.key();
    row.caption = setting.caption();
    row.unit = setting.unit();
    row.range = range_of(setting);
    row.folded = in_lower_case(row.section + '.' + row.key + '\n' + row.caption);
    row.kind = setting.kind();
    for (const auto& [label, description] : setting.choices())
        row.choices.push_back(label);
    row.is_known = setting.is_known();
    row.is_fixed = setting.is_fixed();
    rows_.push_back(std::move(row));
    return rows_.size() - 1;
}

void Setting_rows::filter(const std::string& words, bool only_differing) {
    shown_.clear();
    for (const std::size_t row : order_)
        if (!only_differing || rows_[row].differs)
            shown_.push_back(row);
    std::istringstream stream(in_lower_case(words));
    for (std::string word; stream >> word;) {
        std::vector<bool> has_word(
            values_.size()); // each value is looked at once, however many cells have it
        for (std::size_t value = 0; value < values_.size(); ++value)
            has_word[value] = folded_values_[value].find(word) != std::string::npos;
        std::erase_if(shown_, [&](std::size_t place) {
            const Row& row = rows_[place];
            return row.folded.find(word) == std::string::npos &&
                   std::none_of(row.values.begin(), row.values.end(),
                                [&](Value value) { return has_word[value]; });
        });
    }
}

// ---- changes

const Setting_rows::Wanted* Setting_rows::wanted_at(int row, int column) const {
    if (column < first_scenario)
        return nullptr;
    const auto found = wanted_.find(
        {static_cast<std::size_t>(column - first_scenario), shown_[static_cast<std::size_t>(row)]});
    return found == wanted_.end() ? nullptr : &found->second;
}

Settings_change Setting_rows::change_of(std::size_t scenario) const {
    Settings_change change{files_[scenario], {}};
    for (auto one = wanted_.lower_bound({scenario, 0}); one != wanted_.end() && one->first.first == scenario;
         ++one) {
        const Row& row = rows_[one->first.second];
        change.settings.push_back({row.section, row.key, values_[row.values[scenario]]});
    }
    return change;
}

std::size_t Setting_rows::changed_files() const {
    std::size_t files = 0;
    for (auto one = wanted_.begin(); one != wanted_.end(); ++files)
        one = wanted_.lower_bound({one->first.first + 1, 0});
    return files;
}

std::vector<Settings_change> Setting_rows::changes() const {
    std::vector<Settings_change> changes;
    for (auto one = wanted_.begin(); one != wanted_.end();) {
        const std::size_t scenario = one->first.first;
        changes.push_back(change_of(scenario));
        one = wanted_.lower_bound({scenario + 1, 0});
    }
    return changes;
}

void Setting_rows::forget_changes() {
    for (const auto& [place, wanted] : wanted_) {
        Row& row = rows_[place.second];
        row.values[place.first] = wanted.before;
        compare(row);
    }
    wanted_.clear();
}

void Setting_rows::changes_done(const std::string& file) {
    std::erase_if(wanted_, [&](const auto& one) { return files_[one.first.first] == file; });
}

std::string Setting_rows::remark(int row, int column) const {
    const Wanted* const wanted = wanted_at(row, column);
    return wanted == nullptr ? "" : screen_text(wanted->remark);
}

std::string Setting_rows::set_text(int row, int column, const std::string& text) {
    const std::size_t place = shown_[static_cast<std::size_t>(row)];
    const auto scenario = static_cast<std::size_t>(column - first_scenario);
    const std::string value = record_text(text);
    if (screen_text(value) != text)
        return worded("A record cannot hold some of these characters.");
    Row& target = rows_[place];
    if (values_[target.values[scenario]] == value)
        return {};
    Settings_change change = change_of(scenario);
    std::erase_if(change.settings, [&](const Wanted_setting& one) {
        return one.section == target.section && one.key == target.key;
    });
    const auto found = wanted_.find({scenario, place});
    const bool is_old = found != wanted_.end() && values_[found->second.before] == value;
    change.settings.push_back({target.section, target.key, value});
    const Setting_verdict verdict = try_settings(change);
    if (!verdict.taken)
        return screen_text(verdict.reason);
    if (is_old) {
        target.values[scenario] = found->second.before;
        wanted_.erase(found);
    } else {
        const Value before = found == wanted_.end() ? target.values[scenario] : found->second.before;
        wanted_[{scenario, place}] = {before, verdict.reason};
        target.values[scenario] = intern(value);
    }
    compare(target);
    if (on_wanted)
        on_wanted();
    return {};
}

// ---- what the table shows

Table_cell Setting_rows::cell(int row, int column) const {
    const Row& shown = row_at(row);
    switch (column) {
    case section_column: return {.text = screen_text(shown.section)};
    case key_column:
        return {.text = screen_text(shown.key), .picture = shown.is_known ? Picture{} : undeclared};
    case caption_column:
        return {.text = shown.is_known ? screen_text(shown.caption) : worded("unknown to this program")};
    case unit_column: return {.text = screen_text(shown.unit)};
    case range_column: return {.text = screen_text(shown.range)};
    default: break;
    }
    const Value value = shown.values[static_cast<std::size_t>(column - first_scenario)];
    Table_cell cell{.text = screen_text(values_[value])};
    if (const Wanted* const wanted = wanted_at(row, column))
        cell.picture = wanted->remark.empty() ? changed : doubtful;
    else if (value != shown.values.front())
        cell.picture = other_value;
    return cell;
}

std::string Setting_rows::hint(int row, int column) const {
    if (column < first_scenario)
        return cell(row, column).text;
    const std::string said = remark(row, column);
    return said.empty() ? worded(cell(row, column).picture.meaning) : said;
}

std::optional<Cell_editor> Setting_rows::editor(int row, int column) const {
    const Row& shown = row_at(row);
    if (column < first_scenario || shown.is_fixed ||
        shown.values[static_cast<std::size_t>(column - first_scenario)] == 0)
        return {};
    switch (shown.kind) {
    case Setting_kind::choice: return Cell_editor{Cell_editor::Kind::choice, shown.choices};
    case Setting_kind::flag: return Cell_editor{Cell_editor::Kind::choice, {"true", "false"}};
    case Setting_kind::integer:
    case Setting_kind::number: return Cell_editor{Cell_editor::Kind::number, {}};
    default: return Cell_editor{};
    }
}
