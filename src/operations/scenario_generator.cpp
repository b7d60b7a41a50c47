#include "operations/scenario_generator.h"

#include "foundation/code_page_1252.h"
#include "foundation/lists.h"
#include "model/tilverra_scenario.h"
#include "operations/bulk_files.h"
#include "operations/project_check.h"
#include "operations/repeated_text.h"
#include "platform/file_writer.h"
#include "platform/files.h"
#include "platform/listing.h"
#include "platform/temporary_file.h"
#include "records/vv_file.h"

#include <array>
#include <charconv>
#include <cstdio>
#include <map>
#include <memory>
#include <optional>

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

// The files or folders in a folder that need not be there. False when it cannot be read.
template <class Name, class Listed>
bool list(const TESK::Smart_directory_name& folder, std::uint8_t kind, const char* extension,
          std::vector<Name>& names) {
    TESK::Unidirectional_list list;
    const bool is_whole =
        folder.list_entries(list, false, true, true, false, false, kind, extension, nullptr);
    for (const Listed& entry : TESK::Items_of<Listed>(list))
        names.emplace_back(entry);
    return is_whole || !platform::exists(folder);
}

platform::Write_result write(const std::string& text, const std::string& name) {
    return platform::write_file(name, text, platform::Durability::quick);
}

const platform::Write_result unreadable{platform::Write_error::other,
                                        "A file that it is made of cannot be read."};

std::string scenario_number(std::uint32_t number) {
    char text[16];
    std::snprintf(text, sizeof text, "%05u.tvn", number);
    return text;
}

// What the scenarios are made from.
class Family {
public:
    Family(const TESK::File_name& template_file, Database_directory& database)
        : template_file_(template_file) {
        failure_ = told_interruption(template_file);
        if (!TESK::VV_file(template_file.c_str()).get(scenario_) || !failure_.empty()) {
            failure_ = "The template scenario cannot be read: " + template_file +
                       (failure_.empty() ? "" : ". " + failure_);
            return;
        }
        list_choices(database);
        list_overlays(database.get_initialization_directory(false));
    }

    // Why there is no family; nothing when there is one.
    const std::string& failure() const { return failure_; }

    // How many scenarios there are, by multiplication.
    std::uint64_t count() const {
        std::uint64_t count = 1;
        for (const auto& choices : choices_)
            count *= choices.size();
        for (const auto& overlays : overlays_)
            count *= overlays.size();
        return count;
    }

    std::array<std::vector<Choice>, std::size(dimensions)> choices_;
    // The files of each folder of overlays.
    std::vector<std::vector<TESK::File_name>> overlays_;
    Tilverra_scenario scenario_; // the template
    const TESK::File_name template_file_;

private:
    void note_unreadable(const TESK::Smart_directory_name& folder) {
        failure_ = "The folder cannot be read: " + folder;
    }

    // A dimension of which the database has no file takes the template's own.
    void list_choices(Database_directory& database) {
        for (std::size_t i = 0; i < std::size(dimensions); ++i) {
            const Dimension& dimension = dimensions[i];
            const TESK::Smart_directory_name& folder = (database.*dimension.folder)(false);
            if (!list<Choice, TESK::File_name>(folder, TESK::list_files, dimension.extension, choices_[i]))
                note_unreadable(folder);
            if (choices_[i].empty())
                choices_[i].emplace_back(dimension.field(scenario_));
        }
    }

    void list_overlays(const TESK::Smart_directory_name& folder) {
        std::vector<TESK::Smart_directory_name> folders;
        if (!list<TESK::Smart_directory_name, TESK::Directory_name>(folder, TESK::list_directories, nullptr,
                                                                    folders))
            note_unreadable(folder);
        for (const TESK::Smart_directory_name& below : folders)
            if (!list<TESK::File_name, TESK::File_name>(below, TESK::list_files, overlay_extension,
                                                        overlays_.emplace_back()))
                note_unreadable(below);
        for (const auto& files : overlays_)
            for (const TESK::File_name& file : files)
                if (Tilverra_scenario overlay; !TESK::VV_file(file.c_str()).get(overlay))
                    failure_ = "The file cannot be read: " + file;
                else if (const std::string reason = told_interruption(file); !reason.empty())
                    failure_ = "The file cannot be read: " + file + ". " + reason;
    }

    std::string failure_;
};

class Generator {
public:
    Generator(Family& family, const Bulk_files& files, std::ostream& trace, const Scenario_listener& listener)
        : family_(family), files_(files), trace_(trace), listener_(listener),
          description_(family.scenario_.description), text_(family.scenario_, changing_fields(family)) {}

    Operation_outcome run() {
        if (family_.count() > 0)
            combine(0);
        return std::move(outcome_);
    }

private:
    static std::vector<const TESK::Ustring*> changing_fields(Family& family) {
        std::vector<const TESK::Ustring*> fields{&family.scenario_.description};
        for (const Dimension& dimension : dimensions)
            fields.push_back(&dimension.field(family.scenario_));
        return fields;
    }

    // Goes through the choices of a dimension and of those within it.
    void combine(std::size_t dimension) {
        if (dimension == std::size(dimensions)) {
            generate_combination();
            return;
        }
        for (const Choice& choice : family_.choices_[dimension]) {
            chosen_[dimension] = &choice;
            combine(dimension + 1);
            if (outcome_.stopped)
                return;
        }
    }

    void generate_combination() {
        const std::string name = fill();
        if (family_.overlays_.empty()) {
            const std::string target = list_next();
            if (!outcome_.stopped)
                files_.write(target, text_.compose(), outcome_);
            return;
        }
        std::optional<platform::Scratch_file> base;
        platform::Write_result result = platform::write_failure(platform::Write_error::bad_name);
        // Nothing of the user's may stand in the way, nor the length of the name.
        if (!name.empty() && !platform::exists(name)) {
            base.emplace(name);
            result = write(text_.compose(), name);
        }
        if (!result.ok()) {
            base.emplace(platform::make_temporary_file());
            result = write(text_.compose(), base->name());
        }
        overlay(base->name(), 0, result);
    }

    // Makes it the template with the files chosen. Gives what such a scenario is called.
    std::string fill() {
        Tilverra_scenario& scenario = family_.scenario_;
        scenario.description = description_;
        std::string name = family_.template_file_.get_name(false);
        for (std::size_t i = 0; i < std::size(dimensions); ++i) {
            scenario.description += chosen_[i]->description;
            name += chosen_[i]->name_part;
            dimensions[i].field(scenario).set(chosen_[i]->file);
        }
        return name;
    }

    // Lays each overlay of a folder over the base file, and those of the folders behind it over the outcome.
    // When the base could not be written, neither can they.
    void overlay(const std::string& base, std::size_t folder, const platform::Write_result& base_result) {
        const bool is_last = folder + 1 == family_.overlays_.size();
        for (const TESK::File_name& file : family_.overlays_[folder]) {
            if (is_last) {
                const std::string target = list_next();
                if (!outcome_.stopped && !base_result.ok())
                    outcome_.not_done.push_back({files_.full_name(target), base_result.reason});
                else if (!outcome_.stopped)
                    write_overlaid(base, file, target);
            } else {
                const platform::Scratch_file target(base_result.ok() ? platform::make_temporary_file() : "");
                overlay(target.name(), folder + 1,
                        base_result.ok() ? make_base(base, file, target.name()) : base_result);
            }
            if (outcome_.stopped)
                return;
        }
    }

    // Lays the overlay over the base, and gives the text of it. False when one of them cannot be read.
    static bool lay_over(const std::string& base, const TESK::File_name& overlay_file,
                         Tilverra_scenario& scenario, std::string& text) {
        if (!TESK::VV_file(base.c_str()).get(scenario) || !TESK::VV_file(overlay_file.c_str()).get(scenario))
            return false;
        scenario.description += ' ' + overlay_file.get_name(true);
        text = Repeated_text(scenario, {}).compose();
        return true;
    }
    // The base for the folders behind.
    static platform::Write_result make_base(const std::string& base, const TESK::File_name& file,
                                            const std::string& name) {
        Tilverra_scenario scenario;
        std::string text;
        return lay_over(base, file, scenario, text) ? write(text, name) : unreadable;
    }
    void write_overlaid(const std::string& base, const TESK::File_name& file, const std::string& target) {
        Tilverra_scenario scenario;
        std::string text;
        if (!lay_over(base, file, scenario, text)) {
            outcome_.not_done.push_back({files_.full_name(target), unreadable.reason});
            return;
        }
        files_.write(target, text, outcome_);
        trace_ << TESK::utf8_from_code_page(scenario.description) << '\n';
    }

    // Tells of the next scenario. Gives its file name.
    std::string list_next() {
        std::string number = scenario_number(++counter_);
        outcome_.stopped = !listener_(number);
        return number;
    }

    Family& family_;
    const Bulk_files& files_;
    std::ostream& trace_;
    const Scenario_listener& listener_;
    const TESK::Ustring description_; // of the template
    Repeated_text text_;
    std::array<const Choice*, std::size(dimensions)> chosen_{};
    std::uint32_t counter_ = 0;
    Operation_outcome outcome_;
};

// Moves to the project's folder, from which the names of the family count.
struct Generation {
    Generation(const Tilverra_project_editor_parameters& project,
               Tilverra_project_directory& project_directory) {
        // Making a directory object moves the current directory.
        project_directory.set_as_current();
        const Tilverra_project_directory directory(*project_directory.parameter_file,
                                                   generation_project_kind);
        project_directory.set_as_current();
        const TESK::Directory_name target_folder = directory.get_generated_scenarios_directory(false);
        TESK::File_name template_file(project.template_scenario);
        template_file.qualify();
        family = std::make_unique<Family>(template_file, project_directory.get_database_directory(false));
        plan.refused = family->failure();
        if (!plan.refused.empty())
            return;
        plan.count = family->count();
        files = std::make_unique<Bulk_files>(target_folder);
        plan.refused = files->failure();
    }

    // The file names of the scenarios.
    std::vector<std::string> numbers() const {
        std::vector<std::string> numbers;
        for (std::uint32_t number = 1; number <= plan.count; ++number)
            numbers.push_back(scenario_number(number));
        return numbers;
    }

    std::unique_ptr<Family> family;
    std::unique_ptr<Bulk_files> files; // null when it is refused
    Generation_plan plan;
};

// Of a template whose name counts from the current directory.
int unread_events_of(const TESK::File_name& template_file) {
    Tilverra_scenario scenario;
    TESK::VV_file(template_file.c_str(), true).get(scenario);
    return count_unread_events(scenario);
}

} // namespace

Generation_plan plan_generation(const Tilverra_project_editor_parameters& project,
                                Tilverra_project_directory& project_directory) {
    Generation generation(project, project_directory);
    if (!generation.plan.refused.empty())
        return std::move(generation.plan);
    generation.plan.unread_events = unread_events_of(project.template_scenario);
    // What is there is looked through, not what will be: that may be any number.
    std::map<std::uint32_t, std::string> replaced;
    for (const auto& [folded, name] : generation.files->present()) {
        std::uint32_t number = 0;
        std::from_chars(folded.data(), folded.data() + folded.size(), number);
        if (number > 0 && number <= generation.plan.count && scenario_number(number) == folded)
            replaced[number] = generation.files->full_name(name);
    }
    for (auto& [number, name] : replaced)
        generation.plan.replaced.push_back(std::move(name));
    return std::move(generation.plan);
}

Operation_outcome generate_scenarios(const Tilverra_project_editor_parameters& project,
                                     Tilverra_project_directory& project_directory, Change_backups* backups,
                                     std::ostream& trace, const Scenario_listener& listener) {
    constexpr std::uint64_t most_undone = 1'000'000;
    Generation generation(project, project_directory);
    Operation_outcome outcome;
    outcome.refused = generation.plan.refused;
    if (backups != nullptr && generation.plan.count > most_undone)
        outcome.refused = "There would be too many scenarios for a change that can be undone.";
    if (outcome.refused.empty())
        outcome.refused = generation.files->begin(
            "generation", backups == nullptr ? std::vector<std::string>() : generation.numbers(), backups);
    if (!outcome.refused.empty())
        return outcome;
    return Generator(*generation.family, *generation.files, trace, listener).run();
}
