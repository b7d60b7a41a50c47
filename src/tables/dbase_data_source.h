// dBase tables: the attribute tables of maps and the tables of soil data. A record's entries are matched to
// the table's fields by name, so a record is stored in a row and fetched from a row as it is from a record
// file.
#pragma once

#include "foundation/association_list.h"
#include "records/generic_data_record.h"
#include "tables/binary_file.h"
#include "tables/data_table.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace TESK {

class dBase_data_source : public Data_table {
public:
    // One field of a table, by what a caller wants of it.
    class Field : public Association {
    public:
        // The name is normalized. Letters of a fixed length ("D" 8, "L" 1, "M" 10 and the like) take that
        // whatever length is given.
        Field(const char* field_name, char type_letter, std::uint8_t field_length,
              std::uint8_t decimal_count);
        const char* get_key() const override { return name.c_str(); }

        std::string name; // at most 11 characters
        char type;
        std::uint8_t length;
        std::uint8_t decimals;
    };

    // A field as it lies in the file.
    class Field_item : public Field {
    public:
        using Field::Field;

        std::uint16_t offset = 0; // behind the delete mark of a row
    };

    struct Header {
        std::uint8_t version = 3;
        std::uint8_t year = 0; // the low byte of the full year
        std::uint8_t month = 0;
        std::uint8_t day = 0;
        std::uint32_t record_count = 0;
        std::uint16_t header_length = 0;
        std::uint16_t record_length = 0;
    };

    // Hears of every row while the structure is read.
    class Row_visitor {
    public:
        virtual ~Row_visitor() = default;
        virtual void field(const std::string& text, const std::string& name) = 0;
        virtual void record(std::uint32_t number) = 0;
    };

    // The file is little-endian and not owned; it outlives the source.
    explicit dBase_data_source(Binary_file_interface& file);

    // Makes the table's fields: those that were expected, or else one for each entry of the record, whose
    // structure stands. Writes the empty table. A table that has fields, and a file that is no table, stay.
    virtual void setup_fields(Data_record& record);

    // Fetches the current row, or the first when there is none: each entry whose key names a field takes the
    // field's text without the blanks behind it; its encountered mark says whether there was one. True when
    // any was read.
    bool get(Data_record& record) override;
    virtual bool get_first(Data_record& record);

    // A new record for a row of this table; a field for which the record has no room left has no entry.
    virtual std::unique_ptr<Generic_data_record> make_record();

    // Stores the record, in its row or, when its position is 0, in a new one. A text longer than its field is
    // cut. True when any entry was stored. The structure of a table that exists is read first; a file that
    // cannot be written stays as it is.
    bool write_record(Data_record& record) override;

    // Moving passes over deleted rows, unless show_deleted.
    bool goto_next(std::int32_t count) override;
    bool goto_previous(std::int32_t count) override;
    bool goto_first() override;
    bool goto_last() override;
    // Goes to the row of that number, from 1, deleted or not.
    bool goto_record(std::uint32_t number) override;

    // The type of entry that a field's values are: string, date, boolean, int32 or float32; unexpected for
    // any other type of field and when there is no such field.
    virtual Entry_type get_field_type(const char* name);

    // Marks the current row, in memory alone. Returns its number.
    virtual std::uint32_t delete_record();

    // Reads the header and the fields, once; true when they are in memory. Every row is shown to the visitor,
    // where there is one.
    virtual bool read_structure();

    // Writes a changed count of records into the header. Must run before the file is closed.
    virtual void finish();

    virtual void write_field_descriptors();
    // Writes the header of a table without rows; false without fields.
    bool write_structure();

    // Adds blank rows, each two bytes longer than a row is. Returns the number of the first; 0 without a
    // structure.
    std::uint32_t append_blank(std::int16_t count);

    // Places the file at the row of that number; 0 is the first byte behind the header.
    void position_at(std::uint32_t number);

    // The field with the name, which is normalized first; a longer name is found by its first 11 or 10
    // characters. Null when there is none.
    const Field_item* find_field(std::string_view name) const;

    // The text of a field of the current row, with its blanks; it stands until the next move.
    std::string_view get_field_text(const Field_item& field) const;

    std::string& label(std::string& buffer) const override;

    const Header& get_header() const { return header_; }
    // How many rows the header told of when it was read that the file does not hold.
    std::uint32_t get_missing_rows() const { return missing_rows_; }
    std::uint32_t get_current_record() const { return current_record_; }
    bool is_current_deleted() const { return current_deleted_; }
    void set_show_deleted(bool show) { show_deleted_ = show; }
    void set_row_visitor(Row_visitor* visitor) { row_visitor_ = visitor; }
    bool is_deletion_pending() const { return deletion_pending_; }

    Association_list expected_fields; // of Field_item: what a table that is yet to be made will have
    Association_list fields;          // of Field_item, in file order

private:
    // Which field an entry is matched to. Entries come in the same order time after time, so the matches of
    // the last record are tried first.
    struct Match {
        std::string key;
        const Field_item* field;
    };
    const Field_item* match(std::size_t place, const std::string& key);
    // Marks each entry of the record whether a field has its name, and calls `use` with the two if so. True
    // when there was any.
    template <class Use>
    bool for_matches(const Data_record& record, Use use);

    bool is_occupied();
    void read_header();
    void read_field_descriptors(std::int64_t file_size);
    void visit_rows();
    bool read_row();
    void write_header();
    bool go(std::int64_t distance);
    bool skip_deleted(std::int32_t step);
    void store_column(const Field_item& field, std::string_view text, bool at_right);

    Binary_file_interface& file_;
    Row_visitor* row_visitor_ = nullptr;
    std::uint32_t current_record_ = 0;
    bool current_deleted_ = false;
    Header header_;
    bool show_deleted_ = false;
    bool header_modified_ = false;
    bool structure_read_ = false;
    bool deletion_pending_ = false;
    std::uint32_t missing_rows_ = 0;
    std::string row_; // the current row, its delete mark included; empty for none
    // The row whose first byte the file is placed at; 0 for anywhere else.
    std::uint32_t placed_at_ = 0;
    std::vector<Match> matches_;
};

// The name in upper case, with "_" for blanks, cut at 11 characters.
std::string normalize_name(std::string_view text);

} // namespace TESK
