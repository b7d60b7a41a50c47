// The reader of shapefiles, over shapelib.
#pragma once

#include "operations/polygon_reader.h"

class Shapelib_reader : public Polygon_reader {
public:
    // Refuses a map of more than 20 million points: it could not be drawn in any time a user would wait.
    Polygon_map read(const std::string& shapefile) override;

    // The library and the version that this was built with.
    static std::string library_version();
};
