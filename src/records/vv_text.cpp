#include "records/vv_text.h"

#include "records/data_record.h"

namespace TESK {

void declare_series(Data_record& record) {
    record.make_primary_section_current();
    for (VV_enumerated_section& series : Items_of<VV_enumerated_section>(record.enumerated_sections))
        series.setup_structure(record, true);
    record.make_primary_section_current();
}

std::string text_of_sections(const Data_record& record) {
    std::string text;
    for (const VV_section& section : record.all_sections())
        section.append_text(text);
    return text;
}

bool VV_text::write_record(Data_record& record) {
    declare_series(record);
    text_ = text_of_sections(record);
    record.delete_structure();
    return true;
}

} // namespace TESK
