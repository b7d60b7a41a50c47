#include "toolkit/map_view.h"

#include <algorithm>
#include <limits>

namespace {

constexpr double smallest_enlargement = 1;
constexpr double largest_enlargement = 10000;
constexpr double step = 0.1;
constexpr double zoom_step = 1.5;

// Counts how often a ray from the point crosses the rings: an odd number is inside.
bool surrounds(const Map_polygon& polygon, const Map_point& point) {
    bool inside = false;
    for (const auto& ring : polygon.rings)
        for (std::size_t i = 0, before = ring.size() - 1; i < ring.size(); before = i++) {
            const Map_point& a = ring[i];
            const Map_point& b = ring[before];
            if ((a.y > point.y) != (b.y > point.y) &&
                point.x < (b.x - a.x) * (point.y - a.y) / (b.y - a.y) + a.x)
                inside = !inside;
        }
    return inside;
}

} // namespace

void TMapView::set_map(std::shared_ptr<const Polygon_map> map) {
    map_ = std::move(map);
    boxes_.clear();
    for (const Map_polygon& polygon : this->map().polygons) {
        constexpr double far = std::numeric_limits<double>::max();
        Box box{{far, far}, {-far, -far}};
        for (const auto& ring : polygon.rings)
            for (const Map_point& point : ring) {
                box.lowest = {std::min(box.lowest.x, point.x), std::min(box.lowest.y, point.y)};
                box.highest = {std::max(box.highest.x, point.x), std::max(box.highest.y, point.y)};
            }
        boxes_.push_back(box);
    }
    colours_.clear();
    hovered_ = -1;
    const Polygon_map& now = this->map();
    window_ = {{(now.lowest.x + now.highest.x) / 2, (now.lowest.y + now.highest.y) / 2}, 1};
    notify(Aspect::state);
}

const Polygon_map& TMapView::map() const {
    static const Polygon_map empty;
    return map_ ? *map_ : empty;
}

void TMapView::set_colours(std::vector<Colour> colours) {
    assign(colours_, colours, Aspect::state);
}

Colour TMapView::colour_of(std::size_t polygon) const {
    return polygon < colours_.size() ? colours_[polygon] : desktop_colour;
}

int TMapView::polygon_at(const Map_point& point) const {
    for (std::size_t i = boxes_.size(); i-- > 0;) {
        const Box& box = boxes_[i];
        if (point.x >= box.lowest.x && point.x <= box.highest.x && point.y >= box.lowest.y &&
            point.y <= box.highest.y && surrounds(map().polygons[i], point))
            return static_cast<int>(i);
    }
    return -1;
}

bool TMapView::hover(const Map_point* point) {
    if (!in_reach())
        return false;
    if (assign(hovered_, point == nullptr ? -1 : polygon_at(*point), Aspect::cursor) && on_hover)
        on_hover();
    return true;
}

bool TMapView::hover_next(int step) {
    const int count = static_cast<int>(map().polygons.size());
    if (count == 0 || !begin_action())
        return false;
    const int from = hovered_ < 0 && step < 0 ? 0 : hovered_;
    if (assign(hovered_, (from + step + count) % count, Aspect::cursor) && on_hover)
        on_hover();
    return true;
}

bool TMapView::set_window(Map_window window) {
    if (!begin_action())
        return false;
    window.enlargement = std::clamp(window.enlargement, smallest_enlargement, largest_enlargement);
    window.centre.x = std::clamp(window.centre.x, map().lowest.x, map().highest.x);
    window.centre.y = std::clamp(window.centre.y, map().lowest.y, map().highest.y);
    assign(window_, window, Aspect::state);
    return true;
}

bool TMapView::move(double right, double up) {
    Map_window window = window_;
    window.centre.x += right * (map().highest.x - map().lowest.x) / window.enlargement;
    window.centre.y += up * (map().highest.y - map().lowest.y) / window.enlargement;
    return set_window(window);
}

bool TMapView::zoom(double factor, const Map_point& fixed) {
    Map_window window = window_;
    const double before = window.enlargement;
    window.enlargement = std::clamp(before * factor, smallest_enlargement, largest_enlargement);
    const double kept = before / window.enlargement;
    window.centre.x = fixed.x + (window.centre.x - fixed.x) * kept;
    window.centre.y = fixed.y + (window.centre.y - fixed.y) * kept;
    return set_window(window);
}

bool TMapView::show_whole() {
    return set_window({{(map().lowest.x + map().highest.x) / 2, (map().lowest.y + map().highest.y) / 2}, 1});
}

bool TMapView::press(const Key& key) {
    switch (key.code) {
    case Key_code::left: return move(-step, 0);
    case Key_code::right: return move(step, 0);
    case Key_code::up: return move(0, step);
    case Key_code::down: return move(0, -step);
    case Key_code::home: return show_whole();
    case Key_code::page_down: return hover_next(1);
    case Key_code::page_up: return hover_next(-1);
    default: break;
    }
    if (key.text == "+")
        return zoom(zoom_step, window_.centre);
    return key.text == "-" && zoom(1 / zoom_step, window_.centre);
}
