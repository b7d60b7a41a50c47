// The polygons of a map, as they are read and drawn.
#pragma once

#include <string>
#include <vector>

struct Map_point {
    double x = 0;
    double y = 0;
};

// The rings of one polygon, holes included: what an odd number of rings surrounds is inside.
struct Map_polygon {
    std::vector<std::vector<Map_point>> rings;
};

struct Polygon_map {
    std::vector<Map_polygon> polygons; // in the order of the rows of the attribute table
    Map_point lowest;                  // the corners of what holds them all, in the map's own units
    Map_point highest;
    std::string failure; // a plain English sentence in UTF-8, and then no polygons; empty when all went well
};
