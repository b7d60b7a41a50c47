#include "operations/record_lines.h"

#include "records/line_reader.h"

#include <algorithm>
#include <tuple>

Record_lines::Record_lines(std::string_view text, std::string_view primary_section) : text_(text) {
    constexpr int most_empty_lines = 20; // after which a reader takes the file to have ended
    TESK::Line_reader reader(text);
    std::string_view section = primary_section;
    std::string_view line;
    for (int empty_lines = 0; empty_lines < most_empty_lines && reader.next(line);) {
        if (line.empty()) {
            ++empty_lines;
            continue;
        }
        empty_lines = 0;
        const auto begin = static_cast<std::size_t>(line.data() - text.data());
        end_ = begin + line.size();
        const std::size_t bracket = line.front() == '[' ? line.find(']') : std::string_view::npos;
        const std::size_t equals = line.find('=');
        if (bracket != std::string_view::npos) {
            section = line.substr(1, bracket - 1);
            headers_.push_back({section, {}, begin, end_});
        } else if (equals != std::string_view::npos) {
            lines_.push_back({section, line.substr(0, equals), begin, end_});
        }
    }
    if (const std::size_t first = text.find('\n'); first != std::string_view::npos)
        line_end_ = first > 0 && text[first - 1] == '\r' ? "\r\n" : "\n";
    std::sort(lines_.begin(), lines_.end(), [](const Record_line& a, const Record_line& b) {
        return std::tie(a.section, a.key, a.begin) < std::tie(b.section, b.key, b.begin);
    });
}

const Record_line* Record_lines::find(std::string_view section, std::string_view key) const {
    const auto behind = std::upper_bound(lines_.begin(), lines_.end(), std::tie(section, key),
                                         [](const auto& wanted, const Record_line& line) {
                                             return wanted < std::tie(line.section, line.key);
                                         });
    if (behind == lines_.begin())
        return nullptr;
    const Record_line& line = *std::prev(behind);
    return line.section == section && line.key == key ? &line : nullptr;
}

bool Record_lines::has_header(std::string_view section) const {
    return std::any_of(headers_.begin(), headers_.end(),
                       [&](const Record_line& header) { return header.section == section; });
}

std::size_t Record_lines::behind_line(std::size_t end) const {
    const std::size_t feed = text_.find('\n', end);
    return feed == std::string_view::npos ? text_.size() : feed + 1;
}

void Record_lines::insert_into(std::string& text, std::string_view section, const std::string& line,
                               const std::vector<std::string_view>& behind) const {
    std::size_t place = behind_line(end_);
    std::string inserted = line + line_end_;
    const auto header = std::find_if(headers_.rbegin(), headers_.rend(),
                                     [&](const Record_line& one) { return one.section == section; });
    const auto neighbour = std::find_if(behind.begin(), behind.end(),
                                        [&](std::string_view key) { return find(section, key) != nullptr; });
    if (neighbour != behind.end())
        place = behind_line(find(section, *neighbour)->end);
    else if (header != headers_.rend())
        place = behind_line(header->end);
    else
        inserted = '[' + std::string(section) + ']' + line_end_ + inserted;
    if (end_ == 0)
        place = 0;
    else if (text[place - 1] != '\n')
        inserted.insert(0, line_end_);
    text.insert(place, inserted);
}
