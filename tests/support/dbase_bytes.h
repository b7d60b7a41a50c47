// A dBase table put together byte by byte.
#pragma once

#include <string>
#include <vector>

struct Column {
    const char* name;
    char type;
    int length;
};

// `rows`: each with the sign of deletion in front; `count`: how many the header tells of.
inline std::string table_bytes(const std::vector<Column>& columns, const std::string& rows, int count,
                               int header_extra = 1, const char* end = "\r") {
    const int header = static_cast<int>(columns.size()) * 32 + 32 + header_extra;
    int row = 1;
    std::string descriptors;
    for (const Column& c : columns) {
        std::string d = c.name;
        d.resize(11);
        (d += c.type).resize(16);
        (d += static_cast<char>(c.length)).resize(32);
        descriptors += d;
        row += c.length;
    }
    const auto low = [](int v) { return std::string{static_cast<char>(v), static_cast<char>(v >> 8)}; };
    std::string text = "\x03\x7C\x01\x01" + low(count) + low(count >> 16) + low(header) + low(row);
    text.resize(32);
    (text += descriptors + end).resize(static_cast<std::size_t>(header));
    return text + rows;
}
