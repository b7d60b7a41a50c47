#include "app/line_progress.h"

#include "app/scenarios_page.h"
#include "toolkit/desktop.h"
#include "toolkit/screen_language.h"

namespace {

// The text with each "%1", "%2"... replaced.
std::string filled(std::string text, std::initializer_list<std::string> values) {
    char number = '1';
    for (const std::string& value : values) {
        const std::size_t place = text.find({'%', number++});
        if (place != std::string::npos)
            text.replace(place, 2, value);
    }
    return text;
}

} // namespace

Line_progress::Line_progress(Scenarios_page& page, std::size_t steps, Closing closing)
    : Line_progress(page.sim_run_progressbar, page.sim_run_progress_note, steps, closing) {}

Line_progress::Line_progress(TProgressBar& bar, TLabel& note, std::size_t steps, Closing closing)
    : bar_(bar), note_(note), closing_(closing), waiting_([this] { goes_on(); }) {
    bar_.set_maximum(static_cast<int>(steps));
    bar_.set_position(0);
    bar_.set_visible(true);
}

Line_progress::~Line_progress() {
    bar_.set_visible(false);
    note_.set_text("");
    note_.set_visible(false);
}

void Line_progress::show(std::size_t number, std::size_t total, const std::string& file_name) {
    const std::string name = file_name.substr(0, file_name.rfind('.'));
    note_.set_text(
        filled(worded("%1 of %2, %3"), {std::to_string(number), std::to_string(total), screen_text(name)}));
    note_.set_visible(true);
}

void Line_progress::step() {
    bar_.step();
}

void Line_progress::set_position(std::size_t position) {
    bar_.set_position(static_cast<int>(position));
}

bool Line_progress::goes_on() {
    if (is_asking_ || paint_pending() || is_stopped_)
        return !is_stopped_;
    is_asking_ = true;
    is_stopped_ = closing_ == Closing::stops ||
                  message_box("Stop after the scenario that runs now? The others keep their check marks.",
                              "Stop the runs", Button_set::yes_no) == Modal_result::yes;
    is_asking_ = false;
    if (closing_ == Closing::asks)
        current_desktop->stay_open(); // the marks would go with the window
    return !is_stopped_;
}
