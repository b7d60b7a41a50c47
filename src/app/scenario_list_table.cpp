#include "app/scenario_list_table.h"

#include "app/run_set_rows.h"
#include "app/shown_values.h"
#include "app/state_pictures.h"
#include "editing/bound_control.h"
#include "editing/page_parts.h"
#include "foundation/code_page_1252.h"
#include "platform/listing.h"
#include "toolkit/screen_language.h"
#include "toolkit/screen_memory.h"

#include <algorithm>
#include <chrono>
#include <numeric>
#include <sstream>
#include <utility>

namespace {

using Clock = std::chrono::steady_clock;
constexpr std::chrono::milliseconds slice{8}; // of learning, between which the user is served

constexpr const char* state_choices[] = {"All states", "Never run", "Waiting",     "Running", "Done",
                                         "Failed",     "Stopped",   "Out of date", "Unknown", "Ticked"};
constexpr int all_states = 0;
constexpr int first_state = 1; // in the order of Scenario_state
constexpr int ticked_choice = 9;

std::vector<Table_column> table_columns() {
    return {{"name", "Name", 24},
            {"state", "State", 17},
            {"description", "Description", 34},
            {"changed", "Last changed", 17},
            {"run", "Last run", 17}};
}

std::string last_run_of(const Scenario_status& status) {
    return local_time_text(status.output_time != 0 ? status.output_time : status.record.ended);
}

std::string with_thousands(int number) {
    std::string text = std::to_string(number);
    for (int place = static_cast<int>(text.size()) - 3; place > 0; place -= 3)
        text.insert(static_cast<std::size_t>(place), ",");
    return text;
}

std::string in_lower_case(std::string text) {
    for (char& c : text)
        c = TESK::fold_case(c);
    return text;
}

// Whether all words of the filter are found: a plain one anywhere in the text, one with "*" or "?" as a
// pattern for a name or a description as a whole. All are in lower case.
bool matches(const std::string& filter, const std::string& name, const std::string& description) {
    std::istringstream words(filter);
    for (std::string word; words >> word;) {
        const bool is_pattern = word.find_first_of("*?") != std::string::npos;
        const bool found =
            is_pattern ? platform::matches_mask(name, word) || platform::matches_mask(description, word)
                       : name.find(word) != std::string::npos || description.find(word) != std::string::npos;
        if (!found)
            return false;
    }
    return true;
}

} // namespace

Scenario_list_table::Scenario_list_table(TControl& parent, const std::string& list_name)
    : Scenario_list_table(parent, parent.add<TPanel>(list_name + "_filter", Layout::row), list_name) {}

Scenario_list_table::Scenario_list_table(TControl& parent, TPanel& filter, const std::string& list_name)
    : Scenario_list_table(filter, fill(parent.add<TTable>(list_name + "_table", TTable::Selects::rows, true)),
                          parent, list_name) {}

Scenario_list_table::Scenario_list_table(TPanel& filter, TTable& rows_table, TControl& parent,
                                         const std::string& list_name)
    : filter_edit(fill(filter.add<TEdit>(list_name + "_filter_edit"))),
      state_combo(filter.add<TComboBox>(list_name + "_state_combo")), table(rows_table),
      list(table.add<TFileCheckListBox>(list_name)),
      count_label(parent.add<TLabel>(list_name + "_count_label")) {
    filter_edit.set_prompt("Find scenarios");
    filter_edit.set_hint(
        "Show only the scenarios whose name or description holds these words; * and ? stand for any "
        "characters.");
    state_combo.set_words({std::begin(state_choices), std::end(state_choices)});
    state_combo.set_item_index(all_states);
    count_label.set_text_is_data(true);
    table.set_columns(table_columns());
    table.set_sort(name_column, false);
    keep_columns(table);
    table.set_rows(this);

    filter_edit.on_change = [this] { refill(); };
    state_combo.on_change = [this] { refill(); };
    table.on_sort = [this](int column, bool down) {
        table.set_sort(column, down);
        reorder();
        refill();
    };
    table.on_change = [this] {
        if (table.cursor_row() < 0)
            return;
        changes_itself_ = true;
        list.set_item_index(line_of(table.cursor_row()));
        changes_itself_ = false;
        if (list.on_change)
            list.on_change();
    };
    table.on_double_click = [this](int, int) {
        if (list.on_double_click)
            list.on_double_click();
    };
    table.on_key = [this](const Key& key) { return list.on_key && list.on_key(key); };
    table.on_menu = [this] {
        if (on_menu)
            on_menu();
    };
    list.on_told = [this](const Change& change) { list_told(change); };
    learn_timer_.on_timer = [this] { learn(); };
}

// ---- what the table shows

Scenario_list_table::Known_line Scenario_list_table::known_line(int line) const {
    const std::string name = record_text(list.line(line).text);
    return {record_text(list.path(line)), name, in_lower_case(name)};
}

const Scenario_fact* Scenario_list_table::fact_of(int line) const {
    return facts_.known(lines_[static_cast<std::size_t>(line)].file);
}

int Scenario_list_table::row_of(int line) const {
    return line >= 0 && static_cast<std::size_t>(line) < row_of_.size()
               ? row_of_[static_cast<std::size_t>(line)]
               : -1;
}

Table_cell Scenario_list_table::cell(int row, int column) const {
    const int line = line_of(row);
    if (column == name_column)
        return {.text = list.line(line).text};
    const Scenario_fact* const fact = fact_of(line);
    if (fact == nullptr || !fact->is_certain) {
        wanted_.push_back(line);
        learn_timer_.set_enabled(true);
    }
    if (fact == nullptr)
        return {};
    switch (column) {
    case state_column:
        return {.text = worded(word_for(fact->status.state)), .picture = picture_of(fact->status.state)};
    case description_column: return {.text = screen_text(fact->overview.description)};
    case changed_column: return {.text = fact->overview.changed ? time_text(*fact->overview.changed) : ""};
    default: return {.text = last_run_of(fact->status)};
    }
}

std::string Scenario_list_table::hint(int row, int column) const {
    const Scenario_fact* const fact = fact_of(line_of(row));
    if (fact == nullptr || column == name_column)
        return {};
    if (column == run_column)
        return fact->status.output_time == 0
                   ? ""
                   : worded("The time of its output: no set of runs tells of this run.");
    return column == state_column ? worded(screen_text(fact->status.reason))
                                  : screen_text(fact->overview.description);
}

void Scenario_list_table::set_ticked(int row, bool is_ticked) {
    const int line = line_of(row);
    list.set_checked(line, is_ticked);
    if (list.on_check)
        list.on_check(line);
}

// ---- which lines, and in which order

bool Scenario_list_table::passes(int line, const std::string& filter) const {
    const int choice = state_combo.item_index();
    if (choice == ticked_choice && !list.checked(line))
        return false;
    const bool asks_state = choice >= first_state && choice < ticked_choice;
    const Scenario_fact* const fact = fact_of(line);
    if (asks_state && (fact == nullptr || static_cast<int>(fact->status.state) != choice - first_state))
        return false;
    return filter.empty() || matches(filter, lines_[static_cast<std::size_t>(line)].folded_name,
                                     fact == nullptr ? "" : fact->folded_description);
}

std::string Scenario_list_table::sort_key(int line) const {
    const Scenario_fact* const fact = fact_of(line);
    if (fact == nullptr)
        return "\xff"; // what is not known yet stands behind
    switch (table.sort_column()) {
    case state_column: return std::string(1, static_cast<char>('a' + static_cast<int>(fact->status.state)));
    case description_column: return fact->overview.description;
    case changed_column: return fact->overview.changed ? time_text(*fact->overview.changed) : "";
    default: return last_run_of(fact->status);
    }
}

// The order of all lines, of which the filter then shows some.
void Scenario_list_table::reorder() {
    order_.resize(lines_.size());
    std::iota(order_.begin(), order_.end(), 0);
    std::stable_sort(order_.begin(), order_.end(), [this](int a, int b) { return stands_before(a, b); });
    if (table.sort_column() > name_column) {
        std::vector<std::string> keys;
        for (int line = 0; line < list.count(); ++line)
            keys.push_back(sort_key(line));
        std::stable_sort(order_.begin(), order_.end(), [&](int a, int b) {
            return comes_before(keys[static_cast<std::size_t>(a)], keys[static_cast<std::size_t>(b)]);
        });
    }
    if (table.sorted_down())
        std::reverse(order_.begin(), order_.end());
}

bool Scenario_list_table::stands_before(int a, int b) const {
    return comes_before(lines_[static_cast<std::size_t>(a)].name, lines_[static_cast<std::size_t>(b)].name);
}

void Scenario_list_table::number_rows() {
    row_of_.assign(lines_.size(), -1);
    for (std::size_t row = 0; row < shown_.size(); ++row)
        row_of_[static_cast<std::size_t>(shown_[row])] = static_cast<int>(row);
}

void Scenario_list_table::refill() {
    const std::string filter = in_lower_case(record_text(filter_edit.text()));
    shown_.clear();
    for (const int line : order_)
        if (passes(line, filter))
            shown_.push_back(line);
    number_rows();
    table.set_text(list.count() == 0 ? "" : "No scenario passes the filter.");
    table.rows_changed();
    follow_cursor();
    show_counts();
}

void Scenario_list_table::read_lines() {
    lines_.clear();
    for (int line = 0; line < list.count(); ++line)
        lines_.push_back(known_line(line));
    wanted_.clear();
    next_unknown_ = 0;
    reorder();
    refill();
    learn_timer_.set_enabled(!lines_.empty());
}

// One line at the end of the list, as a generation adds thousands of them.
void Scenario_list_table::take_new_line() {
    const int line = list.count() - 1;
    lines_.push_back(known_line(line));
    const auto before = [this](int a, int b) {
        return table.sorted_down() ? stands_before(b, a) : stands_before(a, b);
    };
    const bool by_name = table.sort_column() <= name_column;
    order_.insert(by_name ? std::upper_bound(order_.begin(), order_.end(), line, before) : order_.end(),
                  line);
    if (passes(line, in_lower_case(record_text(filter_edit.text())))) {
        const auto place =
            by_name ? std::upper_bound(shown_.begin(), shown_.end(), line, before) : shown_.end();
        const int row = static_cast<int>(place - shown_.begin());
        shown_.insert(place, line);
        number_rows();
        table.rows_inserted(row, 1);
    } else {
        row_of_.push_back(-1);
    }
    counts_are_old_ = true;
    learn_timer_.set_enabled(true);
}

void Scenario_list_table::follow_cursor() {
    const int row = row_of(list.item_index());
    table.set_cursor(row, row < 0 ? -1 : std::max(table.cursor_column(), 0));
}

std::vector<int> Scenario_list_table::lines_beside_cursor() const {
    const int cursor = list.item_index();
    std::vector<int> lines;
    for (int line = 0; line < list.count(); ++line)
        if (line != cursor && list.checked(line))
            lines.push_back(line);
    if (lines.empty())
        for (const Row_range& range : table.selected_rows())
            for (int row = range.first; row <= range.last; ++row)
                if (line_of(row) != cursor)
                    lines.push_back(line_of(row));
    return lines;
}

int Scenario_list_table::ticked_out_of_sight() const {
    int count = 0;
    for (int line = 0; line < list.count(); ++line)
        count += list.checked(line) && row_of(line) < 0 ? 1 : 0;
    return count;
}

void Scenario_list_table::show_counts() {
    const std::string all = with_thousands(list.count());
    std::string text =
        shown_.size() == static_cast<std::size_t>(list.count())
            ? list.count() == 1 ? worded("1 scenario") : worded("%1 scenarios", all)
            : worded("%1 shown", with_thousands(static_cast<int>(shown_.size())) + " / " + all);
    if (const int ticked = list.checked_count(); ticked > 0)
        text += ", " + worded("%1 ticked", with_thousands(ticked));
    if (const int hidden = ticked_out_of_sight(); hidden > 0)
        text += ", " + worded("%1 of these not shown", with_thousands(hidden));
    count_label.set_text(text);
}

void Scenario_list_table::tick_all_shown() {
    for (int row = 0; row < count(); ++row)
        if (!ticked(row))
            set_ticked(row, true);
}

// ---- what the list tells

void Scenario_list_table::list_told(const Change& change) {
    switch (change.aspect) {
    case Aspect::lines_inserted:
        if (change.count == 1 && change.first == list.count() - 1 &&
            lines_.size() + 1 == static_cast<std::size_t>(list.count()))
            return take_new_line();
        return read_lines();
    case Aspect::lines_removed:
    case Aspect::all_lines: return read_lines();
    case Aspect::lines_changed:
        for (int line = change.first; line < change.first + change.count; ++line)
            if (row_of(line) >= 0)
                table.row_changed(row_of(line));
        counts_are_old_ = true;
        learn_timer_.set_enabled(true);
        return;
    case Aspect::cursor:
        if (!changes_itself_)
            follow_cursor();
        return;
    case Aspect::line_on_view:
        if (row_of(change.first) >= 0)
            table.show_row(row_of(change.first));
        return;
    default: return;
    }
}

// ---- what is learnt of the scenarios

void Scenario_list_table::set_states(Scenario_states* states) {
    facts_.set_states(states);
    facts_changed();
    show_counts(); // perhaps in another language than before
}

void Scenario_list_table::facts_changed() {
    facts_.doubt_all();
    next_unknown_ = 0;
    learn_timer_.set_enabled(list.count() > 0);
}

// A slice of time for what is on view, and then for the rest. A change of what the filter or the order asks
// for is shown once the slice is over.
void Scenario_list_table::learn() {
    const Clock::time_point end = Clock::now() + slice;
    const bool asks_more_than_names = state_combo.item_index() != all_states || !filter_edit.text().empty() ||
                                      table.sort_column() > name_column;
    bool has_news = false;
    const auto learn_line = [&](int line) {
        if (const Scenario_fact* const fact = fact_of(line); fact != nullptr && fact->is_certain)
            return;
        facts_.learn(lines_[static_cast<std::size_t>(line)].file);
        has_news = true;
        if (row_of(line) >= 0)
            table.row_changed(row_of(line));
    };
    while (!wanted_.empty() && Clock::now() < end) {
        const int line = wanted_.back();
        wanted_.pop_back();
        if (line < list.count())
            learn_line(line);
    }
    const auto lines = static_cast<std::size_t>(list.count());
    for (; next_unknown_ < lines && Clock::now() < end; ++next_unknown_)
        learn_line(static_cast<int>(next_unknown_));
    if (wanted_.empty() && next_unknown_ >= lines)
        learn_timer_.set_enabled(false);
    if (std::exchange(counts_are_old_, false))
        show_counts();
    has_news_ = has_news_ || has_news;
    if (has_news_ && asks_more_than_names && !learn_timer_.enabled()) {
        if (table.sort_column() > name_column)
            reorder();
        refill();
    }
    has_news_ = has_news_ && learn_timer_.enabled();
}
