#include "records/vv_text.h"

#include "records/data_record.h"
#include "records/vv_file.h"

#include <sstream>

namespace TESK {

bool VV_text::get(Data_record& record) {
    record.make_primary_section_current();
    Data_source::get(record);
    record.make_primary_section_current();
    record.preread();
    std::istringstream lines(text_);
    VV_file(nullptr).read_stream(lines, record, false, false);
    record.postread();
    record.delete_structure();
    return true;
}

bool VV_text::write_record(Data_record& record) {
    record.declare_series();
    text_ = record.text_of_sections();
    record.delete_structure();
    return true;
}

} // namespace TESK
