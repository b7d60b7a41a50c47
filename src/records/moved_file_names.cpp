#include "records/moved_file_names.h"

#include "foundation/code_page_1252.h"
#include "names/file_name.h"
#include "records/data_record.h"
#include "records/data_source.h"
#include "records/typed_entries.h"

namespace TESK {

namespace {

// Shows each entry that a record declares for writing.
class Entry_visitor : public Data_source {
public:
    explicit Entry_visitor(std::function<void(VV_base_entry&)> visit) : visit_(std::move(visit)) {}

    bool write_record(Data_record& record) override {
        record.declare_series();
        for (VV_section& section : record.all_sections())
            for (VV_base_entry& entry : section.all_entries())
                visit_(entry);
        record.delete_structure();
        return true;
    }
    std::string& label(std::string& buffer) const override { return buffer; }

private:
    std::function<void(VV_base_entry&)> visit_;
};

} // namespace

Moved_file_names::Moved_file_names(Data_record& record, const std::string& from, const std::string& to) {
    const std::string below = from + '\\';
    const auto move = [&](auto& field) {
        const std::string before = field;
        if (!equal_ignoring_case(before.substr(0, below.size()), below))
            return;
        field = to + before.substr(from.size());
        undo_.emplace_back([&field, before] { field = before; });
    };
    Entry_visitor visitor([&](VV_base_entry& entry) {
        if (entry.type_code() == Entry_type::file_name)
            move(static_cast<VV_filename_entry&>(entry).value);
        // Some folders and pages are kept as plain texts. What a user tells of the record is no name.
        else if (entry.type_code() == Entry_type::string && entry.key != "description")
            move(static_cast<VV_string_entry&>(entry).value);
    });
    visitor.set(record);
}

void Moved_file_names::undo() {
    for (const auto& put_back : undo_)
        put_back();
    undo_.clear();
}

} // namespace TESK
