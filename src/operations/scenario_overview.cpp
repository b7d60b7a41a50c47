#include "operations/scenario_overview.h"

#include "foundation/code_page_1252.h"
#include "operations/operation_outcome.h"
#include "platform/listing.h"
#include "records/line_reader.h"
#include "records/vv_file.h"

#include <algorithm>
#include <cstdlib>

namespace {

// The description as a reader of the record gets it: the last one of the primary section or, in a file of the
// suite's version 3, of the section where it stood then.
std::string description_in(std::string_view text) {
    constexpr int most_empty_lines = 20;
    constexpr std::string_view key = "description=";
    TESK::Line_reader reader(text);
    std::string_view section = "scenario";
    std::string_view line;
    std::string_view present;
    std::string_view old;
    int major = 0;
    for (int empty_lines = 0; empty_lines < most_empty_lines && reader.next(line);) {
        empty_lines = line.empty() ? empty_lines + 1 : 0;
        const std::size_t bracket = line.starts_with('[') ? line.find(']') : std::string_view::npos;
        if (bracket != std::string_view::npos)
            section = line.substr(1, bracket - 1);
        else if (line.starts_with(key) && section == "scenario")
            present = line.substr(key.size());
        else if (line.starts_with(key) && section == "simulation")
            old = line.substr(key.size());
        else if (line.starts_with("major=") && section == "version")
            major = std::atoi(std::string(line.substr(6)).c_str());
    }
    constexpr int major_of_present_layout = 4;
    return std::string(major < major_of_present_layout && old.data() != nullptr ? old : present);
}

} // namespace

bool comes_before(std::string_view a, std::string_view b) {
    std::size_t i = 0;
    std::size_t j = 0;
    while (i < a.size() && j < b.size()) {
        if (!TESK::is_digit(a[i]) || !TESK::is_digit(b[j])) {
            const char first = TESK::fold_case(a[i++]);
            const char second = TESK::fold_case(b[j++]);
            if (first != second)
                return static_cast<unsigned char>(first) < static_cast<unsigned char>(second);
            continue;
        }
        const auto take_number = [](std::string_view text, std::size_t& at) {
            while (at < text.size() && text[at] == '0')
                ++at;
            const std::size_t begin = at;
            while (at < text.size() && TESK::is_digit(text[at]))
                ++at;
            return text.substr(begin, at - begin);
        };
        const std::string_view first = take_number(a, i);
        const std::string_view second = take_number(b, j);
        if (first.size() != second.size())
            return first.size() < second.size();
        if (first != second)
            return first < second;
    }
    if (a.size() - i != b.size() - j)
        return a.size() - i < b.size() - j;
    return a < b;
}

std::vector<std::string> list_scenarios(const TESK::Directory_name& folder, std::string* failure) {
    std::vector<std::string> names;
    const platform::Folder_listing listing = platform::list_folder(folder, "*.tvn");
    if (failure != nullptr)
        *failure = told_listing(folder, listing.result);
    for (const platform::Folder_entry& entry : listing)
        if ((entry.attributes & platform::attribute_directory) == 0)
            names.push_back(entry.name);
    // The point of the extension would come behind a blank.
    const auto without_extension = [](std::string_view name) { return name.substr(0, name.rfind('.')); };
    std::sort(names.begin(), names.end(), [&](const std::string& one, const std::string& other) {
        return comes_before(without_extension(one), without_extension(other));
    });
    return names;
}

Scenario_overview read_scenario_overview(const std::string& file_name) {
    Scenario_overview overview;
    const platform::Read_result file = platform::read_file(file_name, TESK::VV_file::largest_file);
    overview.is_readable = file.ok();
    if (file.ok())
        overview.description = description_in(file.contents);
    overview.changed = platform::file_time(file_name);
    return overview;
}
