#include "app/run_ends.h"

#include "editing/bound_control.h"
#include "foundation/code_page_1252.h"
#include "names/file_name.h"
#include "toolkit/screen_language.h"
#include "trees/common_parameters_directory.h"

Run_ends::Run_ends(TLabel& note) : note_(note) {
    note_.set_text_is_data(true);
    note_.set_visible(false);
    timer_.on_timer = [this] { look(); };
}

Run_ends::Run::Run(const std::string& scenario_file)
    : file(scenario_file), name(TESK::File_name(file.c_str()).get_name(false)),
      folder(TESK::without_extension(TESK::File_name(file.c_str()))), before(platform::folder_mark(folder)) {}

void Run_ends::watch(const std::string& file, const std::function<void()>& run) {
    Run watched(file);
    run();
    if (watched.end->descriptor() < 0)
        return;
    tell(worded("%1 is running.", screen_text(watched.name)), Mark::none);
    runs_.push_back(std::move(watched));
    timer_.set_enabled(true);
}

std::string Run_ends::wait_for(const std::string& file, const std::function<void()>& run) {
    const Run watched(file);
    run();
    const auto [text, is_good] = describe(watched, watched.end->take_end());
    return is_good ? "" : text;
}

void Run_ends::tell(const std::string& text, Mark mark) {
    note_.set_text(text);
    note_.set_mark(mark);
    note_.set_visible(true);
}

std::vector<std::string> Run_ends::take_running(std::vector<std::string>& files) const {
    std::vector<std::string> names;
    for (const Run& run : runs_) {
        const auto is_of_run = [&run](const std::string& file) {
            return TESK::equal_ignoring_case(file, run.file) || TESK::equal_ignoring_case(file, run.folder);
        };
        if (std::erase_if(files, is_of_run) > 0)
            names.push_back(run.name);
    }
    return names;
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
        const auto [text, is_good] = describe(run, exit_code);
        tell(text, is_good ? Mark::tick : Mark::cross);
        has_ended = true;
    }
    timer_.set_enabled(!runs_.empty());
    if (has_ended && on_end)
        on_end();
}

std::pair<std::string, bool> Run_ends::describe(const Run& run, std::optional<int> exit_code) {
    const std::string name = screen_text(run.name);
    if (!exit_code)
        return {worded("%1 has failed.", name), false};
    if (*exit_code != 0)
        return {worded("%1 has failed.", name) + ' ' + worded("Exit code: %1", std::to_string(*exit_code)),
                false};
    const bool left_output = platform::folder_mark(run.folder) != run.before;
    return {worded(left_output ? "%1 has been run." : "%1 has been run and has left no output.", name),
            left_output};
}
