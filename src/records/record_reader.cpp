#include "records/record_reader.h"

#include "foundation/numbers.h"
#include "records/data_record.h"
#include "records/line_reader.h"
#include "records/vv_section.h"

namespace TESK {

namespace {

// Stores the entries of a section. Most files hold them in the order in which they are declared, so the entry
// behind the last one is tried first.
class Section_reader {
public:
    Section_reader(const Data_record& record, bool unexpected_only)
        : record_(record), unexpected_only_(unexpected_only) {}

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
            record_.tell_value(*section_, *entry, text_);
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

    const Data_record& record_;
    bool unexpected_only_;
    VV_section* section_ = nullptr;
    const Unidirectional_list::Node* next_ = nullptr;
    Ustring text_;
};

// The series whose name stands before the mark in the key; null when there is none.
VV_enumerated_section* counted_series(const Data_record& record, std::string_view key,
                                      std::string_view mark) {
    const std::size_t at = key.find(mark);
    return at == std::string_view::npos ? nullptr
                                        : static_cast<VV_enumerated_section*>(
                                              record.enumerated_sections.find_exact(key.substr(0, at)));
}

std::int16_t count_in(std::string_view value) {
    return static_cast<std::int16_t>(parse_integer(std::string(value).c_str()));
}

// A line "label:count=N" says that the file holds N sections of the series. True when it was such a line.
bool apply_series_count(Data_record& record, std::string_view key, std::string_view value) {
    VV_enumerated_section* series = counted_series(record, key, ":count");
    if (series == nullptr)
        return false;
    series->apply_count(count_in(value));
    series->setup_structure(record, false);
    return true;
}

// An old "label_count=N" declares no sections: they are brought back as they stand, and their count with
// them.
void keep_series_count(Data_record& record, std::string_view key, std::string_view value) {
    VV_enumerated_section* series = counted_series(record, key, "_count");
    if (series != nullptr && record.get_current_section()->find_entry(key) != nullptr)
        series->keep_count(count_in(value));
}

} // namespace

bool read_record_lines(Line_reader& lines, Data_record& record, bool unexpected_only, bool one_section) {
    constexpr int most_empty_lines = 20;
    Section_reader section(record, unexpected_only);
    section.begin(*record.get_current_section());
    bool seen_header = false;
    bool read_anything = false;
    std::string_view line;
    while (lines.empty_lines() < most_empty_lines && lines.next(line)) {
        if (line.empty())
            continue;
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
        if (unexpected_only)
            keep_series_count(record, key, value);
        else if (apply_series_count(record, key, value))
            section.begin(*record.get_current_section());
        section.store(key, value);
    }
    return read_anything;
}

bool read_record_text(std::string_view text, Data_record& record, bool unexpected_only,
                      const Reading_progress& progress) {
    Line_reader lines(text);
    if (progress)
        lines.set_watch([&](std::size_t taken) { return progress(taken, text.size()); });
    read_record_lines(lines, record, unexpected_only, false);
    if (lines.is_stopped())
        return false;
    const std::string_view unread = text.substr(lines.taken());
    if (unread.find_first_not_of(" \t\r\n\v\f") != std::string_view::npos)
        record.set_unread(text.substr(lines.empty_start()));
    return true;
}

} // namespace TESK
