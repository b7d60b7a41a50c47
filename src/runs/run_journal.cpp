#include "runs/run_journal.h"

#include "platform/file_stream.h"
#include "platform/files.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cstdio>
#include <utility>

namespace {

constexpr const char* journal_file = "\\journal.txt";
constexpr std::string_view line_mark = " .";
constexpr std::size_t moment_length = 24;
constexpr double longest_run = 1e9; // seconds
constexpr std::size_t most_runs = 10'000'000;
constexpr Moment day_length = Moment{24} * 60 * 60 * 1000;

using Outcome = Run_record::Outcome;
struct Outcome_name {
    Outcome outcome;
    std::string_view name;
};
constexpr Outcome_name outcome_names[] = {{Outcome::exited, "exit"},           {Outcome::signalled, "signal"},
                                          {Outcome::not_started, "unstarted"}, {Outcome::stopped, "stopped"},
                                          {Outcome::too_slow, "slow"},         {Outcome::lost, "lost"}};

// The number in the digits at a place; negative when they are none.
int digits(std::string_view text, std::size_t place, std::size_t count) {
    int number = 0;
    for (const char c : text.substr(place, count)) {
        if (c < '0' || c > '9')
            return -1;
        number = number * 10 + (c - '0');
    }
    return number;
}

// 0 for a text that is none.
Moment moment_from_text(std::string_view text) {
    if (text.size() != moment_length || text.back() != 'Z')
        return 0;
    const int parts[] = {digits(text, 0, 4),  digits(text, 5, 2),  digits(text, 8, 2), digits(text, 11, 2),
                         digits(text, 14, 2), digits(text, 17, 2), digits(text, 20, 3)};
    if (std::any_of(std::begin(parts), std::end(parts), [](int part) { return part < 0; }))
        return 0;
    const std::chrono::year_month_day day{std::chrono::year{parts[0]},
                                          std::chrono::month{static_cast<unsigned>(parts[1])},
                                          std::chrono::day{static_cast<unsigned>(parts[2])}};
    if (!day.ok())
        return 0;
    const Moment days = std::chrono::sys_days{day}.time_since_epoch().count();
    return days * day_length + ((parts[3] * Moment{60} + parts[4]) * 60 + parts[5]) * 1000 + parts[6];
}

template <class Number>
bool number_from(std::string_view text, Number& number) {
    const char* const end = text.data() + text.size();
    const auto [stopped, error] = std::from_chars(text.data(), end, number);
    return error == std::errc() && stopped == end;
}

} // namespace

Moment moment_now() {
    return std::chrono::duration_cast<std::chrono::milliseconds>(
               std::chrono::system_clock::now().time_since_epoch())
        .count();
}

std::string text_of_moment(Moment moment) {
    const Moment days = (moment - (moment % day_length + day_length) % day_length) / day_length;
    const auto rest = static_cast<int>(moment - days * day_length);
    const std::chrono::year_month_day day{std::chrono::sys_days{std::chrono::days{days}}};
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), "%04d-%02u-%02uT%02d:%02d:%02d.%03dZ",
                  static_cast<int>(day.year()), static_cast<unsigned>(day.month()),
                  static_cast<unsigned>(day.day()), rest / 3'600'000, rest / 60'000 % 60, rest / 1000 % 60,
                  rest % 1000);
    return text.data();
}

// The words of a line, one after the other.
class Run_journal::Words {
public:
    explicit Words(std::string_view text) : rest_(text) {}

    std::string_view next() {
        const std::size_t end = std::min(rest_.find(' '), rest_.size());
        const std::string_view word = rest_.substr(0, end);
        rest_.remove_prefix(std::min(end + 1, rest_.size()));
        return word;
    }
    std::string_view rest() const { return rest_; }

private:
    std::string_view rest_;
};

Run_journal::Run_journal(const std::string& folder, std::size_t runs) : folder_(folder), runs_(runs) {}

bool Run_journal::update() {
    changed_.clear();
    bool has_news = read_on();
    const auto owner = owner_;
    is_abandoned_ = owner && platform::presence_of(*owner) == platform::Process_presence::gone;
    if (is_abandoned_) {
        // It may have written its last lines after they were read.
        has_news = read_on() || has_news;
        is_abandoned_ = owner_ == owner;
    }
    return look_after_workers() || has_news;
}

// Finds the runs whose process has gone. True when there are new ones.
bool Run_journal::look_after_workers() {
    std::vector<std::size_t> gone;
    for (const auto& [run, worker] : workers_)
        if (!runs_[run].is_abandoned && platform::presence_of(worker) == platform::Process_presence::gone)
            gone.push_back(run);
    if (gone.empty())
        return false;
    read_on(); // it may have written its last line after it was read
    for (const std::size_t run : gone)
        if (runs_[run].outcome == Outcome::running) {
            runs_[run].is_abandoned = true;
            changed_.push_back(run);
        }
    return true;
}

std::string Run_journal::elsewhere(std::size_t run) const {
    const auto worker = workers_.find(run);
    return worker != workers_.end() &&
                   platform::presence_of(worker->second) == platform::Process_presence::elsewhere
               ? worker->second.host
               : "";
}

bool Run_journal::read_on() {
    const std::string name = folder_ + journal_file;
    platform::File_stream file(name, false);
    failure_.clear();
    const bool is_absent = !file.good() && !platform::exists(name) && !platform::is_out_of_reach(name);
    const std::int64_t size = file.good() ? file.size() : is_absent ? 0 : -1;
    if (size < 0) {
        failure_ = "The journal " + name + " cannot be read.";
        return false;
    }
    if (size < place_)
        forget_all();
    if (size <= place_)
        return false;
    file.seek(place_);
    std::string bytes(std::size_t{1} << 16, '\0');
    while (const std::size_t count = file.read(bytes.data(), bytes.size())) {
        place_ += static_cast<std::int64_t>(count);
        take({bytes.data(), count});
    }
    return true;
}

void Run_journal::take(std::string_view bytes) {
    for (std::size_t end = bytes.find('\n'); end != std::string_view::npos; end = bytes.find('\n')) {
        if (rest_.empty()) {
            take_line(bytes.substr(0, end));
        } else {
            take_line(rest_.append(bytes.substr(0, end)));
            rest_.clear();
        }
        bytes.remove_prefix(end + 1);
    }
    rest_.append(bytes);
}

// The journal is another one than before: somebody has replaced the folder.
void Run_journal::forget_all() {
    std::fill(runs_.begin(), runs_.end(), Run_record());
    reasons_.clear();
    workers_.clear();
    owner_.reset();
    job_.reset();
    owned_since_ = 0;
    ended_since_ = 0;
    place_ = 0;
    rest_.clear();
}

void Run_journal::take_line(std::string_view line) {
    if (!line.ends_with(line_mark))
        return;
    line.remove_suffix(line_mark.size());
    Words words(line);
    const std::string_view kind = words.next();
    const Moment time = moment_from_text(words.next());
    if (time == 0)
        return;
    if (kind == "owner")
        return take_owner(time, words.rest());
    if (kind == "left") {
        words.next();
        if (owner_ == platform::identity_from_text(words.rest()))
            owner_.reset();
        return;
    }
    if (kind == "job")
        return take_job(time, words);
    if (kind == "cancel" || kind == "closed")
        return take_job_end(kind, words.next());
    std::size_t run = 0;
    if (!number_from(words.next(), run) || run >= runs_.size())
        return;
    if (kind == "start") {
        runs_[run] = Run_record();
        runs_[run].outcome = Outcome::running;
        runs_[run].started = time;
        changed_.push_back(run);
        workers_.erase(run);
        if (const auto worker = platform::identity_from_text(words.rest()))
            workers_.emplace(run, *worker);
    } else if (kind == "end") {
        take_end(run, time, words);
    }
}

void Run_journal::take_end(std::size_t run, Moment time, Words& words) {
    const std::string_view name = words.next();
    const auto found = std::find_if(std::begin(outcome_names), std::end(outcome_names),
                                    [&](const Outcome_name& outcome) { return outcome.name == name; });
    const std::string_view code = words.next();
    Run_record record = runs_[run];
    if (found == std::end(outcome_names) || !number_from(words.next(), record.seconds) ||
        !(record.seconds >= 0 && record.seconds < longest_run))
        return;
    record.outcome = found->outcome;
    // A run that has ended is not lost, whoever found out what first.
    if (record.outcome == Outcome::lost && runs_[run].has_ended())
        return;
    record.code = 0;
    if (record.outcome == Outcome::lost)
        reasons_[run] = code;
    else if (!number_from(code, record.code))
        return;
    record.left_output = words.next() == "output";
    record.ended = time;
    if (record.started == 0)
        record.started = time - static_cast<Moment>(record.seconds * 1000);
    record.is_abandoned = false;
    runs_[run] = record;
    workers_.erase(run);
    changed_.push_back(run);
    ++ended_since_;
}

void Run_journal::take_owner(Moment time, std::string_view identity) {
    const auto process = platform::identity_from_text(identity);
    if (!process || owner_)
        return;
    owner_ = process;
    owned_since_ = time;
    ended_since_ = 0;
}

void Run_journal::take_job(Moment time, Words& words) {
    Scheduler_job job;
    job.number = words.next();
    if (!number_from(words.next(), job.tasks) || !number_from(words.next(), job.per_task) ||
        job.per_task == 0 || job.per_task > most_runs || job.tasks > most_runs)
        return;
    job.list = words.next();
    job_ = std::move(job);
    owned_since_ = time;
    ended_since_ = 0;
}

void Run_journal::take_job_end(std::string_view kind, std::string_view number) {
    if (!job_ || job_->number != number)
        return;
    if (kind == "closed")
        job_.reset();
    else
        job_->is_cancelled = true;
}

std::vector<std::size_t> Run_journal::left() const {
    std::vector<std::size_t> left;
    for (std::size_t run = 0; run < runs_.size(); ++run)
        if (runs_[run].is_left())
            left.push_back(run);
    return left;
}

std::string Run_journal::reason(std::size_t run) const {
    const auto found = reasons_.find(run);
    return found == reasons_.end() ? "" : found->second;
}

Journal_writer::Journal_writer(const std::string& folder)
    : file_(folder + journal_file), state_(file_.ready()) {}

void Journal_writer::own() {
    add("owner " + text_of_moment(moment_now()) + ' ' + text_of(platform::own_identity()));
}

void Journal_writer::own_job(const Scheduler_job& job) {
    add("job " + text_of_moment(moment_now()) + ' ' + job.number + ' ' + std::to_string(job.tasks) + ' ' +
        std::to_string(job.per_task) + ' ' + job.list);
}

void Journal_writer::cancel_job(const std::string& number) {
    add("cancel " + text_of_moment(moment_now()) + ' ' + number);
}

void Journal_writer::close_job(const std::string& number) {
    add("closed " + text_of_moment(moment_now()) + ' ' + number);
}

void Journal_writer::leave(std::string_view reason, const platform::Process_identity& owner) {
    add("left " + text_of_moment(moment_now()) + ' ' + std::string(reason) + ' ' + text_of(owner));
}

void Journal_writer::start(std::size_t run) {
    add("start " + text_of_moment(moment_now()) + ' ' + std::to_string(run));
}

void Journal_writer::end(std::size_t run, const Run_record& record, const std::string& reason) {
    const auto name =
        std::find_if(std::begin(outcome_names), std::end(outcome_names),
                     [&](const Outcome_name& other) { return other.outcome == record.outcome; });
    std::array<char, 32> seconds{};
    std::snprintf(seconds.data(), seconds.size(), "%d.%03d", static_cast<int>(record.seconds),
                  static_cast<int>(record.seconds * 1000) % 1000);
    add("end " + text_of_moment(moment_now()) + ' ' + std::to_string(run) + ' ' + std::string(name->name) +
        ' ' + (record.outcome == Outcome::lost ? reason : std::to_string(record.code)) + ' ' +
        seconds.data() + (record.left_output ? " output" : " nothing"));
}

void Journal_writer::add(std::string line) {
    unwritten_.push_back(std::move(line.append(line_mark)));
    flush();
}

bool Journal_writer::flush() {
    while (!unwritten_.empty()) {
        state_ = file_.append(unwritten_.front());
        if (!state_.ok())
            return false;
        unwritten_.pop_front();
    }
    return true;
}

bool is_owned(const Run_journal& journal) {
    const auto has_ended = [](const Run_record& run) { return run.has_ended() || run.is_abandoned; };
    // Nobody says that a list is over.
    const bool has_job =
        journal.job() &&
        !(journal.job()->is_list() && std::all_of(journal.runs().begin(), journal.runs().end(), has_ended));
    return has_job || (journal.owner() && !journal.is_abandoned());
}

std::string reason_not_claimed(const std::string& folder, std::size_t runs, Journal_writer& writer) {
    if (claim_set(folder, runs, writer))
        return "";
    if (!writer.state().ok())
        return writer.state().reason;
    Run_journal journal(folder, runs);
    journal.update();
    return journal.failure().empty() ? "Another program has this set run." : journal.failure();
}

bool claim_set(const std::string& folder, std::size_t runs, Journal_writer& writer) {
    Run_journal journal(folder, runs);
    journal.update();
    if (!journal.failure().empty())
        return false;
    const bool is_list = journal.job() && journal.job()->is_list();
    if (is_owned(journal) && !is_list)
        return false;
    if (is_list)
        writer.close_job(journal.job()->number);
    if (journal.owner())
        writer.leave("gone", *journal.owner());
    writer.own();
    journal.update();
    return journal.owner() == platform::own_identity() && writer.state().ok();
}
