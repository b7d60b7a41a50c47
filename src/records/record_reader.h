// Takes the lines of a record file into a record.
#pragma once

#include <cstddef>
#include <functional>
#include <string_view>

namespace TESK {

class Data_record;
class Line_reader;

// Reads the lines into the record's sections, the first ones into its current section. With `unexpected_only`
// the values of entries that the record has are left alone, and nothing new is declared. With `one_section`
// it refuses a second header. True when it met a header or an entry. Twenty empty lines in a row end it.
bool read_record_lines(Line_reader& lines, Data_record& record, bool unexpected_only, bool one_section);

// Hears every now and then how many bytes of a text have been read. False stops the reading. Empty for who
// does not care.
using Reading_progress = std::function<bool(std::size_t read, std::size_t size)>;

// Reads a whole text. The record is told what stands behind the lines that end the reading. False when it was
// stopped, with a part of the text in the record.
bool read_record_text(std::string_view text, Data_record& record, bool unexpected_only,
                      const Reading_progress& progress = {});

} // namespace TESK
