#include "maps_shapelib/shapelib_reader.h"

#include "foundation/code_page_1252.h"
#include "platform/host_names.h"

#include <shapefil.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>

namespace {

constexpr std::size_t most_points = 20'000'000;

struct Closer {
    void operator()(SHPInfo* file) const { SHPClose(file); }
    void operator()(SHPObject* shape) const { SHPDestroyObject(shape); }
};

bool holds_polygons(int type) {
    return type == SHPT_POLYGON || type == SHPT_POLYGONZ || type == SHPT_POLYGONM;
}

Map_polygon polygon_of(const SHPObject& shape) {
    Map_polygon polygon;
    for (int part = 0; part < shape.nParts; ++part) {
        const int begin = std::clamp(shape.panPartStart[part], 0, shape.nVertices);
        const int end = part + 1 < shape.nParts
                            ? std::clamp(shape.panPartStart[part + 1], begin, shape.nVertices)
                            : shape.nVertices;
        std::vector<Map_point> ring;
        for (int i = begin; i < end; ++i)
            if (std::isfinite(shape.padfX[i]) && std::isfinite(shape.padfY[i]))
                ring.push_back({shape.padfX[i], shape.padfY[i]});
        if (ring.size() > 2)
            polygon.rings.push_back(std::move(ring));
    }
    return polygon;
}

void measure(Polygon_map& map) {
    constexpr double far = std::numeric_limits<double>::max();
    map.lowest = {far, far};
    map.highest = {-far, -far};
    for (const Map_polygon& polygon : map.polygons)
        for (const auto& ring : polygon.rings)
            for (const Map_point& point : ring) {
                map.lowest = {std::min(map.lowest.x, point.x), std::min(map.lowest.y, point.y)};
                map.highest = {std::max(map.highest.x, point.x), std::max(map.highest.y, point.y)};
            }
    if (map.lowest.x > map.highest.x)
        map.lowest = map.highest = {};
}

Polygon_map failed(const std::string& shapefile, const char* why) {
    Polygon_map map;
    map.failure = "The map " + TESK::utf8_from_code_page(shapefile) + ' ' + why;
    return map;
}

} // namespace

Polygon_map Shapelib_reader::read(const std::string& shapefile) {
    SAHooks hooks;
    SASetupDefaultHooks(&hooks);
    hooks.Error = [](const char*) {}; // what it has to say is for programmers
    const std::unique_ptr<SHPInfo, Closer> file(
        SHPOpenLL(platform::host_path(shapefile).c_str(), "rb", &hooks));
    if (!file)
        return failed(shapefile, "cannot be read, or the index (.shx) beside it is missing.");
    int count = 0;
    int type = 0;
    SHPGetInfo(file.get(), &count, &type, nullptr, nullptr);
    if (!holds_polygons(type))
        return failed(shapefile, "holds no polygons.");
    Polygon_map map;
    std::size_t points = 0;
    for (int i = 0; i < count; ++i) {
        const std::unique_ptr<SHPObject, Closer> shape(SHPReadObject(file.get(), i));
        map.polygons.emplace_back();
        if (!shape)
            continue;
        points += static_cast<std::size_t>(std::max(shape->nVertices, 0));
        if (points > most_points)
            return failed(shapefile, "is too large to be drawn.");
        map.polygons.back() = polygon_of(*shape);
    }
    measure(map);
    return map;
}

std::string Shapelib_reader::library_version() {
    return "shapelib " SHAPELIB_VERSION;
}
