// What a reader finds in a record's text must come back from a save of the record.
#pragma once

#include "records/data_record.h"
#include "records/vv_text.h"
#include "require.h"

#include <set>
#include <sstream>

// Reads the text into the record and gives what the record saves of it, with all that it does not know.
inline std::string saved_text(TESK::Data_record& record, std::string text) {
    TESK::VV_text file(std::move(text), true);
    file.get(record);
    record.redeclare_for_write();
    file.set(record);
    return file.text();
}

inline std::multiset<std::string> lines_of(const std::string& text) {
    std::multiset<std::string> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);)
        lines.insert(line);
    return lines;
}

// A second save writes what the first one has written: nothing is lost, and nothing grows. Elements under an
// old count are known only to who reads the new one, so of such a file the third. Where a key of old readers
// stands among unknown ones may change.
template <class Record>
void expect_round_trip(const std::string& text) {
    Record first;
    std::string once = saved_text(first, text);
    if (text.find("_count") != std::string::npos) {
        Record with_elements;
        once = saved_text(with_elements, once);
    }
    Record second;
    const std::string twice = saved_text(second, once);
    require(twice == once || lines_of(twice) == lines_of(once));
}
