// The lines of a record file.
#pragma once

#include <string>

namespace TESK {

// What every line ends with.
constexpr const char* line_end = "\r\n";

// Makes each line break in the text from `start` on (a line feed, with the carriage return before it) one
// blank, so that a value can never add a line to a file; and so each carriage return at its end, since no
// reader can tell it from the line's own end.
void blank_line_breaks(std::string& text, std::size_t start);

} // namespace TESK
