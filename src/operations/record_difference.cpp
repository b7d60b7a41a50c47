#include "operations/record_difference.h"

#include <algorithm>
#include <array>
#include <map>

namespace {

constexpr std::size_t record_count = 3;
enum Which : std::size_t { first, second, common };

// One key, with its settings in the records; null where there is none.
struct Row {
    std::string section;
    std::string key;
    std::array<const Setting*, record_count> settings{};
};

class Rows {
public:
    void add(const Record_settings& record, Which which) {
        std::vector<Row> merged;
        std::map<std::string, std::vector<Row>> behind; // by the row that they follow, "" for none
        std::string last;
        for (const Setting& setting : record.all()) {
            const auto found = places_.find(setting.name());
            if (found == places_.end()) {
                Row row{setting.section(), setting.key(), {}};
                row.settings[which] = &setting;
                behind[last].push_back(std::move(row));
            } else {
                rows[found->second].settings[which] = &setting;
                last = setting.name();
            }
        }
        const auto take = [&](const std::string& name) {
            if (const auto found = behind.find(name); found != behind.end())
                std::move(found->second.begin(), found->second.end(), std::back_inserter(merged));
        };
        take("");
        for (Row& row : rows) {
            const std::string name = row.section + '.' + row.key;
            merged.push_back(std::move(row));
            take(name);
        }
        rows = std::move(merged);
        places_.clear();
        for (std::size_t i = 0; i < rows.size(); ++i)
            places_.emplace(rows[i].section + '.' + rows[i].key, i);
    }

    std::vector<Row> rows;

private:
    std::map<std::string, std::size_t> places_;
};

std::optional<std::string> value_of(const Setting* setting) {
    return setting == nullptr ? std::nullopt : std::optional(setting->value());
}

} // namespace

std::vector<Record_difference> compare_records(const Record_settings& first_record,
                                               const Record_settings& second_record,
                                               const Record_settings* common_record) {
    Rows rows;
    rows.add(first_record, first);
    rows.add(second_record, second);
    if (common_record != nullptr)
        rows.add(*common_record, common);

    std::vector<Record_difference> differences;
    for (const Row& row : rows.rows) {
        const auto& settings = row.settings;
        Record_difference difference{
            row.section,
            row.key,
            std::any_of(settings.begin(), settings.end(),
                        [](const Setting* one) { return one != nullptr && one->is_known(); }),
            value_of(settings[first]),
            value_of(settings[second]),
            value_of(settings[common]),
            Changed_by::both_apart};
        const bool is_alike = difference.first == difference.second;
        if (common_record == nullptr) {
            if (!is_alike)
                differences.push_back(std::move(difference));
            continue;
        }
        const bool first_changed = difference.first != difference.common;
        const bool second_changed = difference.second != difference.common;
        if (!first_changed && !second_changed)
            continue;
        if (is_alike)
            difference.changed_by = Changed_by::both_alike;
        else if (!second_changed)
            difference.changed_by = Changed_by::first;
        else if (!first_changed)
            difference.changed_by = Changed_by::second;
        differences.push_back(std::move(difference));
    }
    return differences;
}
