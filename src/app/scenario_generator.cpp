#include "app/scenario_generator.h"

#include "foundation/lists.h"
#include "platform/files.h"
#include "records/vv_file.h"
#include "trees/project_directory.h"

#include <algorithm>

namespace {

// One beyond the kinds of projects.
constexpr std::uint8_t generator_kind = 5;
constexpr const char* scenario_extension = "tvn";
constexpr const char* overlay_extension = "TVS_init";

// The number in five digits, or as many as it has.
std::string numbered(int number) {
    constexpr std::size_t width = 5;
    const std::string digits = std::to_string(number);
    return std::string(width - std::min(width, digits.size()), '0') + digits;
}

// A working file, which is gone when the scope ends.
class Working_file {
public:
    // A name that nothing has, in the current folder.
    Working_file(const std::string& wanted, int& number) : name(wanted.c_str()) {
        while (platform::exists(name))
            name = wanted + "~" + std::to_string(++number);
    }
    Working_file(const Working_file&) = delete;
    Working_file& operator=(const Working_file&) = delete;
    ~Working_file() { platform::delete_file(name); }

    TESK::File_name name;
};

} // namespace

Scenario_generator::Scenario_generator(Project_workspace& workspace,
                                       std::function<bool(const std::string&)> on_scenario,
                                       std::ostream& trace)
    : workspace_(workspace), on_scenario_(std::move(on_scenario)), trace_(trace), generated_("") {}

Scenario_generator::Files Scenario_generator::list_dimension(const TESK::Directory_name& folder,
                                                             const char* extension) const {
    TESK::Bidirectional_list found;
    TESK::Smart_directory_name(folder).list_entries(found, false, true, true, true, true, TESK::list_files,
                                                    extension, nullptr);
    Files files;
    for (const auto& file : TESK::Items_of<TESK::File_name>(found))
        files.emplace_back(static_cast<const TESK::Ustring&>(file));
    return files;
}

// A kind of file of which the database has none comes from the template, which may name none either.
void Scenario_generator::list_dimensions() {
    Database_directory& database = workspace_.project_directory->get_database_directory(false);
    dimensions_ = {list_dimension(database.get_soil_directory(false), "sil"),
                   list_dimension(database.get_weather_directory(false), "XEB"),
                   list_dimension(database.get_rotation_directory(false), "rot"),
                   list_dimension(database.get_recalibration_directory(false), "rcl"),
                   list_dimension(database.get_water_table_directory(false), "wtb")};
    Tilverra_scenario scenario;
    read_template(scenario);
    const std::array<const TESK::Filtered_file_name*, dimension_count> own = {
        &scenario.soil, &scenario.weather_database, &scenario.rotation, &scenario.recalibration,
        &scenario.water_table};
    for (std::size_t i = 0; i < dimension_count; ++i)
        if (dimensions_[i].empty())
            dimensions_[i].emplace_back(static_cast<const TESK::Ustring&>(*own[i]));
}

void Scenario_generator::list_overlays() {
    const TESK::Smart_directory_name& initialization =
        workspace_.project_directory->get_database_directory(false).get_initialization_directory(false);
    TESK::Bidirectional_list folders;
    initialization.list_entries(folders, false, true, true, true, true, TESK::list_directories, nullptr,
                                nullptr);
    overlays_.clear();
    for (const auto& folder : TESK::Items_of<TESK::Directory_name>(folders))
        overlays_.push_back(list_dimension(folder, overlay_extension));
}

int Scenario_generator::generate(bool count_only) {
    count_only_ = count_only;
    count_ = 0;
    workspace_.enter_project_folder();
    list_dimensions();
    // Making this object moves the current folder; the names of the record mean the project's.
    const Tilverra_project_directory project(TESK::File_name(workspace_.host.project_file().c_str()),
                                             generator_kind);
    workspace_.enter_project_folder();
    generated_ = std::string(project.get_generated_scenarios_directory(false));
    list_overlays();
    combine(0);
    return count_;
}

// False when the user wants no more.
bool Scenario_generator::combine(std::size_t dimension) {
    if (dimension == dimension_count)
        return make_combination();
    for (const TESK::Smart_file_name& file : dimensions_[dimension]) {
        chosen_[dimension] = &file;
        if (!combine(dimension + 1))
            return false;
    }
    return true;
}

void Scenario_generator::read_template(Tilverra_scenario& scenario) const {
    TESK::VV_file(workspace_.project_parameters.template_scenario.c_str()).get(scenario);
}

void Scenario_generator::write(Tilverra_scenario& scenario, const TESK::File_name& file) {
    TESK::VV_file target(file.c_str());
    target.set_durability(platform::Durability::quick);
    target.set(scenario);
}

bool Scenario_generator::make_combination() {
    Tilverra_scenario scenario;
    read_template(scenario);
    std::string description = scenario.description;
    std::string name = workspace_.project_parameters.template_scenario.get_name(false);
    const std::array<TESK::Filtered_file_name*, dimension_count> fields = {
        &scenario.soil, &scenario.weather_database, &scenario.rotation, &scenario.recalibration,
        &scenario.water_table};
    for (std::size_t i = 0; i < dimension_count; ++i) {
        if (chosen_[i]->exists()) {
            description += ' ' + chosen_[i]->get_name(true);
            name += '_' + chosen_[i]->get_name(false);
        }
        *fields[i] = static_cast<const std::string&>(*chosen_[i]);
    }
    scenario.description = description;
    if (!overlays_.empty()) {
        const Working_file base(name, working_files_);
        if (!count_only_)
            write(scenario, base.name);
        return lay_over(base.name, 0);
    }
    TESK::File_name file;
    if (!next_scenario(file))
        return false;
    if (!count_only_)
        write(scenario, file);
    return true;
}

// Counts a scenario, and names its file. False when the user wants no more: this one is not to be written.
bool Scenario_generator::next_scenario(TESK::File_name& file) {
    file = numbered(++count_) + '.' + scenario_extension;
    if (count_only_)
        return true;
    if (!on_scenario_(file.get_name(true))) {
        --count_;
        return false;
    }
    generated_.create();
    file.set_path(generated_);
    return true;
}

// Lays each file of the folder over the base, and the files of the folders behind it over each of those.
bool Scenario_generator::lay_over(const TESK::File_name& base, std::size_t folder) {
    if (folder == overlays_.size())
        return true;
    const bool is_last = folder + 1 == overlays_.size();
    for (const TESK::Smart_file_name& overlay : overlays_[folder]) {
        if (is_last) {
            TESK::File_name file;
            if (!next_scenario(file))
                return false;
            if (!count_only_)
                write_overlay(base, overlay, true, file);
            continue;
        }
        const Working_file between(std::string(base) + '_' + overlay.get_name(false), working_files_);
        if (!count_only_)
            write_overlay(base, overlay, false, between.name);
        if (!lay_over(between.name, folder + 1))
            return false;
    }
    return true;
}

void Scenario_generator::write_overlay(const TESK::File_name& base, const TESK::File_name& overlay,
                                       bool is_last, const TESK::File_name& target) {
    Tilverra_scenario scenario;
    TESK::VV_file(base.c_str()).get(scenario);
    TESK::VV_file(overlay.c_str()).get(scenario);
    scenario.description += ' ' + overlay.get_name(true);
    write(scenario, target);
    if (is_last)
        trace_ << scenario.description << '\n';
}
