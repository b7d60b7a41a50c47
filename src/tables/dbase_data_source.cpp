#include "tables/dbase_data_source.h"

#include "foundation/code_page_1252.h"
#include "foundation/numbers.h"
#include "records/vv_section.h"
#include "temporal/date.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace TESK {

namespace {

constexpr std::size_t longest_name = 11;
constexpr std::size_t usual_name = 10;
constexpr int header_size = 32;
constexpr int descriptor_size = 32;
constexpr char descriptors_end = 13;
constexpr char deleted_mark = '*';
constexpr int record_count_offset = 4;

std::uint8_t forced_length(char type, std::uint8_t length) {
    switch (type) {
    case 'D':
    case 'd': return 8;
    case 'L':
    case '1': return 1;
    case 'M': return 10;
    case '2':
    case 'i': return 2;
    case '4':
    case 'f':
    case 'j': return 4;
    default: return length;
    }
}

bool is_numeric(Entry_type type) {
    return type >= Entry_type(2) && type <= Entry_type::float64;
}

struct Column_type {
    char letter;
    std::uint8_t decimals;
};

Column_type column_type_of(Entry_type type) {
    switch (type) {
    case Entry_type::float32: return {'N', 5};
    case Entry_type::float64: return {'N', 8};
    case Entry_type::date: return {'D', 0};
    case Entry_type::boolean: return {'L', 0};
    default: return {is_numeric(type) ? 'N' : 'C', 0};
    }
}

// A date of a record (its number, and words behind it) as a table keeps it: "YYYYMMDD"; nothing for no date.
std::string date_to_column(const std::string& text) {
    Date date(static_cast<std::int32_t>(parse_integer(text.c_str())));
    if (date.date_num == 0)
        return {};
    std::int16_t year = 0;
    std::uint8_t month = 0;
    std::uint8_t day = 0;
    date.get_YMD(year, month, day);
    std::string part;
    std::string column = int32_to_cstr_padded(year, part, 10, '0', 4);
    column += int32_to_cstr_padded(month, part, 10, '0', 2);
    return column += int32_to_cstr_padded(day, part, 10, '0', 2);
}

// The date's number as text.
std::string date_from_column(const std::string& text) {
    if (text.empty())
        return {};
    const auto part = [&](std::size_t at, std::size_t count) {
        return at < text.size() ? parse_integer(text.substr(at, count).c_str()) : 0;
    };
    Date date(0);
    date.set_YMD(static_cast<std::int16_t>(part(0, 4)), static_cast<std::uint8_t>(part(4, 2)),
                 static_cast<std::uint8_t>(part(6, 2)));
    std::string number;
    append_integer(number, date.date_num);
    return number;
}

std::int64_t row_offset(const dBase_data_source::Header& header, std::uint32_t number) {
    return header.header_length + std::int64_t{number - 1} * header.record_length;
}

} // namespace

std::string normalize_name(std::string_view text) {
    std::string name(text.substr(0, longest_name));
    for (char& c : name)
        c = c == ' ' ? '_' : to_ascii_upper(c);
    return name;
}

dBase_data_source::Field::Field(const char* field_name, char type_letter, std::uint8_t field_length,
                                std::uint8_t decimal_count)
    : name(normalize_name(field_name)), type(type_letter), length(forced_length(type_letter, field_length)),
      decimals(decimal_count) {}

dBase_data_source::dBase_data_source(Binary_file_interface& file) : file_(file) {
    const Date today;
    std::int16_t year = 0;
    today.get_YMD(year, header_.month, header_.day);
    header_.year = static_cast<std::uint8_t>(year);
}

std::string& dBase_data_source::label(std::string& buffer) const {
    return buffer = file_.get_file_name();
}

bool dBase_data_source::read_structure() {
    if (structure_read_)
        return true;
    file_.seek(0, Seek_direction::from_end);
    const std::int64_t size = file_.good() ? file_.tell() : 0;
    file_.seek(0, Seek_direction::from_start);
    if (size <= 0 || !file_.good())
        return false;
    read_header();
    if (header_.version == 0)
        return false;
    read_field_descriptors(size);
    // Some writers count rows that they never wrote.
    const std::int64_t room = std::max<std::int64_t>(size - header_.header_length, 0);
    const std::int64_t rows = header_.record_length == 0 ? 0 : room / header_.record_length;
    const auto there = static_cast<std::uint32_t>(std::min<std::int64_t>(header_.record_count, rows));
    missing_rows_ = header_.record_count - there;
    header_.record_count = there;
    structure_read_ = true;
    if (row_visitor_ != nullptr)
        visit_rows();
    return true;
}

void dBase_data_source::read_header() {
    header_.version = file_.read_nat8();
    header_.year = file_.read_nat8();
    header_.month = file_.read_nat8();
    header_.day = file_.read_nat8();
    header_.record_count = file_.read_nat32();
    header_.header_length = file_.read_nat16();
    header_.record_length = file_.read_nat16();
}

void dBase_data_source::read_field_descriptors(std::int64_t file_size) {
    const std::int64_t described = std::min<std::int64_t>(header_.header_length, file_size);
    const int count = static_cast<int>((described - header_size) / descriptor_size);
    std::uint16_t offset = 0;
    for (int number = 1; number <= count; ++number) {
        file_.seek(std::int64_t{number} * descriptor_size, Seek_direction::from_start);
        char descriptor[descriptor_size] = {};
        if (file_.read_bytes(descriptor, sizeof descriptor) < sizeof descriptor ||
            descriptor[0] == descriptors_end)
            return;
        std::string name(descriptor, longest_name);
        name.resize(std::min(name.find('\0'), name.size()));
        auto* field = new Field_item("", descriptor[11], 0, static_cast<std::uint8_t>(descriptor[17]));
        // What stands in the file counts, whatever name and length a field made here would have.
        field->name = std::move(name);
        field->length = static_cast<std::uint8_t>(descriptor[16]);
        field->offset = offset;
        offset = static_cast<std::uint16_t>(offset + field->length);
        fields.append(field);
    }
}

void dBase_data_source::visit_rows() {
    std::string text;
    for (std::uint32_t number = 1; number <= header_.record_count && goto_record(number); ++number) {
        for (const Field_item& field : Items_of<Field_item>(fields))
            row_visitor_->field(text.assign(get_field_text(field)), field.name);
        row_visitor_->record(number);
    }
    current_record_ = 0;
    row_.clear();
    position_at(0);
}

void dBase_data_source::write_header() {
    file_.seek(0, Seek_direction::from_start);
    file_.write_nat8(header_.version);
    file_.write_nat8(header_.year);
    file_.write_nat8(header_.month);
    file_.write_nat8(header_.day);
    file_.write_nat32(header_.record_count);
    file_.write_nat16(header_.header_length);
    file_.write_nat16(header_.record_length);
    // Transaction, encryption, index and language marks: none.
    const std::string zeros(20, '\0');
    file_.write_bytes(zeros.data(), zeros.size());
}

bool dBase_data_source::write_structure() {
    std::uint32_t count = 0;
    std::uint32_t record_length = 1;
    for (Field_item& field : Items_of<Field_item>(fields)) {
        field.offset = static_cast<std::uint16_t>(record_length - 1);
        record_length += field.length;
        ++count;
    }
    const std::uint32_t header_length = count * descriptor_size + header_size + 1;
    constexpr std::uint32_t most = std::numeric_limits<std::uint16_t>::max();
    if (count == 0 || record_length > most || header_length > most)
        return false;
    header_.header_length = static_cast<std::uint16_t>(header_length);
    header_.record_length = static_cast<std::uint16_t>(record_length);
    write_header();
    header_modified_ = true;
    write_field_descriptors();
    file_.write_char(descriptors_end);
    structure_read_ = true;
    current_record_ = 0;
    matches_.clear();
    return true;
}

void dBase_data_source::write_field_descriptors() {
    for (const Field_item& field : Items_of<Field_item>(fields)) {
        char descriptor[descriptor_size] = {};
        std::copy_n(field.name.begin(), std::min(field.name.size(), longest_name), descriptor);
        descriptor[11] = field.type;
        descriptor[16] = static_cast<char>(field.length);
        descriptor[17] = static_cast<char>(field.decimals);
        descriptor[20] = 1; // the work area
        file_.write_bytes(descriptor, sizeof descriptor);
    }
}

void dBase_data_source::finish() {
    if (!header_modified_)
        return;
    file_.seek(record_count_offset, Seek_direction::from_start);
    file_.write_nat32(header_.record_count);
    header_modified_ = false;
    placed_at_ = 0;
}

void dBase_data_source::position_at(std::uint32_t number) {
    read_structure();
    if (number != 0 && number == placed_at_)
        return;
    file_.seek(number == 0 ? header_.header_length : row_offset(header_, number), Seek_direction::from_start);
    placed_at_ = number;
}

// Reads the row that the file is placed at, and leaves the file at the next one.
bool dBase_data_source::read_row() {
    row_.resize(header_.record_length);
    if (file_.read_bytes(row_.data(), row_.size()) < row_.size() || row_.empty()) {
        row_.clear();
        placed_at_ = 0;
        return false;
    }
    ++placed_at_;
    return true;
}

bool dBase_data_source::goto_record(std::uint32_t number) {
    if (!read_structure())
        return false;
    if (number >= 1 && number <= header_.record_count) {
        position_at(number);
        if (read_row()) {
            current_record_ = number;
            current_deleted_ = row_.front() == deleted_mark;
            return true;
        }
    }
    current_record_ = 0;
    row_.clear();
    position_at(0);
    return false;
}

bool dBase_data_source::skip_deleted(std::int32_t step) {
    while (!show_deleted_ && current_deleted_)
        if (!goto_record(current_record_ + static_cast<std::uint32_t>(step)))
            return false;
    return true;
}

bool dBase_data_source::go(std::int64_t distance) {
    const std::int64_t number = current_record_ + distance;
    const bool possible = number >= 0 && number <= std::numeric_limits<std::uint32_t>::max();
    return goto_record(possible ? static_cast<std::uint32_t>(number) : 0);
}

bool dBase_data_source::goto_next(std::int32_t count) {
    return go(count) && skip_deleted(1);
}

bool dBase_data_source::goto_previous(std::int32_t count) {
    return go(-std::int64_t{count}) && skip_deleted(-1);
}

bool dBase_data_source::goto_first() {
    return goto_record(1) && skip_deleted(1);
}

bool dBase_data_source::goto_last() {
    return read_structure() && goto_record(header_.record_count) && skip_deleted(-1);
}

const dBase_data_source::Field_item* dBase_data_source::find_field(std::string_view name) const {
    std::string normalized = normalize_name(name);
    const Item* field = fields.find(normalized.c_str(), false);
    if (field == nullptr && normalized.size() > usual_name) {
        normalized.resize(usual_name);
        field = fields.find(normalized.c_str(), false);
    }
    return static_cast<const Field_item*>(field);
}

std::string_view dBase_data_source::get_field_text(const Field_item& field) const {
    const std::size_t start = std::min<std::size_t>(field.offset + std::size_t{1}, row_.size());
    return std::string_view(row_).substr(start, field.length);
}

const dBase_data_source::Field_item* dBase_data_source::match(std::size_t place, const std::string& key) {
    if (place < matches_.size() && matches_[place].key == key)
        return matches_[place].field;
    matches_.resize(std::max(matches_.size(), place + 1));
    matches_[place] = {key, find_field(key)};
    return matches_[place].field;
}

template <class Use>
bool dBase_data_source::for_matches(const Data_record& record, Use use) {
    bool any = false;
    std::size_t place = 0;
    for (const VV_section& section : record.all_sections()) {
        for (VV_base_entry& entry : section.all_entries()) {
            const Field_item* field = match(place++, entry.key);
            entry.encountered = field != nullptr;
            if (field == nullptr)
                continue;
            use(entry, *field);
            any = true;
        }
    }
    return any;
}

bool dBase_data_source::get(Data_record& record) {
    record.preread();
    bool any_read = Data_source::get(record);
    if (current_record_ != 0 || goto_first()) {
        record.set_position(static_cast<std::int32_t>(current_record_));
        current_deleted_ = !row_.empty() && row_.front() == deleted_mark;
        Ustring text;
        any_read = for_matches(record, [&](VV_base_entry& entry, const Field_item& field) {
            const std::string_view column = get_field_text(field);
            // By pointers, since the compiler copies what it knows to be short in a way that is slow.
            const char* end = column.data() + column.size();
            while (end != column.data() && end[-1] == ' ')
                --end;
            text.assign(column.data(), end);
            if (field.type == 'D')
                text = date_from_column(text);
            entry.set_value(text);
        });
    }
    record.postread();
    return any_read;
}

bool dBase_data_source::get_first(Data_record& record) {
    goto_first();
    return get(record);
}

std::unique_ptr<Generic_data_record> dBase_data_source::make_record() {
    read_structure();
    auto record = std::make_unique<Generic_data_record>("none");
    record->expect_structure(false);
    for (const Field_item& field : Items_of<Field_item>(fields)) {
        const char* key = field.name.c_str();
        switch (field.type) {
        case 'C':
        case 'M': record->add_string(key, field.length); break;
        case 'D': record->add_date(key); break;
        case 'F': record->add_float32(key); break;
        case 'L': record->add_bool(key); break;
        case 'N': field.decimals == 0 ? record->add_int16(key) : record->add_float32(key); break;
        default: break;
        }
    }
    return record;
}

Entry_type dBase_data_source::get_field_type(const char* name) {
    read_structure();
    const Field_item* field = find_field(name);
    switch (field == nullptr ? 0 : field->type) {
    case 'C':
    case 'M': return Entry_type::string;
    case 'D': return Entry_type::date;
    case 'L': return Entry_type::boolean;
    case 'N': return field->decimals == 0 ? Entry_type::int32 : Entry_type::float32;
    default: return Entry_type::unexpected;
    }
}

std::uint32_t dBase_data_source::delete_record() {
    current_deleted_ = true;
    deletion_pending_ = true;
    return current_record_;
}

// Whether the file holds what a new table would destroy: rows, or something that is no table.
bool dBase_data_source::is_occupied() {
    if (read_structure())
        return !fields.is_empty() || header_.record_count > 0;
    file_.seek(0, Seek_direction::from_end);
    return file_.tell() > 0;
}

void dBase_data_source::setup_fields(Data_record& record) {
    if (!fields.is_empty() || is_occupied())
        return;
    fields.transfer_all_from(expected_fields, Item_filter::all);
    if (fields.is_empty()) {
        for (const VV_section& section : record.all_sections()) {
            for (const VV_base_entry& entry : section.all_entries()) {
                const Column_type column = column_type_of(entry.type_code());
                const auto length =
                    static_cast<std::uint8_t>(std::min<int>(entry.get_max_strlen(), UINT8_MAX));
                fields.append(new Field_item(entry.get_key(), column.letter, length, column.decimals));
            }
        }
    }
    write_structure();
}

bool dBase_data_source::write_record(Data_record& record) {
    if (!read_structure() || fields.is_empty())
        setup_fields(record);
    if (!structure_read_ || fields.is_empty() || header_.record_length == 0)
        return false;
    if (record.get_position() == 0) {
        ++header_.record_count;
        record.set_position(static_cast<std::int32_t>(header_.record_count));
        current_record_ = header_.record_count;
    } else if (current_record_ == 0) {
        // No row is current: the record goes back to where it came from, never over the first row.
        if (static_cast<std::uint32_t>(record.get_position()) > header_.record_count)
            return false;
        current_record_ = static_cast<std::uint32_t>(record.get_position());
    }
    header_modified_ = true;
    row_.assign(header_.record_length, ' ');
    std::string text;
    const bool any_stored = for_matches(record, [&](VV_base_entry& entry, const Field_item& field) {
        entry.get_value(text);
        if (entry.type_code() == Entry_type::date)
            text = date_to_column(text);
        store_column(field, text, is_numeric(entry.type_code()));
    });
    placed_at_ = 0;
    position_at(current_record_);
    file_.write_bytes(row_.data(), row_.size());
    placed_at_ = 0;
    current_deleted_ = false;
    return any_stored && file_.good();
}

// Puts a text into its place in the current row: numbers at the right end of the field, all else at the left.
void dBase_data_source::store_column(const Field_item& field, std::string_view text, bool at_right) {
    const std::size_t start = std::min<std::size_t>(field.offset + std::size_t{1}, row_.size());
    const std::size_t room = std::min<std::size_t>(field.length, row_.size() - start);
    text = text.substr(0, room);
    row_.replace(at_right ? start + room - text.size() : start, text.size(), text);
}

std::uint32_t dBase_data_source::append_blank(std::int16_t count) {
    if (!structure_read_ || count <= 0)
        return 0;
    const std::uint32_t first = header_.record_count + 1;
    const std::int64_t place = file_.tell();
    file_.seek(0, Seek_direction::from_end);
    const std::string blanks(std::size_t{header_.record_length} + 2, ' ');
    for (std::int16_t i = 0; i < count; ++i)
        file_.write_bytes(blanks.data(), blanks.size());
    header_.record_count += static_cast<std::uint32_t>(count);
    header_modified_ = true;
    file_.seek(place, Seek_direction::from_start);
    current_record_ = header_.record_count;
    row_.clear();
    placed_at_ = 0;
    return first;
}

} // namespace TESK
