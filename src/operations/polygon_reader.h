// What the program asks of a reader of maps. The one real reader lies in a library of its own.
#pragma once

#include "foundation/polygon_map.h"

#include <string>

class Polygon_reader {
public:
    virtual ~Polygon_reader() = default;

    // Reads a shapefile, by the suite's name for it. What is damaged in it gives empty polygons, or a failure
    // where nothing can be read.
    virtual Polygon_map read(const std::string& shapefile) = 0;
};
