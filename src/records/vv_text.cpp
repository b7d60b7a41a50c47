#include "records/vv_text.h"

#include "records/data_record.h"

namespace TESK {

bool VV_text::write_record(Data_record& record) {
    record.declare_series();
    text_ = record.text_of_sections();
    record.delete_structure();
    return true;
}

} // namespace TESK
