#include "records/vv_file.h"

#include "foundation/numbers.h"
#include "platform/host_names.h"
#include "records/data_record.h"
#include "records/line_reader.h"
#include "records/vv_section.h"

namespace TESK {

namespace {

// Stores the entries of a section. Most files hold them in the order in which they are declared, so the entry
// behind the last one is tried first.
class Section_reader {
public:
    explicit Section_reader(bool unexpected_only) : unexpected_only_(unexpected_only) {}

    void begin(VV_section& section) {
        section_ = &section;
        next_ = section.entries.head();
    }
    void store(std::string_view key, std::string_view value) {
        VV_base_entry* entry = find(key);
        if (entry == nullptr) {
            entry = new VV_unexpected_entry(key, value);
            section_->entries.append(entry);
        } else if (!unexpected_only_) {
            text_.assign(value);
            entry->set_value(text_);
        }
        entry->encountered = true;
    }

private:
    VV_base_entry* find(std::string_view key) {
        if (next_ == nullptr || next_->item->get_key_view() != key)
            return section_->find_entry(key);
        auto* entry = static_cast<VV_base_entry*>(next_->item.get());
        next_ = next_->next;
        return entry;
    }

    bool unexpected_only_;
    VV_section* section_ = nullptr;
    const Unidirectional_list::Node* next_ = nullptr;
    Ustring text_;
};

// A line "label:count=N" says that the file holds N sections of the series.
void apply_series_count(Data_record& record, std::string_view key, std::string_view value) {
    const std::size_t mark = key.find(":count");
    if (mark == std::string_view::npos)
        return;
    Item* series = record.enumerated_sections.find_exact(key.substr(0, mark));
    if (series == nullptr)
        return;
    const std::int64_t count = parse_integer(std::string(value).c_str());
    static_cast<VV_enumerated_section*>(series)->apply_count(static_cast<std::int16_t>(count));
    series->setup_structure(record, false);
}

} // namespace

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

    record.make_primary_section_current();
    if (!record.is_structure_defined())
        record.expect_structure(false);
    record.make_primary_section_current();
    record.preread();
    Line_reader lines(file.contents);
    read_lines(lines, record, false, false);
    record.postread();
    if (!keep_structure_)
        record.delete_structure();
    record.set_loaded_from(platform::full_name(*filename_));
    return true;
}

bool VV_file::write_record(Data_record& record) {
    if (!filename_ || filename_->empty())
        return false;
    record.declare_series();
    if (!record.get_preserve_unexpected() || bring_back_unexpected(record)) {
        last_write_ = platform::write_file(*filename_, record.text_of_sections(), durability_);
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
        Line_reader lines(old_file.contents);
        read_lines(lines, record, true, false);
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
    const bool read_anything = read_lines(lines, record, unexpected_only, one_section);
    if (lines.is_line_refused()) {
        stream.clear();
        stream.seekg(start + static_cast<std::istream::off_type>(lines.line_start()));
    }
    return read_anything;
}

bool VV_file::read_lines(Line_reader& lines, Data_record& record, bool unexpected_only, bool one_section) {
    constexpr int most_empty_lines = 20;
    Section_reader section(unexpected_only);
    section.begin(*record.get_current_section());
    bool seen_header = false;
    bool read_anything = false;
    int empty_lines = 0;
    std::string_view line;
    while (empty_lines < most_empty_lines && lines.next(line)) {
        if (line.empty()) {
            ++empty_lines;
            continue;
        }
        empty_lines = 0;
        const std::size_t bracket = line.front() == '[' ? line.find(']') : std::string_view::npos;
        if (bracket != std::string_view::npos) {
            if (one_section && seen_header) {
                lines.refuse_line();
                return true;
            }
            seen_header = read_anything = true;
            VV_section* met = record.set_current_section(line.substr(1, bracket - 1));
            met->encountered = true;
            section.begin(*met);
            continue;
        }
        const std::size_t equals = line.find('=');
        if (equals == std::string_view::npos) {
            section.store("", line);
            continue;
        }
        read_anything = true;
        const std::string_view key = line.substr(0, equals);
        const std::string_view value = line.substr(equals + 1);
        if (!unexpected_only)
            apply_series_count(record, key, value);
        section.store(key, value);
    }
    return read_anything;
}

} // namespace TESK
