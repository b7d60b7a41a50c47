#include "operations/scenario_table.h"

#include "foundation/code_page_1252.h"
#include "operations/scenario_catalogue.h"

#include <algorithm>
#include <unordered_map>

namespace {

constexpr const char* name_header = "name";
constexpr const char* description_header = "description";
constexpr std::size_t most_faults = 1000;

bool is_utf8(std::string_view text) {
    for (std::size_t i = 0; i < text.size();) {
        const auto first = static_cast<unsigned char>(text[i++]);
        const int behind = first < 0x80                     ? 0
                           : first >= 0xC2 && first < 0xE0  ? 1
                           : first >= 0xE0 && first < 0xF0  ? 2
                           : first >= 0xF0 && first <= 0xF4 ? 3
                                                            : -1;
        if (behind < 0 || text.size() - i < static_cast<std::size_t>(behind))
            return false;
        for (int k = 0; k < behind; ++k)
            if ((static_cast<unsigned char>(text[i++]) & 0xC0) != 0x80)
                return false;
    }
    return true;
}

bool is_plain(const std::string& text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<signed char>(c) >= 0; });
}

// The text in lower case, by which names are the same.
std::string folded(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(), TESK::fold_case);
    return text;
}

void append_fault(std::string& text, const Table_fault& fault) {
    text += "Row " + std::to_string(fault.row);
    if (!fault.column.empty())
        text += ", column " + fault.column;
    text += ": " + fault.reason + '\n';
}

std::string counted(std::size_t count, const char* one, const char* many) {
    return std::to_string(count) + ' ' + (count == 1 ? one : many);
}

} // namespace

std::string describe_table_check(const Table_check& check) {
    if (!check.refused.empty())
        return check.refused + '\n';
    std::string text = counted(check.count, "scenario", "scenarios");
    if (!check.existing.empty())
        text += ", " + counted(check.existing.size(), "exists already", "exist already");
    text += ".\n";
    for (const Table_fault& fault : check.faults)
        append_fault(text, fault);
    if (check.fault_count > check.faults.size())
        text +=
            "and " + counted(check.fault_count - check.faults.size(), "more fault.", "more faults.") + '\n';
    for (const Table_fault& doubt : check.doubts)
        append_fault(text, doubt);
    return text;
}

Scenario_table::Scenario_table(Text_table table, const TESK::File_name& template_file,
                               const TESK::Directory_name& folder)
    : table_(std::move(table)), files_(folder) {
    check_.refused = table_.failure.empty() ? files_.failure() : table_.failure;
    if (check_.refused.empty() && table_.rows.size() < 2)
        check_.refused = "The table has no scenarios.";
    if (!check_.refused.empty())
        return;
    check_.count = table_.rows.size() - 1;
    variants_ = std::make_unique<Scenario_variants>(template_file, check_.count);
    check_.refused = variants_->failure();
    if (!check_.refused.empty())
        return;
    convert_texts();
    if (read_header()) {
        read_names();
        read_values();
    }
}

const std::string& Scenario_table::header(std::size_t column) const {
    static const std::string none;
    const std::vector<std::string>& cells = table_.rows.front().cells;
    return column < cells.size() ? cells[column] : none;
}

void Scenario_table::note_fault(std::size_t row, std::size_t column, std::string reason) {
    if (++check_.fault_count <= most_faults)
        check_.faults.push_back({table_.rows[row].number, header(column), std::move(reason)});
}

void Scenario_table::convert_texts() {
    for (const Text_table::Row& row : table_.rows)
        for (const std::string& cell : row.cells)
            if (!is_utf8(cell))
                return;
    for (std::size_t row = 0; row < table_.rows.size(); ++row) {
        std::vector<std::string>& cells = table_.rows[row].cells;
        for (std::size_t column = 0; column < cells.size(); ++column) {
            if (is_plain(cells[column]))
                continue;
            if (auto text = TESK::code_page_from_utf8(cells[column]))
                cells[column] = std::move(*text);
            else
                note_fault(row, column, "It has a character that the files cannot hold.");
        }
    }
}

// False without a column of names.
bool Scenario_table::read_header() {
    const std::vector<std::string>& cells = table_.rows.front().cells;
    const auto found = std::find_if(cells.begin(), cells.end(), [](const std::string& cell) {
        return TESK::equal_ignoring_case(cell, name_header);
    });
    if (found == cells.end()) {
        check_.refused = "The table has no column \"name\".";
        return false;
    }
    name_column_ = static_cast<std::size_t>(found - cells.begin());
    for (std::size_t column = 0; column < cells.size(); ++column) {
        if (column == name_column_ || cells[column].empty())
            continue;
        const bool describes = TESK::equal_ignoring_case(cells[column], description_header);
        const std::string reason =
            variants_->add_column(describes ? std::string("scenario.description") : cells[column]);
        if (!reason.empty())
            note_fault(0, column, reason);
        // A column that nothing takes has no values to judge.
        setting_columns_.push_back(reason.empty() ? column : std::string::npos);
    }
    return true;
}

void Scenario_table::read_names() {
    std::unordered_map<std::string, std::size_t> rows;
    for (std::size_t row = 1; row < table_.rows.size(); ++row) {
        const std::vector<std::string>& cells = table_.rows[row].cells;
        const std::string name = name_column_ < cells.size() ? cells[name_column_] : std::string();
        names_.push_back(name + ".tvn");
        if (std::string reason = refuse_scenario_name(name); !reason.empty()) {
            note_fault(row, name_column_, std::move(reason));
            continue;
        }
        const auto [same, is_new] = rows.try_emplace(folded(name), table_.rows[row].number);
        if (!is_new)
            note_fault(row, name_column_,
                       "The scenario of row " + std::to_string(same->second) + " has this name.");
        else if (files_.exists(names_.back()))
            check_.existing.push_back(names_.back());
    }
}

void Scenario_table::read_values() {
    for (std::size_t row = 1; row < table_.rows.size(); ++row) {
        const std::vector<std::string>& cells = table_.rows[row].cells;
        for (std::size_t i = 0; i < setting_columns_.size(); ++i) {
            const std::size_t column = setting_columns_[i];
            if (column >= cells.size() || cells[column].empty())
                continue;
            Scenario_variants::Verdict verdict = variants_->set(i, row - 1, cells[column]);
            if (!verdict.refusal.empty())
                note_fault(row, column, std::move(verdict.refusal));
            else if (!verdict.doubt.empty() && check_.doubts.size() < most_faults)
                check_.doubts.push_back({table_.rows[row].number, header(column), std::move(verdict.doubt)});
        }
        for (std::size_t column = 0; column < cells.size(); ++column)
            if (header(column).empty() && !cells[column].empty())
                note_fault(row, column, "The cell stands in a column without a header.");
    }
    const std::vector<std::string> reasons = variants_->settle();
    for (std::size_t i = 0; i < reasons.size(); ++i)
        if (!reasons[i].empty() && setting_columns_[i] != std::string::npos)
            note_fault(0, setting_columns_[i], reasons[i]);
}

Operation_outcome Scenario_table::write(Change_backups* backups, const Operation_progress& progress) {
    Operation_outcome outcome;
    if (!check_.may_write()) {
        outcome.refused = "The table has faults.";
        return outcome;
    }
    outcome.refused = files_.begin("table", names_, backups);
    if (!outcome.refused.empty())
        return outcome;
    for (std::size_t i = 0; i < names_.size(); ++i) {
        outcome.stopped = !goes_on(progress, i, names_.size());
        if (outcome.stopped)
            break;
        files_.write(names_[i], variants_->text(i), outcome);
    }
    return outcome;
}
