#include "model/tilverra_scenario.h"
#include "platform/host_names.h"
#include "records/vv_file.h"
#include "trees/scenario_directory.h"
#include "work_support.h"
#include "works.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <map>
#include <thread>

namespace {

constexpr const char* not_simulated =
    "Written by a stand-in: nothing was simulated. The numbers are those of the scenario's record.";

// The days of a simulation by years.
struct Simulated_years {
    static constexpr int most_years = 1000;

    explicit Simulated_years(const Tilverra_model_options& options) {
        const int first = options.starting_date.get_year();
        const int last = options.ending_date.get_year();
        for (int year = first; year <= std::min(last, first + most_years - 1); ++year) {
            const int length = TESK::is_leap_year(static_cast<std::int16_t>(year)) ? 366 : 365;
            const int from = year == first ? options.starting_date.get_day_of_year() : 1;
            const int to = year == last ? options.ending_date.get_day_of_year() : length;
            days[year] = std::clamp(to - from + 1, 0, length);
            all_days += days[year];
        }
    }

    std::map<int, int> days;
    int all_days = 0;
};

double sum(const Soil_layers& layers) {
    double result = 0;
    for (const float value : layers)
        result += value;
    return result;
}

int count_events(const Tilverra_scenario& scenario, const char* operation_type) {
    int count = 0;
    for (const Common_event& event : TESK::Items_of<Common_event>(scenario.events))
        count += event.enabled && event.operation_type == operation_type ? 1 : 0;
    return count;
}

void add_daily(const Tilverra_scenario& scenario, Record_text& text) {
    const auto layers =
        std::count_if(scenario.H2O.begin(), scenario.H2O.end(), [](float v) { return v > 0; });
    std::string day;
    text.add("first_day", scenario.model_options->starting_date.text_str(day));
    text.add("last_day", scenario.model_options->ending_date.text_str(day));
    text.add("days", Simulated_years(*scenario.model_options).all_days);
    text.add_number("initial_soil_water", layers == 0 ? 0 : sum(scenario.H2O) / static_cast<double>(layers));
    text.add_number("initial_nitrate", sum(scenario.NO3));
    text.add_number("initial_ammonium", sum(scenario.NH4));
}

void add_season(const Tilverra_scenario& scenario, Record_text& text) {
    text.add("soil", scenario.soil).add("weather_database", scenario.weather_database);
    text.add("rotation", scenario.rotation);
    text.add("sowings", count_events(scenario, "SOWING"));
    text.add("irrigations", count_events(scenario, "IRRIGATION"));
    text.add("harvests", count_events(scenario, "HARVEST"));
    text.add_number("initial_residue", scenario.residue.stubble_biomass + scenario.residue.surface_biomass);
}

void add_annual(const Tilverra_scenario& scenario, Record_text& text) {
    for (const auto& [year, days] : Simulated_years(*scenario.model_options).days)
        text.add(std::to_string(year), days);
}

void add_harvest(const Tilverra_scenario& scenario, Record_text& text) {
    text.add("field", scenario.field_number).add_number("field_size", scenario.field_size);
    int number = 0;
    for (const Common_event& event : TESK::Items_of<Common_event>(scenario.events))
        if (event.enabled && event.operation_type == "HARVEST")
            text.add(std::to_string(++number), event.operation_name);
}

struct Table {
    const char* name;
    const TESK::Smart_file_name Tilverra_scenario_directory::*file;
    void (*add)(const Tilverra_scenario& scenario, Record_text& text);
};
constexpr Table tables[] = {
    {"daily", &Tilverra_scenario_directory::daily_xeb, add_daily},
    {"season", &Tilverra_scenario_directory::season_xeb, add_season},
    {"annual", &Tilverra_scenario_directory::annual_xeb, add_annual},
    {"harvest", &Tilverra_scenario_directory::harvest_xeb, add_harvest},
};

// The output options of a scenario: which tables it wants, all of them unless the file says otherwise.
class Output_options : public TESK::Data_record {
public:
    Output_options() : Data_record("output_options") {
        std::fill(std::begin(wanted), std::end(wanted), true);
    }
    void expect_structure(bool for_write) override {
        Data_record::expect_structure(for_write);
        set_current_section("xeb");
        for (std::size_t i = 0; i < std::size(tables); ++i)
            expect_bool(tables[i].name, wanted[i]);
    }

    bool wanted[std::size(tables)];
};

bool write_schedule(const Tilverra_scenario& scenario, const TESK::File_name& file, std::ostream& out) {
    Record_text text("schedule");
    text.add("note", not_simulated);
    int number = 0;
    for (const Common_event& event : TESK::Items_of<Common_event>(scenario.events))
        text.add(std::to_string(++number),
                 event.operation_type + " " + event.operation_name + (event.enabled ? "" : " (disabled)"));
    return text.write(file, out);
}

// Lets as much time go by as the environment asks for.
void take_time() {
    constexpr double longest = 3600;
    if (const char* seconds = std::getenv("TVS_STAND_IN_SECONDS"))
        std::this_thread::sleep_for(
            std::chrono::duration<double>(std::clamp(std::atof(seconds), 0.0, longest)));
}

// Whether the environment names the scenario among those that are to fail.
bool is_to_fail(const TESK::File_name& file) {
    const char* const names = std::getenv("TVS_STAND_IN_FAILURES");
    return names != nullptr &&
           (';' + std::string(names) + ';').find(';' + shown(file.get_name(false)) + ';') !=
               std::string::npos;
}

} // namespace

int run_model(const Arguments& arguments, std::ostream& out) {
    if (arguments.size() < 2)
        return misused("[format] project scenario", out);
    const TESK::File_name file(platform::full_name(arguments.back()).c_str());
    take_time();
    if (is_to_fail(file))
        return failed("The run was told to fail: " + shown(file), out);
    Tilverra_scenario scenario;
    if (!read(file, scenario, out))
        return exit_failed;
    // Its name counts from the current directory, which the scenario's directory object moves.
    Output_options options;
    TESK::VV_file(scenario.model_options->options.c_str()).get(options);

    const Tilverra_scenario_directory directory(file);
    bool is_written = write_schedule(scenario, directory.schedule, out);
    for (std::size_t i = 0; i < std::size(tables); ++i) {
        if (!options.wanted[i])
            continue;
        Record_text text(tables[i].name);
        text.add("note", not_simulated).add("description", scenario.description);
        tables[i].add(scenario, text);
        is_written = text.write(directory.*tables[i].file, out) && is_written;
    }
    return is_written ? exit_done : exit_failed;
}
