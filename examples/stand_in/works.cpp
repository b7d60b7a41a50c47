#include "works.h"

#include "platform/files.h"
#include "platform/host_names.h"
#include "platform/listing.h"
#include "records/vv_file.h"
#include "work_support.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>

namespace {

// Prints the tables in a folder; gives how many there are.
int print_tables(const TESK::Directory_name& folder, std::ostream& out) {
    constexpr std::size_t largest_table = std::size_t{1} << 20;
    int count = 0;
    for (const platform::Folder_entry& entry : platform::list_folder(folder, "*.xeb")) {
        const std::string name = folder + "\\" + entry.name;
        const platform::Read_result table = platform::read_file(name, largest_table);
        if (!table.ok())
            continue;
        ++count;
        out << shown(entry.name) << '\n';
        std::size_t end = 0;
        for (std::size_t start = 0; start < table.contents.size(); start = end + 1) {
            end = std::min(table.contents.find('\n', start), table.contents.size());
            out << "  " << shown(std::string_view(table.contents).substr(start, end - start)) << '\n';
        }
    }
    return count;
}

std::optional<double> number_of(std::string_view text) {
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    const bool is_all = error == std::errc() && end == text.data() + text.size() && std::isfinite(value);
    return is_all ? std::optional(value) : std::nullopt;
}

// Adds what becomes of one value of the active table. A number becomes the difference; of texts that differ
// both stand.
void add_difference(const std::string& key, const std::string& active, const std::string& other,
                    Record_text& text) {
    const std::optional<double> a = number_of(active);
    const std::optional<double> b = number_of(other);
    if (a && b)
        text.add_number(key, *a - *b);
    else
        text.add(key, active == other ? active : active + " <> " + other);
}

} // namespace

int edit_scenario(const Arguments& arguments, std::ostream& out) {
    if (arguments.empty())
        return misused("scenario", out);
    const TVN_filename file(platform::full_name(arguments.back()).c_str());
    Tilverra_scenario scenario;
    if (platform::exists(file)) {
        if (!read(file, scenario, out))
            return exit_failed;
        out << "Would edit " << shown(file) << ": " << shown(scenario.description) << '\n';
        return exit_done;
    }
    TESK::VV_file new_file(file.c_str());
    new_file.set(scenario);
    if (file.empty() || !new_file.get_last_write().ok())
        return failed("Cannot make " + shown(file) + ": " + new_file.get_last_write().reason, out);
    out << "Made " << shown(file) << '\n';
    return exit_done;
}

int view_output(const Arguments& arguments, std::ostream& out) {
    if (arguments.size() < 2)
        return misused("scenario output_folder CPF_folder format", out);
    const TESK::Directory_name folder(platform::full_name(arguments[1]));
    out << "Output of " << shown(arguments[0]) << '\n';
    return print_tables(folder, out) > 0 ? exit_done : failed("No tables in " + shown(folder), out);
}

int compare_tables(const Arguments& arguments, std::ostream& out) {
    if (arguments.size() != 3)
        return misused("result active other", out);
    const TESK::File_name result(platform::full_name(arguments[0]).c_str());
    TESK::Data_record active("none");
    TESK::Data_record other("none");
    if (!read(TESK::File_name(platform::full_name(arguments[1]).c_str()), active, out, true) ||
        !read(TESK::File_name(platform::full_name(arguments[2]).c_str()), other, out, true))
        return exit_failed;

    Record_text text("comparison");
    text.add("note", "Written by a stand-in: numbers are the active scenario's less the other one's.");
    std::string active_value;
    std::string other_value;
    for (const TESK::VV_section& section : active.all_sections()) {
        const auto* other_section =
            static_cast<const TESK::VV_section*>(other.sections.find_exact(section.label));
        if (!section.entries.is_empty())
            text.begin_section(section.label);
        for (const TESK::VV_base_entry& entry : section.all_entries()) {
            if (entry.key == "note")
                continue;
            const TESK::VV_base_entry* const match =
                other_section == nullptr ? nullptr : other_section->find_entry(entry.key);
            entry.get_value(active_value);
            other_value.clear();
            if (match != nullptr)
                match->get_value(other_value);
            add_difference(entry.key, active_value, other_value, text);
        }
    }
    return text.write(result, out) ? exit_done : exit_failed;
}

int optimize_grazing(const Arguments& arguments, std::ostream& out) {
    if (arguments.empty())
        return misused("project", out);
    Opened_project project;
    if (!project.open(arguments.back(), Tilverra_project_type::grazing, out))
        return exit_failed;
    const Carbon_sequestration_optimization_parameters& parameters = project.parameters.carbon_sequestration;
    Record_text text("optimization");
    text.add("note", "Written by a stand-in: nothing was optimized. The numbers are those of the project.");
    text.add("template", project.parameters.active_scenario);
    text.add_number("pasture_size", parameters.pasture_size);
    text.add("max_plots", parameters.max_plots);
    text.add("min_stocking_rate", parameters.min_stocking_rate);
    text.add("max_stocking_rate", parameters.max_stocking_rate);
    text.add("max_duration", parameters.max_duration);
    text.add("max_recovery_days", parameters.max_recovery_days);
    const TESK::Directory_name& folder =
        project.directory->get_carbon_sequestration_optimization_directory(true);
    return text.write(file_in(folder, "optimization.xeb"), out) ? exit_done : exit_failed;
}

int view_optimization(const Arguments& arguments, std::ostream& out) {
    if (arguments.empty())
        return misused("project", out);
    Opened_project project;
    if (!project.open(arguments.back(), Tilverra_project_type::grazing, out))
        return exit_failed;
    const TESK::Directory_name& folder =
        project.directory->get_carbon_sequestration_optimization_directory(false);
    return print_tables(folder, out) > 0 ? exit_done : failed("No tables in " + shown(folder), out);
}

int explore_folder(const Arguments& arguments, std::ostream& out) {
    if (arguments.empty())
        return name_files(arguments, out);
    const std::string folder = platform::full_name(arguments.back());
    if (!platform::is_folder(folder))
        return failed("There is no folder " + shown(folder), out);
    out << "Would show " << shown(folder) << '\n';
    for (const platform::Folder_entry& entry : platform::list_folder(folder))
        out << "  " << shown(entry.name) << '\n';
    return exit_done;
}

int name_files(const Arguments& arguments, std::ostream& out) {
    if (arguments.empty())
        out << "Would open its window.\n";
    for (const std::string& argument : arguments)
        out << "Would open " << shown(argument) << '\n';
    return exit_done;
}
