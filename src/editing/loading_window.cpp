#include "editing/loading_window.h"

#include "editing/bound_control.h"
#include "editing/page_parts.h"
#include "toolkit/desktop.h"

namespace {

constexpr int steps = 200; // of the bar
constexpr Bounds window_bounds{0, 0, 480, 120};

} // namespace

Loading_window::Loading_window(const std::string& file_name)
    : TForm("loading_window", "Loading a large file"), loading_progressbar([&]() -> TProgressBar& {
          TLabel& name = add<TLabel>("loading_label", screen_text(file_name));
          name.set_text_is_data(true);
          name.set_cut(Cut::middle);
          return add<TProgressBar>("loading_progressbar");
      }()) {
    add<TLabel>("loading_note_label", "Close this window to leave the file as it is.");
    loading_progressbar.set_maximum(steps);
    set_bounds(window_bounds);
    show();
}

bool Loading_window::show_progress(std::size_t read, std::size_t size) {
    const auto position = static_cast<int>(read * steps / (size + 1));
    if (is_stopped_ || current_desktop == nullptr || position == loading_progressbar.position())
        return !is_stopped_;
    loading_progressbar.set_position(position);
    is_stopped_ = !current_desktop->process_messages();
    if (is_stopped_)
        current_desktop->stay_open(); // the other windows
    return !is_stopped_;
}
