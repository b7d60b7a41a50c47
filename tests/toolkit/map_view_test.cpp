#include "toolkit/map_view.h"

#include "form_support.h"

namespace {

Map_polygon square(double x, double y, double size) {
    return {{{{x, y}, {x + size, y}, {x + size, y + size}, {x, y + size}}}};
}

TEST_F(Form_parts, a_map_view_knows_the_polygon_under_the_pointer_also_enlarged_and_moved) {
    auto& view = form_.add<TMapView>("map");
    Polygon_map map;
    map.polygons = {square(0, 0, 10), square(20, 0, 10)};
    map.polygons[0].rings.push_back(square(4, 4, 2).rings[0]); // a hole
    map.highest = {30, 10};
    view.set_map(std::make_shared<Polygon_map>(map));
    view.describe = [](int polygon) { return "field " + std::to_string(polygon); };
    int changes = 0;
    view.on_hover = [&] { ++changes; };

    const auto at = [&](double x, double y) {
        const Map_point point{x, y};
        view.hover(&point);
        return view.hovered();
    };
    EXPECT_EQ(at(1, 1), 0);
    EXPECT_EQ(at(5, 5), -1);
    EXPECT_EQ(at(15, 5), -1);
    EXPECT_EQ(at(25, 5), 1);
    EXPECT_EQ(view.description(), "field 1");
    EXPECT_EQ(changes, 3);
    view.hover(nullptr);
    EXPECT_EQ(view.description(), "");
    view.key({Key_code::page_up, "", false, false});
    EXPECT_EQ(view.description(), "field 1");

    EXPECT_TRUE(view.zoom(4, {0, 0}));
    EXPECT_DOUBLE_EQ(view.window().centre.x, 15.0 / 4); // the corner stayed where it was
    EXPECT_TRUE(view.move(100, 0));
    EXPECT_DOUBLE_EQ(view.window().centre.x, 30); // never out of sight
    EXPECT_TRUE(view.zoom(1e-9, {0, 0}));
    EXPECT_DOUBLE_EQ(view.window().enlargement, 1);
    EXPECT_TRUE(view.key({Key_code::character, "+", false, false}));
    EXPECT_GT(view.window().enlargement, 1);
    EXPECT_TRUE(view.show_whole());
    EXPECT_EQ(view.window(), (Map_window{{15, 5}, 1}));
}

} // namespace
