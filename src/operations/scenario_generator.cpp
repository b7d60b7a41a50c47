#include "operations/scenario_generator.h"

#include "foundation/code_page_1252.h"
#include "foundation/lists.h"
#include "model/tilverra_scenario.h"
#include "platform/files.h"
#include "platform/temporary_file.h"
#include "records/vv_file.h"

#include <array>
#include <cstdio>
#include <memory>
#include <optional>
#include <vector>

namespace {

constexpr std::uint8_t generation_project_kind = 5; // one beyond the types of project
constexpr const char* overlay_extension = "TVS_init";

// What the scenarios differ by: where its files lie in the database, and the field that takes them.
struct Dimension {
    const TESK::Smart_directory_name& (Database_directory::*folder)(bool create);
    const char* extension;
    TESK::Smart_file_name& (*field)(Tilverra_scenario& scenario);
};

// From the outermost loop to the innermost.
constexpr Dimension dimensions[] = {
    {&Database_directory::get_soil_directory, "sil",
     [](Tilverra_scenario& scenario) -> TESK::Smart_file_name& { return scenario.soil; }},
    {&Database_directory::get_weather_directory, "XEB",
     [](Tilverra_scenario& scenario) -> TESK::Smart_file_name& { return scenario.weather_database; }},
    {&Database_directory::get_rotation_directory, "rot",
     [](Tilverra_scenario& scenario) -> TESK::Smart_file_name& { return scenario.rotation; }},
    {&Database_directory::get_recalibration_directory, "rcl",
     [](Tilverra_scenario& scenario) -> TESK::Smart_file_name& { return scenario.recalibration; }},
    {&Database_directory::get_water_table_directory, "wtb",
     [](Tilverra_scenario& scenario) -> TESK::Smart_file_name& { return scenario.water_table; }},
};

// A parameter file that takes part, with what it adds to the description and the name of a scenario: nothing
// when it is not there.
struct Choice {
    explicit Choice(const TESK::File_name& name) : file(name) {
        if (TESK::Smart_file_name(file).exists()) {
            description = ' ' + file.get_name(true);
            name_part = '_' + file.get_name(false);
        }
    }

    TESK::File_name file;
    std::string description;
    std::string name_part;
};

std::vector<TESK::File_name> files_in(const TESK::Smart_directory_name& folder, const char* extension) {
    TESK::Unidirectional_list list;
    folder.list_entries(list, false, true, true, false, false, TESK::list_files, extension, nullptr);
    std::vector<TESK::File_name> files;
    for (const TESK::File_name& file : TESK::Items_of<TESK::File_name>(list))
        files.push_back(file);
    return files;
}

std::vector<TESK::Smart_directory_name> folders_in(const TESK::Smart_directory_name& folder) {
    TESK::Unidirectional_list list;
    folder.list_entries(list, false, true, true, false, false, TESK::list_directories, nullptr, nullptr);
    std::vector<TESK::Smart_directory_name> folders;
    for (const TESK::Directory_name& below : TESK::Items_of<TESK::Directory_name>(list))
        folders.emplace_back(below);
    return folders;
}

void read(const std::string& name, Tilverra_scenario& scenario) {
    TESK::VV_file(name.c_str()).get(scenario);
}

bool write(Tilverra_scenario& scenario, const std::string& name) {
    TESK::VV_file file(name.c_str());
    file.set_durability(platform::Durability::quick);
    return file.set(scenario) && file.get_last_write().ok();
}

class Generator {
public:
    Generator(const TESK::File_name& template_file, Database_directory& database,
              const TESK::Smart_directory_name& target_folder, std::ostream& trace,
              const Scenario_listener& listener, bool count_only)
        : template_file_(template_file), target_folder_(target_folder),
          overlay_folders_(folders_in(database.get_initialization_directory(false))), trace_(trace),
          listener_(listener), count_only_(count_only) {
        list_choices(database);
    }

    std::uint32_t run() {
        combine(0);
        return counter_;
    }

private:
    // A dimension of which the database has no file takes the template's own.
    void list_choices(Database_directory& database) {
        const auto scenario = std::make_unique<Tilverra_scenario>();
        read(template_file_, *scenario);
        for (std::size_t i = 0; i < std::size(dimensions); ++i) {
            const Dimension& dimension = dimensions[i];
            for (const TESK::File_name& file :
                 files_in((database.*dimension.folder)(false), dimension.extension))
                choices_[i].emplace_back(file);
            if (choices_[i].empty())
                choices_[i].emplace_back(dimension.field(*scenario));
        }
    }

    // Goes through the choices of a dimension and of those within it.
    void combine(std::size_t dimension) {
        if (dimension == std::size(dimensions)) {
            generate_combination();
            return;
        }
        for (const Choice& choice : choices_[dimension]) {
            chosen_[dimension] = &choice;
            combine(dimension + 1);
            if (stopped_)
                return;
        }
    }

    void generate_combination() {
        if (overlay_folders_.empty()) {
            const std::string target = list_next();
            if (!count_only_ && !stopped_) {
                const auto scenario = std::make_unique<Tilverra_scenario>();
                fill(*scenario);
                write(*scenario, target);
            }
        } else if (count_only_) {
            overlay("", 0, false);
        } else {
            const auto scenario = std::make_unique<Tilverra_scenario>();
            const std::string name = fill(*scenario);
            std::optional<platform::Scratch_file> base;
            bool is_written = false;
            // Nothing of the user's may stand in the way, nor the length of the name.
            if (!name.empty() && !platform::exists(name)) {
                base.emplace(name);
                is_written = write(*scenario, name);
            }
            if (!is_written) {
                base.emplace(platform::make_temporary_file());
                is_written = write(*scenario, base->name());
            }
            overlay(base->name(), 0, is_written);
        }
    }

    // Makes it the template with the files chosen. Gives what such a scenario is called.
    std::string fill(Tilverra_scenario& scenario) const {
        read(template_file_, scenario);
        std::string name = template_file_.get_name(false);
        for (std::size_t i = 0; i < std::size(dimensions); ++i) {
            scenario.description += chosen_[i]->description;
            name += chosen_[i]->name_part;
            dimensions[i].field(scenario).set(chosen_[i]->file);
        }
        return name;
    }

    // Lays each overlay of a folder over the base file, and those of the folders behind it over the outcome.
    // Without `writes` the scenarios are only told of.
    void overlay(const std::string& base, std::size_t folder, bool writes) {
        const bool is_last = folder + 1 == overlay_folders_.size();
        for (const TESK::File_name& file : files_in(overlay_folders_[folder], overlay_extension)) {
            if (is_last) {
                const std::string target = list_next();
                if (writes && !stopped_)
                    trace_ << TESK::utf8_from_code_page(write_overlaid(base, file, target).description)
                           << '\n';
            } else {
                const platform::Scratch_file target(writes ? platform::make_temporary_file() : "");
                overlay(target.name(), folder + 1,
                        writes && write_overlaid(base, file, target.name()).is_written);
            }
            if (stopped_)
                return;
        }
    }

    struct Overlaid {
        std::string description;
        bool is_written;
    };
    static Overlaid write_overlaid(const std::string& base, const TESK::File_name& overlay_file,
                                   const std::string& target) {
        const auto scenario = std::make_unique<Tilverra_scenario>();
        read(base, *scenario);
        read(overlay_file, *scenario);
        scenario->description += ' ' + overlay_file.get_name(true);
        const bool is_written = write(*scenario, target);
        return {scenario->description, is_written};
    }

    // Tells of the next scenario. Gives where it belongs.
    std::string list_next() {
        char number[16];
        std::snprintf(number, sizeof number, "%05u.tvn", ++counter_);
        stopped_ = !listener_(number);
        TESK::File_name file;
        if (!count_only_)
            target_folder_.create();
        target_folder_.append_to(number, file);
        return file;
    }

    const TESK::File_name template_file_;
    const TESK::Smart_directory_name target_folder_;
    const std::vector<TESK::Smart_directory_name> overlay_folders_;
    std::ostream& trace_;
    const Scenario_listener& listener_;
    const bool count_only_;
    std::array<std::vector<Choice>, std::size(dimensions)> choices_;
    std::array<const Choice*, std::size(dimensions)> chosen_{};
    std::uint32_t counter_ = 0;
    bool stopped_ = false;
};

} // namespace

std::uint32_t generate_scenarios(const Tilverra_project_editor_parameters& project,
                                 Tilverra_project_directory& project_directory, bool count_only,
                                 std::ostream& trace, const Scenario_listener& listener) {
    // Making a directory object moves the current directory.
    project_directory.set_as_current();
    const Tilverra_project_directory directory(*project_directory.parameter_file, generation_project_kind);
    project_directory.set_as_current();
    TESK::File_name template_file(project.template_scenario);
    template_file.qualify();
    return Generator(template_file, project_directory.get_database_directory(false),
                     directory.get_generated_scenarios_directory(false), trace, listener, count_only)
        .run();
}
