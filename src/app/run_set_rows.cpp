#include "app/run_set_rows.h"

#include "app/state_pictures.h"
#include "editing/bound_control.h"
#include "names/file_name.h"
#include "operations/scenario_overview.h"
#include "runs/run_folders.h"
#include "toolkit/screen_language.h"

#include <algorithm>
#include <cmath>
#include <ctime>
#include <numeric>

namespace {

enum Run_column { state_column, scenario_column, started_column, duration_column, end_column };
enum Set_column { asked_column, scenarios_column, progress_column };

constexpr double minute = 60;
constexpr double hour = 3600;
constexpr Moment milliseconds = 1000;

} // namespace

std::string local_time_text(Moment moment) {
    if (moment == 0)
        return {};
    const std::time_t seconds = moment / milliseconds;
    std::tm parts{};
    localtime_r(&seconds, &parts);
    char text[32];
    std::strftime(text, sizeof text, "%Y-%m-%d %H:%M:%S", &parts);
    return text;
}

std::string duration_text(double seconds) {
    const auto in = [](const char* unit, double value) {
        return worded(unit, std::to_string(static_cast<long>(value)));
    };
    if (seconds < 10) {
        const long tenths = static_cast<long>(seconds * 10);
        return worded("%1 s", std::to_string(tenths / 10) + '.' + std::to_string(tenths % 10));
    }
    if (seconds < minute)
        return in("%1 s", seconds);
    if (seconds < hour)
        return in("%1 min", seconds / minute) + ' ' + in("%1 s", std::fmod(seconds, minute));
    return in("%1 h", seconds / hour) + ' ' + in("%1 min", std::fmod(seconds, hour) / minute);
}

void Known_run_set::read() {
    if (std::exchange(is_read_, true))
        return;
    set_ = read_run_set(folder_);
    if (set_)
        journal_ = std::make_unique<Run_journal>(folder_, set_->scenarios.size());
    refresh();
}

bool Known_run_set::refresh() {
    if (!is_read_ || !journal_)
        return false;
    const bool has_news = journal_->update();
    const bool was_at_work = std::exchange(is_at_work_, !is_handed_out() && is_owned(*journal_));
    return has_news || was_at_work != is_at_work_;
}

bool Known_run_set::is_readable() {
    return journal() != nullptr && journal_->failure().empty();
}

const Run_set* Known_run_set::set() {
    read();
    return set_ ? &*set_ : nullptr;
}

Run_journal* Known_run_set::journal() {
    read();
    return journal_.get();
}

bool Known_run_set::is_at_work() {
    read();
    return is_at_work_;
}

bool Known_run_set::is_handed_out() {
    return journal() != nullptr && journal_->job() && journal_->job()->is_list();
}

bool Known_run_set::may_change() {
    return is_at_work() || is_handed_out();
}

Run_progress Known_run_set::progress() {
    return journal() == nullptr ? Run_progress() : progress_of(*journal_, may_change(), moment_now());
}

std::string Known_run_set::time() {
    const Moment since = journal() == nullptr ? 0 : journal()->owned_since();
    return since == 0 ? screen_text(TESK::File_name(folder_.c_str()).get_name(true)) : local_time_text(since);
}

std::vector<Table_column> Run_set_rows::columns() {
    return {{"asked", "Last begun", 24, Align::start, true, false},
            {"scenarios", "Scenarios", 10, Align::end, true, false},
            {"progress", "How far", 44, Align::start, true, false}};
}

Table_cell Run_set_rows::cell(int row, int column) const {
    Known_run_set& set = *sets[static_cast<std::size_t>(row)];
    switch (column) {
    case asked_column: return {.text = set.time()};
    case scenarios_column: return {.text = set.set() ? std::to_string(set.set()->scenarios.size()) : ""};
    default: break;
    }
    if (!set.is_readable())
        return {.text =
                    worded("This is no run set that can be read.") +
                    (set.journal() == nullptr ? "" : ' ' + worded(screen_text(set.journal()->failure())))};
    const Run_progress progress = set.progress();
    return {.text = worded_lines(describe(progress), ", "), .picture = picture_of(state_of(progress))};
}

std::vector<Table_column> Run_rows::columns() {
    return {{"state", "State", 15},
            {"scenario", "Scenario", 30},
            {"started", "Started", 22},
            {"duration", "Duration", 12, Align::end},
            {"end", "Exit code or signal", 30}};
}

void Run_rows::show(Known_run_set* set) {
    set_ = set;
    order_.resize(set && set->is_readable() ? set->set()->scenarios.size() : 0);
    std::iota(order_.begin(), order_.end(), std::size_t(0));
    places_ = order_;
}

std::string Run_rows::scenario_name(std::size_t run) const {
    return screen_text(TESK::File_name(set_->set()->scenarios[run].c_str()).get_name(false));
}

Table_cell Run_rows::cell(int row, int column) const {
    const std::size_t run = run_of(row);
    const Run_record& record = set_->journal()->runs()[run];
    switch (column) {
    case state_column: {
        const Run_state state = state_of(record, set_->may_change());
        return {.text = worded(word_for(state)), .picture = picture_of(state)};
    }
    case scenario_column: return {.text = scenario_name(run)};
    case started_column: return {.text = local_time_text(record.started)};
    case duration_column:
        if (record.outcome == Run_record::Outcome::running && set_->may_change())
            return {.text = duration_text(static_cast<double>(moment_now() - record.started) / milliseconds)};
        return {.text = record.has_ended() && record.started != 0 ? duration_text(record.seconds) : ""};
    default:
        return {.text = worded(record.is_done() ? "exit code 0"
                                                : describe_run(*set_->journal(), run, set_->may_change()))};
    }
}

void Run_rows::sort(int column, bool down) {
    if (set_ == nullptr || set_->journal() == nullptr)
        return;
    const bool is_owned_now = set_->may_change();
    const auto& runs = set_->journal()->runs();
    // What each run is sorted by: a number, and behind it a text.
    std::vector<std::pair<double, std::string>> keys(order_.size());
    for (std::size_t run = 0; run < keys.size(); ++run) {
        const Run_record& record = runs[run];
        switch (column) {
        case state_column: keys[run].first = static_cast<double>(state_of(record, is_owned_now)); break;
        case started_column: keys[run].first = static_cast<double>(record.started); break;
        case duration_column: keys[run].first = record.seconds; break;
        case end_column: keys[run].second = describe_end(record); break;
        default: break;
        }
    }
    std::iota(order_.begin(), order_.end(), std::size_t(0));
    const std::vector<std::string>& names = set_->set()->scenarios;
    std::stable_sort(order_.begin(), order_.end(), [&](std::size_t a, std::size_t b) {
        if (column == scenario_column)
            return comes_before(names[a], names[b]);
        return keys[a] < keys[b];
    });
    if (down)
        std::reverse(order_.begin(), order_.end());
    for (std::size_t row = 0; row < order_.size(); ++row)
        places_[order_[row]] = row;
}
