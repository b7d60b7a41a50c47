#include "platform/files.h"
#include "platform/host_names.h"
#include "tables/dbase_data_source.h"
#include "work_support.h"
#include "works.h"

#include <map>
#include <optional>

namespace {

class Polygon_row : public TESK::Data_record {
public:
    Polygon_row() : Data_record("polygon") {}
    void expect_structure(bool for_write) override {
        Data_record::expect_structure(for_write);
        expect_string("POLYGON", polygon, 20);
        expect_string("SOIL", soil, 40);
        expect_string("SCENARIO", scenario, 40);
    }

    TESK::Ustring polygon;
    TESK::Ustring soil;
    TESK::Ustring scenario;
};

class Soil_row : public TESK::Data_record {
public:
    Soil_row() : Data_record("soil") {}
    void expect_structure(bool for_write) override {
        Data_record::expect_structure(for_write);
        expect_string("SOIL", soil, 40);
        expect_int32("POLYGONS", polygons);
    }

    TESK::Ustring soil;
    std::int32_t polygons = 0;
};

// A new table that replaces the file of the name.
class New_table {
public:
    explicit New_table(const TESK::File_name& file)
        : name_(file), replaced_(platform::delete_file(file)), file_(file.c_str(), false), table_(file_) {}

    void add(TESK::Data_record& row) {
        row.set_position(0);
        is_good_ = is_good_ && can_begin() && table_.set(row);
    }
    // Ends the table; false, with the reason said, when not all of it could be written.
    bool finish(std::ostream& out) {
        if (can_begin())
            table_.finish();
        is_good_ = is_good_ && can_begin() && file_.good();
        out << (is_good_ ? "Wrote " : "Cannot write ") << shown(name_) << '\n';
        return is_good_;
    }

private:
    bool can_begin() const {
        return replaced_ == platform::Delete_outcome::deleted ||
               replaced_ == platform::Delete_outcome::absent;
    }

    TESK::File_name name_;
    platform::Delete_outcome replaced_;
    TESK::Binary_file_fstream file_;
    TESK::dBase_data_source table_;
    bool is_good_ = true;
};

// What stands in a field of the current row, without the blanks around it.
std::string text_of(const TESK::dBase_data_source& table, const TESK::dBase_data_source::Field_item& field) {
    std::string_view text = table.get_field_text(field);
    while (!text.empty() && text.front() == ' ')
        text.remove_prefix(1);
    while (!text.empty() && text.back() == ' ')
        text.remove_suffix(1);
    return std::string(text);
}

// The polygons of a map: its table, and the fields of it that a run needs.
class Polygon_map {
public:
    // The file is there.
    explicit Polygon_map(const TESK::File_name& file) : stream_(file.c_str(), false), table_(stream_) {}

    // False, with the reason said, for a table without polygons or without the project's attributes.
    bool open(const GIS_Project_parameters& parameters, std::ostream& out) {
        if (!table_.read_structure() || !table_.goto_first()) {
            out << "The map's table holds no polygons.\n";
            return false;
        }
        polygon_ = table_.find_field(parameters.polygon_ID_attribute);
        soil_ = parameters.soils_mapped ? table_.find_field(parameters.soil_attribute) : nullptr;
        if (polygon_ == nullptr || (parameters.soils_mapped && soil_ == nullptr)) {
            out << "The map's table lacks the attribute of the polygons or that of the soils.\n";
            return false;
        }
        return true;
    }

    // Writes a row for each polygon, and counts the polygons of each soil.
    bool write(const Opened_project& project, const TESK::File_name& file,
               std::map<std::string, std::int32_t>& soils, std::ostream& out) {
        New_table result(file);
        Polygon_row row;
        row.scenario = project.parameters.active_scenario.get_name(false);
        row.soil = project.scenario.soil.get_name(false);
        for (bool is_there = table_.goto_first(); is_there; is_there = table_.goto_next(1)) {
            row.polygon = text_of(table_, *polygon_);
            if (soil_ != nullptr)
                row.soil = text_of(table_, *soil_);
            ++soils[row.soil];
            result.add(row);
        }
        return result.finish(out);
    }

private:
    TESK::Binary_file_fstream stream_;
    TESK::dBase_data_source table_;
    const TESK::dBase_data_source::Field_item* polygon_ = nullptr;
    const TESK::dBase_data_source::Field_item* soil_ =
        nullptr; // null where the scenario's soil is everywhere
};

} // namespace

int run_polygons(const Arguments& arguments, std::ostream& out) {
    if (arguments.empty())
        return misused("project", out);
    Opened_project project;
    if (!project.open(arguments.back(), Tilverra_project_type::gis, out))
        return exit_failed;
    const TESK::File_name map_file(
        platform::full_name(project.parameters.GIS_parameters.coverage_PAT_filename).c_str());
    if (!platform::is_file(map_file))
        return failed("There is no table of the map's polygons: " + shown(map_file), out);
    const TESK::File_name polygons_file =
        file_in(project.directory->get_GIS_directory(true), "GIS_scenarios.dbf");
    const TESK::File_name soils_file =
        file_in(project.directory->get_aggregation_directory(true), "soils.dbf");
    const std::optional<platform::Entry_identity> map_identity = platform::entry_identity(map_file);
    if (map_identity == platform::entry_identity(polygons_file) ||
        map_identity == platform::entry_identity(soils_file))
        return failed("The map's table stands where the results belong: " + shown(map_file), out);

    Polygon_map map(map_file);
    std::map<std::string, std::int32_t> soils;
    if (!map.open(project.parameters.GIS_parameters, out) || !map.write(project, polygons_file, soils, out))
        return exit_failed;
    New_table aggregation(soils_file);
    Soil_row row;
    for (const auto& [soil, count] : soils) {
        row.soil = soil;
        row.polygons = count;
        aggregation.add(row);
    }
    return aggregation.finish(out) ? exit_done : exit_failed;
}
