#include "operations/record_difference.h"

#include <algorithm>

namespace {

enum Which : std::size_t { first, second, common, count };

Changed_by which_of_two(const Changers& changers) {
    if (changers.records.size() == 1)
        return changers.records.front() == first ? Changed_by::first : Changed_by::second;
    return changers.alike ? Changed_by::both_alike : Changed_by::both_apart;
}

} // namespace

Changers who_changed(const Settings_grid::Row& row, std::size_t common_record) {
    Changers changers;
    for (std::size_t record = 0; record < row.values.size(); ++record)
        if (row.values[record] != row.values[common_record])
            changers.records.push_back(record);
    changers.alike = std::all_of(changers.records.begin(), changers.records.end(), [&](std::size_t record) {
        return row.values[record] == row.values[changers.records.front()];
    });
    return changers;
}

std::vector<Record_difference> compare_records(const Settings_grid& records) {
    const bool is_three_way = records.files().size() == count;
    std::vector<Record_difference> differences;
    for (const std::size_t place : records.order()) {
        const Settings_grid::Row& row = records.rows()[place];
        if (!row.differs)
            continue;
        const auto value = [&](std::size_t record) -> std::optional<std::string> {
            if (record >= row.values.size() || row.values[record] == Settings_grid::no_value)
                return {};
            return records.text(row.values[record]);
        };
        const Changed_by who = is_three_way ? which_of_two(who_changed(row, common)) : Changed_by::both_apart;
        differences.push_back(
            {row.section, row.key, row.rule != nullptr, value(first), value(second), value(common), who});
    }
    return differences;
}
