// Shows beside the other windows how far the loading of a large file has come, as long as it lives. A user
// who closes it stops the loading.
#pragma once

#include "toolkit/form.h"
#include "toolkit/label.h"

#include <cstddef>
#include <string>

class Loading_window : public TForm {
public:
    // The name in code page 1252.
    explicit Loading_window(const std::string& file_name);

    // Paints. False, and so from then on, when the loading is to stop.
    bool show_progress(std::size_t read, std::size_t size);

    TProgressBar& loading_progressbar;

private:
    bool is_stopped_ = false;
};
