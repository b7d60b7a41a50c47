#include "editing/view_file_button.h"

#include "editing/program_starter.h"

#include "platform/command_line.h"

namespace {

template <class Copy, class Source>
void keep_copy(std::optional<Copy>& copy, const Source* source) {
    copy.reset();
    if (source != nullptr)
        copy.emplace(*source);
}

} // namespace

void TAutoViewFileButton::bind_to(const TESK::File_name* name, const TESK::Date_time_64* moment,
                                  TAutoGem* indicator, const TESK::File_name* program) {
    keep_copy(file, name);
    keep_copy(reference_date_time, moment);
    keep_copy(edit_program, program);
    gem = indicator;
    update_status_indicator();
}

void TAutoViewFileButton::update_status_indicator() {
    if (gem == nullptr || !reference_date_time || !file)
        return;
    if (!file->exists())
        gem->set_status(TESK::Validation_status::error);
    else if (reference_date_time->date_time > file->get_date_time().date_time)
        gem->set_status(TESK::Validation_status::warning);
    else
        gem->set_status(TESK::Validation_status::good);
}

void TAutoViewFileButton::do_click() {
    if (file && edit_program)
        start_or_tell(*edit_program + ' ' + platform::in_quotes(*file), false, show_normal);
    else if (file)
        open_or_tell(*file);
    TButton::do_click();
}
