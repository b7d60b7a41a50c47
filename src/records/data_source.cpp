#include "records/data_source.h"

#include "records/data_record.h"
#include "records/vv_section.h"

namespace TESK {

bool Data_source::create() {
    modified_ = true;
    return true;
}

bool Data_source::get(Data_record& record) {
    if (!record.is_structure_defined())
        record.expect_structure(false);
    return false;
}

bool Data_source::get_next(Data_record& record) {
    return Data_source::get(record);
}

bool Data_source::set(Data_record& record) {
    modified_ = true;
    record.prewrite();
    if (!record.is_structure_defined())
        record.expect_structure(true);
    const bool written = write_record(record);
    record.postwrite();
    if (change_listener_ != nullptr)
        tell_listener(record);
    return written;
}

int Data_source::set_modified() {
    modified_ = true;
    return 0;
}

void Data_source::tell_listener(const Data_record& record) const {
    change_listener_->record_begins(record.get_position());
    std::string value;
    for (const VV_section& section : record.all_sections())
        for (const VV_base_entry& entry : section.all_entries())
            change_listener_->field_set(entry.key, entry.get_value(value), section.label);
    change_listener_->record_ends();
}

} // namespace TESK
