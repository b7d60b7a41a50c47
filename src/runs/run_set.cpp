#include "runs/run_set.h"

#include "model/model_command.h"
#include "platform/command_line.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <map>
#include <thread>

namespace {

constexpr std::string_view first_line = "run set 1";
constexpr std::string_view last_line = "end";
constexpr std::size_t longest_limit = std::size_t{10} * 365 * 24 * 60 * 60; // seconds
constexpr std::array<std::string_view, 3> engine_names = {"local", "slurm", "list"};

// The texts of a set with their keys, in the order of the file.
struct Text_key {
    std::string_view key;
    std::string Run_set::*text;
};
constexpr Text_key text_keys[] = {
    {"project", &Run_set::project_file}, {"folder", &Run_set::folder}, {"model", &Run_set::model}};
struct Slurm_key {
    std::string_view key;
    std::string Slurm_request::*text;
};
constexpr Slurm_key slurm_keys[] = {{"slurm_partition", &Slurm_request::partition},
                                    {"slurm_time", &Slurm_request::time},
                                    {"slurm_memory", &Slurm_request::memory},
                                    {"slurm_options", &Slurm_request::options}};

bool is_usable(std::string_view text) {
    return std::all_of(text.begin(), text.end(), platform::can_be_handed_over);
}

void add(std::string& text, std::string_view key, std::string_view value) {
    text.append(key).append("=").append(value) += '\n';
}

// Takes the next line off the text.
std::string_view take_line(std::string_view& text) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    return line;
}

bool number_from(std::string_view text, std::size_t& number) {
    return std::from_chars(text.data(), text.data() + text.size(), number).ec == std::errc();
}

void set_value(Run_set& set, std::string_view key, std::string_view value) {
    std::size_t number = 0;
    for (const Text_key& text : text_keys)
        if (key == text.key)
            set.*text.text = value;
    for (const Slurm_key& text : slurm_keys)
        if (key == text.key)
            set.slurm.*text.text = value;
    if (key == "report_format")
        set.report_format = value;
    else if (key == "scenario")
        set.scenarios.emplace_back(value);
    else if (key ==
             "engine") // one that this program does not know is taken for a list: nothing starts by itself
        set.engine = static_cast<Engine_kind>(std::find(engine_names.begin(), engine_names.end() - 1, value) -
                                              engine_names.begin());
    else if (key == "at_once" && number_from(value, number))
        set.at_once = number;
    else if (key == "longest_seconds" && number_from(value, number))
        set.longest = std::chrono::seconds(std::min(number, longest_limit));
    else if (key == "stops_at_first_failure")
        set.stops_at_first_failure = value == "true";
}

} // namespace

std::string Run_set::command_line(std::size_t run) const {
    return model_command_line(model, report_format, project_file, scenarios.at(run));
}

std::size_t Run_set::number_at_once() const {
    return at_once > 0 ? at_once : std::max(1U, std::thread::hardware_concurrency());
}

std::string unusable_name(const Run_set& set) {
    for (const Text_key& text : text_keys)
        if (!is_usable(set.*text.text))
            return set.*text.text;
    if (set.report_format && !is_usable(*set.report_format))
        return *set.report_format;
    for (const Slurm_key& text : slurm_keys)
        if (!is_usable(set.slurm.*text.text))
            return set.slurm.*text.text;
    const auto unusable = std::find_if_not(set.scenarios.begin(), set.scenarios.end(),
                                           [](const std::string& name) { return is_usable(name); });
    return unusable == set.scenarios.end() ? "" : *unusable;
}

std::string text_of(const Run_set& set) {
    std::string text(first_line);
    text += '\n';
    for (const Text_key& key : text_keys)
        add(text, key.key, set.*key.text);
    if (set.report_format)
        add(text, "report_format", *set.report_format);
    add(text, "engine", engine_names[static_cast<std::size_t>(set.engine)]);
    add(text, "at_once", std::to_string(set.at_once));
    add(text, "longest_seconds", std::to_string(set.longest.count()));
    add(text, "stops_at_first_failure", set.stops_at_first_failure ? "true" : "false");
    for (const Slurm_key& key : slurm_keys)
        add(text, key.key, set.slurm.*key.text);
    for (const std::string& scenario : set.scenarios)
        add(text, "scenario", scenario);
    text.append(last_line) += '\n';
    return text;
}

std::optional<Run_set> run_set_from_text(std::string_view text) {
    if (take_line(text) != first_line)
        return std::nullopt;
    Run_set set;
    while (!text.empty()) {
        const std::string_view line = take_line(text);
        if (line == last_line)
            return set;
        const std::size_t equals = line.find('=');
        if (equals != std::string_view::npos)
            set_value(set, line.substr(0, equals), line.substr(equals + 1));
    }
    return std::nullopt;
}
