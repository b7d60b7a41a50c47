// Where each value stands in the text of a record file, so that one can be changed and every other byte
// stays.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

struct Record_line {
    std::string_view section;
    std::string_view key;
    std::size_t begin; // without the white space in front
    std::size_t end;   // without the line end
};

// Finds the lines as a reader of the file meets them. Looks at the text, which must outlive it.
class Record_lines {
public:
    // What stands before the first header belongs to the primary section.
    Record_lines(std::string_view text, std::string_view primary_section);
    Record_lines(std::string_view text, std::string&& primary_section) = delete; // it must outlive this

    // All of them, in the order of section, key and place.
    const std::vector<Record_line>& all() const { return lines_; }
    // The line whose value counts: the last one of the section and key. Null where there is none.
    const Record_line* find(std::string_view section, std::string_view key) const;
    // Whether the section begins somewhere; the primary one can have lines without.
    bool has_header(std::string_view section) const;
    std::string_view value(const Record_line& line) const {
        return text_.substr(line.begin + line.key.size() + 1, line.end - line.begin - line.key.size() - 1);
    }

    // Puts a line into a text that equals this one: behind the first of the keys that the section has, else
    // at its beginning, and where there is no such section at the end of what is read, with a header.
    void insert_into(std::string& text, std::string_view section, const std::string& line,
                     const std::vector<std::string_view>& behind) const;

private:
    std::size_t behind_line(std::size_t end) const;

    std::string_view text_;
    std::vector<Record_line> lines_;
    std::vector<Record_line> headers_; // in the order of the text
    std::size_t end_ = 0;              // of the last line that is read
    const char* line_end_ = "\r\n";
};
