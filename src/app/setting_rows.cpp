#include "app/setting_rows.h"

#include "app/state_pictures.h"
#include "editing/auto_status.h"
#include "editing/bound_control.h"
#include "operations/record_difference.h"
#include "operations/setting_values.h"
#include "toolkit/screen_language.h"

#include <algorithm>
#include <cmath>

namespace {

using TESK::Validation_status;

using namespace sign_colours;
constexpr Picture other_value{Shape::diamond, blue, Mark::none, false, "differs from the first scenario"};
constexpr Picture not_the_template{Shape::diamond, blue, Mark::none, false, "differs from the template"};
constexpr Picture changed{Shape::disc, blue, Mark::asterisk, false, "changed, not applied yet"};
constexpr Picture undeclared{Shape::ring, grey, Mark::question, false, "unknown to this program"};

// The limits beyond which no value is taken, or else those beyond which it is doubtful.
std::string range_of(const Setting* setting) {
    const TESK::Valid_number* const guard = setting == nullptr ? nullptr : setting->guard();
    if (guard == nullptr)
        return {};
    // Limits near the ends of what a number can be are none.
    const auto is_bounded = [](double low, double high) { return std::fabs(low) > 1e-30 || high < 1e38; };
    if (is_bounded(guard->error_low, guard->error_high))
        return guard->range_text(Validation_status::error_low);
    return is_bounded(guard->warning_low, guard->warning_high)
               ? guard->range_text(Validation_status::warning_low)
               : std::string();
}

// The verdict on a number; nothing where nothing judges it.
std::optional<Validation_status> verdict_on(const Settings_grid::Row& row, const std::string& value) {
    if (row.rule == nullptr || row.rule->guard() == nullptr)
        return {};
    const std::optional<double> number = number_of(value);
    return number ? row.rule->guard()->judge(*number) : Validation_status::not_valid;
}

std::string name_of(const std::string& file) {
    return screen_text(TESK::File_name(file.c_str()).get_name(false));
}

} // namespace

std::vector<Table_column> Setting_rows::columns() {
    // The key stands before each row, too: the column is for who copies it.
    return {{"key", "Key", 22, Align::start, false, false},
            {"caption", "Meaning", 16, Align::start, true, false},
            {"unit", "Unit", 8, Align::start, true, false},
            {"range", "Range", 18, Align::start, true, false},
            {"changed_by", "Changed by", 18, Align::start, false, false}};
}

Operation_outcome Setting_rows::read(const std::vector<std::string>& files,
                                     const Operation_progress& progress) {
    shown_.clear();
    settings_shown_ = 0;
    plan_.forget_all();
    const Operation_outcome outcome = grid_.read(files, progress);
    only_shown_.assign(grid_.files().size(), "");
    return outcome;
}

void Setting_rows::filter(const std::string& words, bool only_differing) {
    const std::vector<std::size_t> rows = grid_.find_rows(words, only_differing);
    shown_.clear();
    settings_shown_ = rows.size();
    const std::string* section = nullptr;
    for (const std::size_t row : rows) {
        const std::string& own = grid_.rows()[row].section;
        if (section == nullptr || *section != own)
            shown_.push_back({row, true});
        section = &own;
        shown_.push_back({row, false});
    }
}

std::optional<Setting_rows::Place> Setting_rows::place_of(int row, int column) const {
    const auto line = static_cast<std::size_t>(row);
    if (column < first_scenario || row < 0 || line >= shown_.size() || shown_[line].is_heading)
        return {};
    return Place{static_cast<std::size_t>(column - first_scenario), shown_[line].row};
}

int Setting_rows::row_of(std::size_t grid_row) const {
    const auto found = std::find_if(shown_.begin(), shown_.end(), [&](const Line& line) {
        return !line.is_heading && line.row == grid_row;
    });
    return found == shown_.end() ? -1 : static_cast<int>(found - shown_.begin());
}

bool Setting_rows::differs(const Place& place) const {
    const auto& values = grid_.rows()[place.row].values;
    return values[place.record] != values.front();
}

// ---- what the table shows

Table_cell Setting_rows::cell(int row, int column) const {
    if (const auto place = place_of(row, column))
        return value_cell(*place);
    const Settings_grid::Row& shown = row_at(row);
    if (!shown_[static_cast<std::size_t>(row)].is_heading)
        return description_cell(shown, column);
    return column == key_column ? Table_cell{.text = screen_text(shown.section), .strong = true}
                                : Table_cell{};
}

Table_cell Setting_rows::description_cell(const Settings_grid::Row& row, int column) const {
    switch (column) {
    case key_column:
        return {.text = screen_text(row.key), .picture = row.rule == nullptr ? undeclared : Picture{}};
    case caption_column:
        return {.text = row.rule == nullptr ? worded(undeclared.meaning)
                                            : worded(screen_text(row.rule->caption()))};
    case unit_column: return {.text = row.rule == nullptr ? "" : worded(screen_text(row.rule->unit()))};
    case range_column: return {.text = worded(screen_text(range_of(row.rule)))};
    default: return {.text = has_common_ ? changers_of(row) : ""};
    }
}

// One sign has room: what is wrong comes before what is wanted, that before what differs. The last is told by
// the type, too, and what is wanted by what lies behind the text.
Table_cell Setting_rows::value_cell(const Place& place) const {
    const Settings_grid::Row& row = grid_.rows()[place.row];
    const Settings_grid::Value value = row.values[place.record];
    const std::string& text = grid_.text(value);
    const std::optional<Validation_status> verdict =
        value == Settings_grid::no_value ? std::nullopt : verdict_on(row, text);
    Table_cell cell{.text = screen_text(text), .strong = differs(place)};
    // A word such as "<Optional (Currently not selected)>" would say the opposite when cut like a path.
    cell.is_path = row.rule != nullptr && row.rule->kind() == Setting_kind::file && !text.starts_with('<');
    const bool is_wanted = plan_.is_wanted(place.record, place.row);
    if (is_wanted)
        cell.colour = focus_colour;
    if (verdict && *verdict != Validation_status::good)
        cell.picture = status_light(static_cast<int>(*verdict));
    else if (is_wanted)
        cell.picture = changed;
    else if (cell.strong)
        cell.picture = has_common_ ? not_the_template : other_value;
    else if (verdict)
        cell.picture = status_light(static_cast<int>(*verdict));
    return cell;
}

// "wet, dry (alike)"
std::string Setting_rows::changers_of(const Settings_grid::Row& row) const {
    constexpr std::size_t most_names = 3;
    const Changers changers = who_changed(row, 0);
    std::string names;
    for (std::size_t i = 0; i < changers.records.size() && i < most_names; ++i)
        names += (i > 0 ? ", " : "") + name_of(grid_.files()[changers.records[i]]);
    if (changers.records.size() > most_names)
        names += ' ' + worded("and %1 more", std::to_string(changers.records.size() - most_names));
    if (changers.records.size() > 1)
        names += " (" + worded(changers.alike ? "alike" : "each otherwise") + ')';
    return names;
}

std::string Setting_rows::remark(int row, int column) const {
    const auto place = place_of(row, column);
    if (!place)
        return {};
    const Settings_grid::Row& shown = grid_.rows()[place->row];
    const Settings_grid::Value value = shown.values[place->record];
    if (!only_shown_[place->record].empty())
        return only_shown_[place->record];
    if (value == Settings_grid::no_value)
        return worded("This scenario has no such setting.");
    if (const std::string reason = grid_.reason_not_to_set(place->record, place->row); !reason.empty())
        return worded(screen_text(reason));
    const auto verdict = verdict_on(shown, grid_.text(value));
    return verdict && *verdict != Validation_status::good
               ? worded("The value %1.", worded(shown.rule->guard()->range_text(*verdict)))
               : std::string();
}

std::string Setting_rows::hint(int row, int column) const {
    const auto place = place_of(row, column);
    if (!place)
        return cell(row, column).text;
    std::string hint = cell(row, column).text;
    const auto add = [&](const std::string& line) {
        if (!line.empty())
            hint += (hint.empty() ? "" : "\n") + line;
    };
    add(remark(row, column));
    if (plan_.is_wanted(place->record, place->row))
        add(worded(changed.meaning));
    if (differs(*place))
        add(worded((has_common_ ? not_the_template : other_value).meaning));
    return hint;
}

// ---- what the user changes

std::optional<Cell_editor> Setting_rows::editor(int row, int column) const {
    const auto place = place_of(row, column);
    if (!place || !only_shown_[place->record].empty())
        return {};
    const Settings_grid::Row& shown = grid_.rows()[place->row];
    if (shown.values[place->record] == Settings_grid::no_value ||
        !grid_.reason_not_to_set(place->record, place->row).empty())
        return {};
    Cell_editor editor;
    switch (shown.rule == nullptr ? Setting_kind::text : shown.rule->kind()) {
    case Setting_kind::choice:
        editor.kind = Cell_editor::Kind::choice;
        for (const auto& [label, description] : shown.rule->choices())
            editor.items.push_back(screen_text(label));
        break;
    case Setting_kind::flag: editor = {Cell_editor::Kind::choice, {"true", "false"}}; break;
    case Setting_kind::integer:
    case Setting_kind::number: editor.kind = Cell_editor::Kind::number; break;
    case Setting_kind::date:
    case Setting_kind::file: editor.kind = Cell_editor::Kind::other; break;
    default: break;
    }
    return editor;
}

std::string Setting_rows::set_text(int row, int column, const std::string& text) {
    const auto place = place_of(row, column);
    if (!place)
        return worded("This cell cannot be edited.");
    const std::string value = record_text(text);
    if (screen_text(value) != text)
        return worded("A record cannot hold some of these characters.");
    const Setting_verdict verdict = plan_.want(place->record, place->row, value);
    return verdict.taken ? std::string() : worded(screen_text(verdict.reason));
}
