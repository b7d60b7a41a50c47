#include "records/vv_text.h"

#include "records/data_record.h"
#include "records/record_reader.h"

namespace TESK {

bool VV_text::get(Data_record& record) {
    record.begin_reading();
    read_record_text(text_, record, false);
    record.end_reading(keep_structure_);
    return true;
}

bool VV_text::write_record(Data_record& record) {
    record.declare_series();
    if (record.get_preserve_unexpected())
        read_record_text(text_, record, true);
    text_ = record.text_of_sections();
    record.delete_structure();
    return true;
}

} // namespace TESK
