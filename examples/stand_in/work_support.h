// What the works of the stand-ins share: reading records, writing tables of text, and saying what became of
// it.
#pragma once

#include "model/project_editor_parameters.h"
#include "model/tilverra_scenario.h"
#include "names/directory_name.h"
#include "names/file_name.h"
#include "records/data_record.h"
#include "trees/places.h"
#include "trees/project_directory.h"

#include <cstdint>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>

// Each says why on `out`, and gives the exit code.
int misused(const char* expected, std::ostream& out);
int failed(const std::string& reason, std::ostream& out);

// Reads a record file by its full name. False, with the reason said, when that cannot be.
bool read(const TESK::File_name& file, TESK::Data_record& record, std::ostream& out,
          bool keep_structure = false);

// The text of a record file, put together line by line.
class Record_text {
public:
    explicit Record_text(const char* section) { begin_section(section); }

    Record_text& begin_section(std::string_view name);
    Record_text& add(std::string_view key, std::string_view value);
    Record_text& add(std::string_view key, std::int64_t value) { return add(key, std::to_string(value)); }
    Record_text& add_number(std::string_view key, double value); // four decimals

    // Writes the file. False, with the reason said, when that cannot be.
    bool write(const TESK::File_name& file, std::ostream& out) const;

private:
    void add_line(const std::string& line);

    std::string text_;
};

// The project of a GIS or optimization run, and the process in its folder, from which the project's names
// count.
class Opened_project {
public:
    // False, with the reason said, for no project, or one without an active scenario.
    bool open(const std::string& name, Tilverra_project_type kind, std::ostream& out);

    Tilverra_project_editor_parameters parameters{""};
    Tilverra_scenario scenario;
    std::optional<Tilverra_project_directory> directory;
};
