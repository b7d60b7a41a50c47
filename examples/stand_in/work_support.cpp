#include "work_support.h"

#include "foundation/code_page_1252.h"
#include "foundation/numbers.h"
#include "platform/current_directory.h"
#include "platform/file_writer.h"
#include "platform/files.h"
#include "platform/host_names.h"
#include "records/line_text.h"
#include "records/vv_file.h"
#include "works.h"

std::string shown(std::string_view text) {
    std::string line(text);
    for (char& c : line)
        if (static_cast<unsigned char>(c) < ' ' || c == '\177')
            c = ' ';
    while (!line.empty() && line.back() == ' ')
        line.pop_back();
    return TESK::utf8_from_code_page(line);
}

int misused(const char* expected, std::ostream& out) {
    out << "Arguments expected: " << expected << ".\n";
    return exit_misused;
}

int failed(const std::string& reason, std::ostream& out) {
    out << reason << '\n';
    return exit_failed;
}

bool read(const TESK::File_name& file, TESK::Data_record& record, std::ostream& out, bool keep_structure) {
    if (platform::is_file(file) && TESK::VV_file(file.c_str(), keep_structure).get(record))
        return true;
    out << "Cannot be read: " << shown(file) << '\n';
    return false;
}

void Record_text::add_line(const std::string& line) {
    const std::size_t start = text_.size();
    text_ += line;
    TESK::blank_line_breaks(text_, start);
    text_ += TESK::line_end;
}

Record_text& Record_text::begin_section(std::string_view name) {
    add_line("[" + std::string(name) + "]");
    return *this;
}

Record_text& Record_text::add(std::string_view key, std::string_view value) {
    add_line(std::string(key).append("=").append(value));
    return *this;
}

Record_text& Record_text::add_number(std::string_view key, double value) {
    std::string text;
    TESK::append_fixed(text, value, 4);
    return add(key, text);
}

bool Record_text::write(const TESK::File_name& file, std::ostream& out) const {
    const platform::Write_result result = platform::write_file(file, text_, platform::Durability::quick);
    out << (result.ok() ? "Wrote " : "Cannot write ") << shown(file);
    if (!result.ok())
        out << ": " << result.reason;
    out << '\n';
    return result.ok();
}

bool Opened_project::open(const std::string& name, Tilverra_project_type kind, std::ostream& out) {
    const TESK::File_name file(platform::full_name(name).c_str());
    if (!read(file, parameters, out))
        return false;
    directory.emplace(file, static_cast<std::uint8_t>(kind));
    if (!platform::change_directory(*directory)) {
        out << "There is no folder of the project: " << shown(*directory) << '\n';
        return false;
    }
    const TESK::File_name active(platform::full_name(parameters.active_scenario).c_str());
    return read(active, scenario, out);
}
