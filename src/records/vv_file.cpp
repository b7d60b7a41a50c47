#include "records/vv_file.h"

#include "platform/host_names.h"
#include "records/data_record.h"
#include "records/line_reader.h"

namespace TESK {

VV_file::VV_file(const char* filename, bool keep_structure) : keep_structure_(keep_structure) {
    if (filename != nullptr)
        filename_ = filename;
}

bool VV_file::exists() const {
    return filename_ && !filename_->empty() && platform::exists(*filename_);
}

std::string& VV_file::label(std::string& buffer) const {
    return filename_ ? buffer = *filename_ : buffer;
}

bool VV_file::get(Data_record& record) {
    if (!exists())
        return false;
    const platform::Read_result file = platform::read_file(*filename_, largest_file);
    if (!file.ok())
        return false;

    record.begin_reading();
    const bool is_whole = read_record_text(file.contents, record, false, progress_);
    record.end_reading(keep_structure_ && is_whole);
    if (!is_whole)
        return false;
    record.set_loaded_from(platform::full_name(*filename_));
    return true;
}

bool VV_file::write_record(Data_record& record) {
    if (!filename_ || filename_->empty())
        return false;
    record.declare_series();
    if (!record.get_preserve_unexpected() || bring_back_unexpected(record)) {
        last_text_ = record.text_of_sections();
        last_write_ = platform::write_file(*filename_, last_text_, durability_);
        if (last_write_.ok())
            record.set_loaded_from(platform::full_name(*filename_));
    }
    record.delete_structure();
    return true;
}

// Reads back what the record does not declare. False, with the reason in last_write_, when the file that
// holds it is there and cannot be read.
bool VV_file::bring_back_unexpected(Data_record& record) {
    const std::string& source = record.get_loaded_from().empty() ? *filename_ : record.get_loaded_from();
    const platform::Read_result old_file = platform::read_file(source, largest_file);
    if (old_file.ok()) {
        read_record_text(old_file.contents, record, true);
        return true;
    }
    if (old_file.outcome == platform::Read_outcome::absent)
        return true;
    last_write_ = {platform::Write_error::other,
                   "The old file holds what must be kept and cannot be read: " + source};
    return false;
}

bool VV_file::read_stream(std::istream& stream, Data_record& record, bool unexpected_only, bool one_section) {
    const std::istream::pos_type start = stream.tellg();
    Line_reader lines(stream);
    const bool read_anything = read_record_lines(lines, record, unexpected_only, one_section);
    if (lines.is_line_refused()) {
        stream.clear();
        stream.seekg(start + static_cast<std::istream::off_type>(lines.line_start()));
    }
    return read_anything;
}

} // namespace TESK
