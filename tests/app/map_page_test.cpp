#include "project_support.h"

namespace {

// Two fields side by side.
class Two_fields : public Polygon_reader {
public:
    Polygon_map read(const std::string& shapefile) override {
        read_file = shapefile;
        Polygon_map map;
        for (const double x : {0.0, 20.0})
            map.polygons.push_back({{{{x, 0}, {x + 10, 0}, {x + 10, 10}, {x, 10}}}});
        map.highest = {30, 10};
        return map;
    }
    std::string read_file;
};

class Map_page_test : public Project_test {
protected:
    Map_page_test() {
        copy_data("fields.dbf", "projects/study/Coverage/fields.dbf");
        drives.write("projects/study/Coverage/fields.shp");
        copy_data("fields.dbf", "projects/study/GIS/yields.dbf");
        form.map.set_reader(&reader);
        record->GIS_parameters.coverage_PAT_filename = "C:\\projects\\study\\Coverage\\fields.dbf";
    }
    Two_fields reader;
};

TEST_F(Map_page_test, shows_a_map_in_the_colours_of_an_attribute_of_its_table_or_of_a_table_of_a_run) {
    open("C:\\projects\\study.tvp", Tilverra_project_type::gis);
    record->GIS_parameters.coverage_PAT_filename = "C:\\projects\\study\\Coverage\\fields.dbf";
    record->GIS_parameters.polygon_ID_attribute = "CELL_ID";
    form.GIS.GIS_coverage_filebar_onchange();
    Map_page& map = form.map;
    map.map_tabsheet.bring_to_front();
    EXPECT_EQ(reader.read_file, "C:\\projects\\study\\Coverage\\fields.shp");
    const auto& attributes = map.map_attribute_combo.items();
    const auto soil = std::find(attributes.begin(), attributes.end(), "SOIL") - attributes.begin();
    EXPECT_TRUE(map.map_attribute_combo.select(static_cast<int>(soil)));
    EXPECT_NE(map.map_view.colour_of(0), map.map_view.colour_of(1));
    const Map_point place{25, 5};
    EXPECT_TRUE(map.map_view.hover(&place));
    EXPECT_NE(map.map_note.text().find("SOIL clay"), std::string::npos) << map.map_note.text();

    EXPECT_TRUE(map.map_table_combo.select(1));
    EXPECT_TRUE(map.map_attribute_combo.select(static_cast<int>(soil)));
    EXPECT_NE(map.map_view.colour_of(0), map.map_view.colour_of(1));
    record->GIS_parameters.polygon_ID_attribute = "nothing";
    EXPECT_TRUE(map.map_attribute_combo.select(0));
    EXPECT_NE(map.map_note.text().find("identifier"), std::string::npos);
    EXPECT_EQ(map.map_view.colour_of(0), desktop_colour);
}

} // namespace
