// A button that opens a result file, and tells by a gem whether the file is up to date.
#pragma once

#include "editing/auto_status.h"
#include "names/smart_file_name.h"
#include "toolkit/button.h"

#include <optional>

class TAutoViewFileButton : public TButton {
public:
    using TButton::TButton;

    // The moment is that of what the file is made from. Copies are kept, but for the gem, which outlives the
    // button. Null for no file, no moment, no gem, or for what the desktop has for the file.
    void bind_to(const TESK::File_name* name, const TESK::Date_time_64* moment, TAutoGem* indicator,
                 const TESK::File_name* program);

    // A missing file has a ruby, one that is older than the moment a topaz, and a fresh one an emerald.
    void update_status_indicator();

protected:
    void do_click() override;

private:
    std::optional<TESK::Smart_file_name> file;
    std::optional<TESK::File_name> edit_program;
    std::optional<TESK::Date_time_64> reference_date_time;
    TAutoGem* gem = nullptr;
};
