// What a reader finds in a record's text must come back from a save of the record.
#pragma once

#include "records/data_record.h"
#include "records/vv_text.h"
#include "require.h"

#include <algorithm>
#include <cstdlib>
#include <set>
#include <sstream>
#include <vector>

// What a reader found under a key of a section.
struct Finding {
    std::string section;
    std::string key;
    std::string value;
    TESK::Entry_type type;
};

// Reads the text into the record, which keeps its structure.
inline void read_text(TESK::Data_record& record, std::string text) {
    TESK::VV_text(std::move(text), true).get(record);
}

// What the record saves of what it has read, with all that it does not know.
inline std::string saved_text(TESK::Data_record& record) {
    TESK::VV_text file({}, true);
    record.redeclare_for_write();
    file.set(record);
    return file.text();
}

// The entry that a file held under the key, in the section; null for none.
inline const TESK::VV_base_entry* find_read(TESK::Data_record& record, const std::string& section,
                                            const std::string& key) {
    const TESK::VV_base_entry* entry = record.set_current_section(section)->find_entry(key);
    return entry != nullptr && entry->encountered ? entry : nullptr;
}

// The section of an element is "event:1", or "event_1" in old files.
inline std::string other_spelling(std::string section) {
    if (section.starts_with("event") && section.size() > 5)
        section[5] = section[5] == ':' ? '_' : ':';
    return section;
}

// A save writes the version of today. What both spellings of an element hold is passed over.
inline std::vector<Finding> found_in(const TESK::Data_record& record) {
    std::vector<Finding> found;
    std::string value;
    for (const TESK::VV_section& section : record.all_sections()) {
        if (section.label == "version")
            continue;
        const bool may_be_element = section.label.starts_with("event");
        const TESK::Item* twin =
            may_be_element ? record.sections.find_exact(other_spelling(section.label)) : nullptr;
        for (const TESK::VV_base_entry& entry : section.all_entries())
            if (entry.encountered &&
                (twin == nullptr || twin == &section ||
                 static_cast<const TESK::VV_section*>(twin)->find_entry(entry.key) == nullptr))
                found.push_back({section.label, entry.key, entry.get_value(value), entry.type_code()});
    }
    return found;
}

// A save ends no value in a carriage return, and counts the elements that are there.
inline bool is_kept(const std::string& key, const std::string& before, const std::string& after) {
    const auto without_end = [](const std::string& text) {
        return text.substr(0, text.find_last_not_of(" \r") + 1);
    };
    if (key.ends_with(":count"))
        return std::atoi(after.c_str()) > 0 || std::atoi(before.c_str()) <= 0;
    return without_end(before) == without_end(after);
}

// Whether who read the saved text finds all that was found before it, in elements that were unknown then too.
inline bool are_kept(const std::vector<Finding>& before, TESK::Data_record& after) {
    std::string value;
    for (const auto& [section, key, text, type] : before) {
        const TESK::VV_base_entry* entry = find_read(after, section, key);
        if (entry == nullptr)
            entry = find_read(after, other_spelling(section), key);
        if (entry == nullptr || (entry->type_code() == type && !is_kept(key, text, entry->get_value(value))))
            return false;
    }
    return true;
}

inline std::multiset<std::string> lines_of(const std::string& text) {
    std::multiset<std::string> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);)
        lines.insert(line);
    return lines;
}

// A reader of the saved text finds what stood in the text, and a second save writes what the first one has
// written: nothing is lost, and nothing grows. Elements under an old count are known only to who reads the
// new one, so of such a file the third. Where a key of old readers stands among unknown ones may change.
template <class Record>
void expect_round_trip(const std::string& text) {
    Record first;
    read_text(first, text);
    const std::vector<Finding> found = found_in(first);
    std::string once = saved_text(first);
    const bool has_elements = std::any_of(found.begin(), found.end(), [](const Finding& finding) {
        return finding.key.ends_with(":count") && std::atoi(finding.value.c_str()) > 0;
    });
    if (has_elements && text.find("_count") != std::string::npos) {
        Record with_elements;
        read_text(with_elements, once);
        require(are_kept(found, with_elements));
        once = saved_text(with_elements);
    }
    Record second;
    read_text(second, once);
    require(are_kept(found, second));
    const std::string twice = saved_text(second);
    require(twice == once || lines_of(twice) == lines_of(once));
}
