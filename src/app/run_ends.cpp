#include "app/run_ends.h"

#include "editing/bound_control.h"
#include "toolkit/screen_language.h"

Run_ends::Run_ends(TLabel& note) : note_(note) {
    note_.set_text_is_data(true);
    note_.set_visible(false);
    timer_.on_timer = [this] { look(); };
}

void Run_ends::watch(const std::string& name, const std::string& folder, const std::function<void()>& run) {
    Run watched{name, folder, platform::folder_mark(folder), std::make_unique<platform::End_watch>()};
    run();
    if (watched.end->descriptor() < 0)
        return;
    note_.set_text(worded("%1 is running.", screen_text(name)));
    note_.set_mark(Mark::none);
    note_.set_visible(true);
    runs_.push_back(std::move(watched));
    timer_.set_enabled(true);
}

void Run_ends::look() {
    bool has_ended = false;
    for (std::size_t i = 0; i < runs_.size();) {
        const std::optional<int> exit_code = runs_[i].end->take_end();
        if (!exit_code) {
            ++i;
            continue;
        }
        const Run run = std::move(runs_[i]);
        runs_.erase(runs_.begin() + static_cast<std::ptrdiff_t>(i));
        tell(run, *exit_code);
        has_ended = true;
    }
    timer_.set_enabled(!runs_.empty());
    if (has_ended && on_end)
        on_end();
}

void Run_ends::tell(const Run& run, int exit_code) {
    const bool left_output = platform::folder_mark(run.folder) != run.before;
    const std::string name = screen_text(run.name);
    std::string text;
    if (exit_code != 0)
        text = worded("%1 has failed.", name) + ' ' + worded("Exit code: %1", std::to_string(exit_code));
    else
        text = worded(left_output ? "%1 has been run." : "%1 has been run and has left no output.", name);
    note_.set_text(text);
    note_.set_mark(exit_code == 0 && left_output ? Mark::tick : Mark::cross);
}
