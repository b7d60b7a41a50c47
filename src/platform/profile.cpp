#include "platform/profile.h"

#include "foundation/code_page_1252.h"
#include "platform/file_writer.h"
#include "platform/files.h"

#include <algorithm>
#include <optional>
#include <string>

namespace platform {

namespace {

constexpr std::string_view line_end = "\r\n";

std::string in_one_line(std::string_view text) {
    std::string result(text);
    for (char& c : result)
        if (c == '\r' || c == '\n' || c == '\0')
            c = ' ';
    return result;
}

std::string_view trimmed(std::string_view text) {
    while (!text.empty() && TESK::is_white_space(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && TESK::is_white_space(text.back()))
        text.remove_suffix(1);
    return text;
}

bool is_header(std::string_view line) {
    return !line.empty() && line.front() == '[';
}

bool is_header_of(std::string_view line, std::string_view section) {
    return is_header(line) &&
           TESK::equal_ignoring_case(trimmed(line.substr(1, line.find(']') - 1)), trimmed(section));
}

bool is_setting_of(std::string_view line, std::string_view key) {
    const std::size_t equals = line.find('=');
    return equals != std::string_view::npos &&
           TESK::equal_ignoring_case(trimmed(line.substr(0, equals)), trimmed(key));
}

// The part of the text that a new setting replaces: its old line without the line's end, or the empty part
// behind the last line of its section that is not blank; nothing when there is no such section.
struct Place {
    std::size_t begin;
    std::size_t length;
    bool is_old_line;
};

std::optional<Place> find_place(std::string_view text, std::string_view section, std::string_view key) {
    std::optional<Place> place;
    for (std::size_t begin = 0; begin < text.size();) {
        const std::size_t next = std::min(text.find('\n', begin), text.size() - 1) + 1;
        const std::string_view line = trimmed(text.substr(begin, next - begin));
        if (place && is_header(line))
            break;
        if (place && is_setting_of(line, key))
            return Place{static_cast<std::size_t>(line.data() - text.data()), line.size(), true};
        if ((place && !line.empty()) || is_header_of(line, section))
            place = Place{next, 0, false};
        begin = next;
    }
    return place;
}

void append_line(std::string& text, std::string_view line) {
    text.append(line).append(line_end);
}

} // namespace

bool write_profile_string(std::string_view file, std::string_view section, std::string_view key,
                          std::string_view value) {
    Read_result old = read_file(file);
    if (old.outcome != Read_outcome::read && old.outcome != Read_outcome::absent)
        return false;
    std::string& text = old.contents;
    const std::string section_name = in_one_line(section);
    const std::string key_name = in_one_line(key);
    const std::string setting = key_name + '=' + in_one_line(value);
    const auto place = find_place(text, section_name, key_name);
    if (place && place->is_old_line) {
        text.replace(place->begin, place->length, setting);
    } else {
        std::string rest = place ? text.substr(place->begin) : "";
        text.resize(place ? place->begin : text.size());
        if (!text.empty() && text.back() != '\n')
            text += line_end;
        if (!place)
            append_line(text, "[" + section_name + "]");
        append_line(text, setting);
        text += rest;
    }
    return write_file(file, text, Durability::durable).ok();
}

} // namespace platform
