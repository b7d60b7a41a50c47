#include "maps_shapelib/shapelib_reader.h"

#include "support/temporary_drives.h"

#include <gtest/gtest.h>
#include <shapefil.h>

namespace {

// Two polygons, the first with a hole.
void make_map(const Temporary_drives& drives) {
    SHPInfo* file = SHPCreate(drives.host("fields.shp").c_str(), SHPT_POLYGON);
    double x[] = {0, 0, 10, 10, 0, 4, 6, 6, 4, 4};
    double y[] = {0, 10, 10, 0, 0, 4, 4, 6, 6, 4};
    int parts[] = {0, 5};
    SHPObject* field = SHPCreateObject(SHPT_POLYGON, -1, 2, parts, nullptr, 10, x, y, nullptr, nullptr);
    SHPWriteObject(file, -1, field);
    SHPDestroyObject(field);
    for (double& value : x)
        value += 20;
    field = SHPCreateObject(SHPT_POLYGON, -1, 1, parts, nullptr, 5, x, y, nullptr, nullptr);
    SHPWriteObject(file, -1, field);
    SHPDestroyObject(field);
    SHPClose(file);
}

TEST(Shapelib_reader, reads_polygons_with_their_holes_in_the_order_of_the_file) {
    const Temporary_drives drives;
    make_map(drives);
    const Polygon_map map = Shapelib_reader().read("C:\\FIELDS.shp");
    ASSERT_EQ(map.failure, "");
    ASSERT_EQ(map.polygons.size(), 2u);
    EXPECT_EQ(map.polygons[0].rings.size(), 2u);
    EXPECT_EQ(map.polygons[1].rings.size(), 1u);
    EXPECT_EQ(map.lowest.x, 0);
    EXPECT_EQ(map.highest.x, 30);
}

TEST(Shapelib_reader, says_what_is_wrong_and_survives_a_map_that_is_cut_or_damaged) {
    const Temporary_drives drives;
    EXPECT_NE(Shapelib_reader().read("C:\\nothing.shp").failure, "");
    make_map(drives);
    const std::string whole = drives.read("fields.shp");
    for (std::size_t i = 0; i < whole.size(); ++i) {
        std::string damaged = whole.substr(0, i);
        drives.write("fields.shp", damaged);
        static_cast<void>(Shapelib_reader().read("C:\\fields.shp"));
        damaged = whole;
        damaged[i] = '\xff';
        drives.write("fields.shp", damaged);
        const Polygon_map map = Shapelib_reader().read("C:\\fields.shp");
        EXPECT_TRUE(map.failure.empty() || map.polygons.empty()) << i;
    }
}

} // namespace
