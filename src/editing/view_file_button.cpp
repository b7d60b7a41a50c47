#include "editing/view_file_button.h"

#include "platform/process.h"

namespace {

constexpr int normal_window = 1;

template <class Copy, class Source>
void keep_copy(std::optional<Copy>& copy, const Source* source) {
    copy.reset();
    if (source != nullptr)
        copy.emplace(*source);
}

} // namespace

void TAutoViewFileButton::bind_to(const TESK::File_name* file, const TESK::Date_time_64* moment,
                                  TAutoGem* gem, const TESK::File_name* program) {
    keep_copy(file_, file);
    keep_copy(reference_date_time_, moment);
    keep_copy(edit_program_, program);
    gem_ = gem;
    update_status_indicator();
}

void TAutoViewFileButton::update_status_indicator() {
    if (gem_ == nullptr || !reference_date_time_ || !file_)
        return;
    if (!file_->exists())
        gem_->set_status(TESK::Validation_status::error);
    else if (reference_date_time_->date_time > file_->get_date_time().date_time)
        gem_->set_status(TESK::Validation_status::warning);
    else
        gem_->set_status(TESK::Validation_status::good);
}

void TAutoViewFileButton::do_click() {
    if (file_ && edit_program_)
        platform::launcher().execute(*edit_program_ + " \"" + *file_ + '"', normal_window);
    else if (file_)
        file_->open();
    TButton::do_click();
}
