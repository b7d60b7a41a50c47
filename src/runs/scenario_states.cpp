#include "runs/scenario_states.h"

#include "foundation/code_page_1252.h"
#include "names/file_name.h"
#include "platform/files.h"
#include "records/vv_file.h"
#include "runs/run_folders.h"
#include "runs/run_progress.h"
#include "trees/scenario_directory.h"

#include <algorithm>
#include <string_view>

namespace {

constexpr const char* state_words[] = {"never run", "waiting", "running",     "done",
                                       "failed",    "stopped", "out of date", "unknown"};

constexpr std::string_view parameter_extensions[] = {"sil", "loc", "xeb",           "rot",
                                                     "mgt", "rcl", "wtb",           "crp",
                                                     "op",  "fmt", "tvs_biomatter", "tvs_output_options"};

// By how much the clocks of this machine, of the one that ran a scenario and of the disk's may differ.
constexpr Moment clock_slack = 5000;
// A file that was changed so soon after a run had begun by another clock may have been so before: disks keep
// full seconds, some of them.
constexpr Moment start_slack = 1000;
constexpr platform::Change_time nanoseconds_of_one = 1'000'000;

std::string folded(std::string_view text) {
    std::string result(text);
    std::transform(result.begin(), result.end(), result.begin(), TESK::fold_case);
    return result;
}

bool is_parameter_file(std::string_view value) {
    const std::size_t point = value.rfind('.');
    if (value.empty() || value.front() == '<' || point == std::string_view::npos)
        return false;
    const std::string_view extension = value.substr(point + 1);
    return std::any_of(std::begin(parameter_extensions), std::end(parameter_extensions),
                       [&](std::string_view other) { return TESK::equal_ignoring_case(extension, other); });
}

Moment moment_of(platform::Change_time time) {
    return time / nanoseconds_of_one;
}

} // namespace

const char* word_for(Scenario_state state) {
    return state_words[static_cast<std::size_t>(state)];
}

std::vector<std::string> parameter_files_in(std::string_view record_text) {
    std::vector<std::string> files;
    while (!record_text.empty()) {
        const std::size_t end = std::min(record_text.find('\n'), record_text.size());
        std::string_view line = record_text.substr(0, end);
        record_text.remove_prefix(std::min(end + 1, record_text.size()));
        line = line.substr(0, line.find_last_not_of("\r ") + 1);
        const std::size_t equals = line.find('=');
        if (equals == std::string_view::npos)
            continue;
        std::string file(line.substr(equals + 1));
        if (is_parameter_file(file) && std::find(files.begin(), files.end(), file) == files.end())
            files.push_back(std::move(file));
    }
    return files;
}

struct Scenario_states::Set {
    std::string folder;
    Run_journal journal;
    bool is_readable = true; // whether it is known what was asked
    bool is_owned = false;
    bool is_at_work = false; // a list that was handed out may never be
};

Scenario_states::Scenario_states(std::string project_folder, std::string runs_folder)
    : project_folder_(std::move(project_folder)), runs_folder_(std::move(runs_folder)) {}

Scenario_states::~Scenario_states() = default;

void Scenario_states::refresh() {
    times_.clear();
    failures_.clear();
    platform::Write_result failure;
    std::vector<std::string> folders = list_run_sets(runs_folder_, &failure);
    is_folder_readable_ = failure.ok();
    if (is_folder_readable_) {
        std::reverse(folders.begin(), folders.end());
        read_sets(folders);
    } else {
        failures_.push_back("The folder of the runs " + runs_folder_ + " cannot be read: " + failure.reason);
    }
    for (const auto& set : sets_) {
        set->journal.update();
        set->is_owned = is_owned(set->journal);
        set->is_at_work = set->is_owned && !(set->journal.job() && set->journal.job()->is_list());
        if (!is_folder_readable_)
            continue;
        if (!set->is_readable)
            failures_.push_back(unreadable_run_set(set->folder));
        else if (!set->journal.failure().empty())
            failures_.push_back(set->journal.failure());
    }
}

void Scenario_states::read_sets(const std::vector<std::string>& folders) {
    std::size_t known = 0;
    while (known < sets_.size() && known < folders.size() && sets_[known]->folder == folders[known] &&
           (sets_[known]->is_readable || !read_run_set(folders[known])))
        ++known;
    // Sets are added at the end; where one has been deleted, or can be read at last, all are read anew.
    if (known < sets_.size()) {
        sets_.clear();
        runs_.clear();
        known = 0;
    }
    for (; known < folders.size(); ++known)
        add_set(folders[known]);
}

void Scenario_states::add_set(const std::string& folder) {
    const std::optional<Run_set> asked = read_run_set(folder);
    const std::size_t count = asked ? asked->scenarios.size() : 0;
    const std::string folder_then = asked ? folded(asked->folder) + '\\' : "";
    const std::string folder_now =
        folded(project_folder_.substr(0, project_folder_.find_last_not_of("\\/") + 1)) + '\\';
    for (std::size_t run = 0; run < count; ++run) {
        std::string name = folded(asked->scenarios[run]);
        // A project that was moved, or is reached by another name, keeps what is known of its scenarios.
        if (name.starts_with(folder_then))
            name.replace(0, folder_then.size(), folder_now);
        runs_[name].push_back({sets_.size(), run});
    }
    sets_.push_back(std::make_unique<Set>(Set{folder, Run_journal(folder, count), asked.has_value()}));
}

const std::string* Scenario_states::doubt_since(std::size_t set, bool only_at_work) const {
    if (failures_.empty())
        return nullptr;
    if (!is_folder_readable_)
        return &failures_.front();
    std::size_t last = failures_.size();
    for (std::size_t newer = sets_.size(); newer > set; --newer) {
        const Set& one = *sets_[newer - 1];
        const bool is_known = one.journal.failure().empty();
        if (!one.is_readable && (!only_at_work || !is_known || one.is_at_work))
            return &failures_[last - 1];
        last -= one.is_readable && is_known ? 0 : 1;
    }
    return nullptr;
}

Busy_scenarios Scenario_states::take_busy(std::vector<std::string>& scenarios) const {
    Busy_scenarios busy;
    std::erase_if(scenarios, [&](const std::string& scenario) {
        Scenario_status status;
        take_last_run(scenario, status, true);
        const bool is_unknown = status.state == Scenario_state::unknown;
        const bool is_running =
            status.state == Scenario_state::waiting || status.state == Scenario_state::running;
        if (is_unknown)
            busy.doubt = status.reason;
        if (is_unknown || is_running)
            (is_unknown ? busy.unknown : busy.running)
                .push_back(TESK::File_name(scenario.c_str()).get_name(false));
        return is_unknown || is_running;
    });
    return busy;
}

void Busy_scenarios::add(const Busy_scenarios& others) {
    running.insert(running.end(), others.running.begin(), others.running.end());
    unknown.insert(unknown.end(), others.unknown.begin(), others.unknown.end());
    if (!others.doubt.empty())
        doubt = others.doubt;
}

Scenario_status Scenario_states::status_of(const std::string& scenario_file) {
    Scenario_status status;
    take_last_run(scenario_file, status);
    if (status.state == Scenario_state::waiting || status.state == Scenario_state::running ||
        status.state == Scenario_state::unknown)
        return status;
    const bool is_judged_by_files =
        status.state == Scenario_state::never_run || status.state == Scenario_state::done ||
        // Started by other means since its end, it may have run well.
        (status.record.has_ended() &&
         moment_of(platform::folder_mark(output_folder_of(TESK::File_name(scenario_file.c_str()))).newest) >
             status.record.ended + clock_slack);
    if (is_judged_by_files)
        judge_by_files(scenario_file, status);
    return status;
}

// By the journals alone: the set that is being run, else the one that began the scenario last.
void Scenario_states::take_last_run(const std::string& scenario_file, Scenario_status& status,
                                    bool only_at_work) const {
    static const std::vector<Place> none;
    const auto found = runs_.find(folded(scenario_file));
    std::size_t told_by = 0; // the place behind that of the set
    for (const Place& place : found == runs_.end() ? none : found->second) {
        const Set& set = *sets_[place.set];
        if (!set.journal.failure().empty()) {
            status = {Scenario_state::unknown, set.journal.failure(), set.folder, place.run, {}};
            told_by = place.set + 1;
            continue;
        }
        const Run_record& record = set.journal.runs()[place.run];
        const Run_state state = state_of(record, set.is_owned);
        const bool is_at_work = set.is_at_work && record.is_left() && state != Run_state::stopped;
        if (!is_at_work && (state == Run_state::waiting || record.started < status.record.started))
            continue;
        status.record = record;
        status.set_folder = set.folder;
        status.run = place.run;
        told_by = place.set + 1;
        switch (state) {
        case Run_state::waiting: status.state = Scenario_state::waiting; break;
        case Run_state::running: status.state = Scenario_state::running; break;
        case Run_state::done: status.state = Scenario_state::done; break;
        case Run_state::failed: status.state = Scenario_state::failed; break;
        case Run_state::stopped:
        case Run_state::crashed: status.state = Scenario_state::stopped; break;
        }
        const bool is_plain = state == Run_state::done || state == Run_state::stopped;
        status.reason = is_plain ? "" : describe_run(set.journal, place.run, set.is_owned);
        if (is_at_work)
            return;
    }
    if (const std::string* doubt = doubt_since(told_by, only_at_work); doubt != nullptr) {
        status.state = Scenario_state::unknown;
        status.reason = *doubt;
    }
}

void Scenario_states::judge_by_files(const std::string& scenario_file, Scenario_status& status) {
    status.reason.clear();
    status.state = Scenario_state::never_run;
    const std::string output_folder = output_folder_of(TESK::File_name(scenario_file.c_str()));
    const auto output_folder_time = platform::change_time(output_folder);
    const auto record_time = platform::change_time(scenario_file);
    const auto doubt = [&] {
        status.state = Scenario_state::unknown;
        status.reason = "The folder " + output_folder + " cannot be read.";
    };
    if (!output_folder_time && platform::is_out_of_reach(output_folder))
        doubt();
    if (!output_folder_time || !record_time)
        return;
    const std::vector<std::string>& files = files_named_by(scenario_file, *record_time);
    platform::Change_time newest = *record_time;
    std::string newest_file = scenario_file;
    for (const std::string& file : files)
        if (const platform::Change_time time = time_of(file); time > newest) {
            newest = time;
            newest_file = file;
        }
    // Where the journal tells enough, the files of the output are not looked at one by one.
    const bool is_clear = status.record.is_done() &&
                          moment_of(newest) < status.record.started - clock_slack &&
                          moment_of(*output_folder_time) < status.record.ended + clock_slack;
    const platform::Folder_mark output =
        is_clear ? platform::Folder_mark() : platform::folder_mark(output_folder);
    if (!is_clear && !output.is_whole)
        return doubt();
    if (!is_clear && output.files == 0)
        return;
    status.state = Scenario_state::done;
    if (is_clear)
        return;
    if (moment_of(output.newest) > status.record.ended + clock_slack)
        status.output_time = moment_of(output.newest);
    const bool is_of_last_run =
        status.record.is_done() && moment_of(output.newest) <= status.record.ended + clock_slack;
    if (newest > output.newest)
        status.reason = newest_file + " is newer than the output";
    else if (is_of_last_run && moment_of(newest) > status.record.started + start_slack)
        status.reason = newest_file + " was changed after the run had begun";
    if (!status.reason.empty())
        status.state = Scenario_state::out_of_date;
}

const std::vector<std::string>& Scenario_states::files_named_by(const std::string& scenario_file,
                                                                platform::Change_time record_time) {
    Named_files& named = named_[scenario_file];
    if (named.record_time == record_time)
        return named.files;
    named.record_time = record_time;
    named.files =
        parameter_files_in(platform::read_file(scenario_file, TESK::VV_file::largest_file).contents);
    for (std::string& file : named.files) {
        const bool is_relative =
            file.front() != '\\' && file.front() != '/' && file.find(':') == std::string::npos;
        if (is_relative)
            file = project_folder_ + '\\' + file;
    }
    return named.files;
}

platform::Change_time Scenario_states::time_of(const std::string& parameter_file) {
    const auto [place, is_new] = times_.try_emplace(parameter_file, 0);
    if (is_new)
        place->second = platform::change_time(parameter_file).value_or(0);
    return place->second;
}

Busy_scenarios busy_among(Scenario_states& states, std::vector<std::string> scenarios) {
    states.refresh();
    return states.take_busy(scenarios);
}

std::string enumerated(const std::vector<std::string>& names) {
    constexpr std::size_t most_named = 10;
    std::string text;
    for (std::size_t one = 0; one < names.size() && one < most_named; ++one)
        text += (one > 0 ? ", " : "") + names[one];
    return names.size() > most_named ? text + ", ..." : text;
}
