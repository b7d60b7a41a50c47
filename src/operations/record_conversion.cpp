#include "operations/record_conversion.h"

#include "operations/operation_outcome.h"
#include "operations/record_settings.h"
#include "platform/files.h"
#include "records/common_parameters.h"
#include "records/line_reader.h"
#include "records/vv_file.h"
#include "records/vv_text.h"

#include <span>

namespace {

// The text with the sections and the count of each series of the record in the present spelling: "event:1"
// for "event_1". Series that are told of in neither spelling stay as they are.
std::string with_present_series(std::string text, TESK::Data_record& record) {
    record.expect_structure(false);
    std::vector<std::string> labels;
    for (const auto& series : TESK::Items_of<TESK::VV_enumerated_section>(record.enumerated_sections))
        labels.push_back(series.label);
    record.delete_structure();
    std::vector<std::size_t> marks; // the places of "_" that are to be ":"
    for (const std::string& label : labels) {
        TESK::Line_reader lines(text);
        for (std::string_view line; lines.next(line);) {
            const bool is_header = line.starts_with('[' + label + '_');
            const bool is_count = line.starts_with(label + "_count=");
            if (is_header || is_count)
                marks.push_back(static_cast<std::size_t>(line.data() - text.data()) + (is_header ? 1 : 0) +
                                label.size());
        }
    }
    for (const std::size_t mark : marks)
        text[mark] = ':';
    return text;
}

// Takes out the keys whose values have been carried over.
void drop_moved_keys(Common_parameters_data_record& record) {
    std::uint16_t count = 0;
    const Section_mapping* rows = record.get_section_mapping(count);
    for (const Section_mapping& row : std::span(rows, count)) {
        if (row.since.number() <= record.file_version.number())
            continue;
        auto* old_section = static_cast<TESK::VV_section*>(record.sections.find_exact(row.old_section));
        auto* new_section = static_cast<TESK::VV_section*>(record.sections.find_exact(row.new_section));
        if (old_section == nullptr || new_section == nullptr ||
            new_section->find_entry(row.new_key) == nullptr)
            continue;
        TESK::VV_base_entry* old_entry = old_section->find_entry(row.old_key);
        if (old_entry != nullptr && old_entry->type_code() == TESK::Entry_type::unexpected)
            old_section->entries.remove(old_entry);
    }
}

// A name beside the file that nothing has.
std::string free_backup_name(const std::string& file) {
    std::string name = file + ".bak";
    for (int number = 2; platform::exists(name); ++number)
        name = file + ".bak" + std::to_string(number);
    return name;
}

Conversion failure(const std::string& reason) {
    return {Conversion_outcome::failed, "", reason};
}

} // namespace

Conversion convert_record(const TESK::File_name& file) {
    const platform::Read_result old = platform::read_file(file, TESK::VV_file::largest_file);
    if (!old.ok())
        return failure(platform::exists(file) ? "The file cannot be read." : "There is no such file.");
    if (const std::string reason = told_interruption(file); !reason.empty())
        return failure(reason);
    const std::unique_ptr<TESK::Data_record> made = make_record_for(file);
    auto* record = dynamic_cast<Common_parameters_data_record*>(made.get());
    if (record == nullptr)
        return failure("Records of this kind of file are not known.");
    const std::string text = with_present_series(old.contents, *record);
    TESK::VV_text(text, true).get(*record);
    if (text == old.contents && record->file_version.number() >= record->program_version.number())
        return {Conversion_outcome::is_present, "", ""};

    record->redeclare_for_write();
    drop_moved_keys(*record);
    const std::string backup = free_backup_name(file);
    platform::Write_result result = platform::copy_file(file, backup);
    if (!result.ok())
        return failure("The old file could not be kept: " + result.reason);
    TESK::VV_file target(file.c_str());
    target.set(*record);
    if (!target.get_last_write().ok()) {
        platform::delete_file(backup);
        return failure(target.get_last_write().reason);
    }
    return {Conversion_outcome::converted, backup, ""};
}
