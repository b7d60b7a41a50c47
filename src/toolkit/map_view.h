// A map of coloured polygons, which a user can move, enlarge, and ask about.
#pragma once

#include "foundation/polygon_map.h"
#include "toolkit/control.h"

// Which part of a map is on view: the point in the middle, and by how much what is shown is larger than the
// whole map fitted in.
struct Map_window {
    Map_point centre;
    double enlargement = 1;

    bool operator==(const Map_window& other) const {
        return centre.x == other.centre.x && centre.y == other.centre.y && enlargement == other.enlargement;
    }
};

class TMapView : public TControl {
public:
    explicit TMapView(std::string name) : TControl(Control_kind::map_view, std::move(name)) {
        set_takes_focus(true);
    }

    // Null shows an empty map. The whole map comes on view, without colours.
    void set_map(std::shared_ptr<const Polygon_map> map);
    const Polygon_map& map() const;
    // The colour of each polygon; those without one are left empty.
    void set_colours(std::vector<Colour> colours);
    Colour colour_of(std::size_t polygon) const;

    const Map_window& window() const { return window_; }
    // The polygon that is pointed at, or -1, and what is told of it.
    int hovered() const { return hovered_; }
    std::string description() const { return hovered_ >= 0 && describe ? describe(hovered_) : std::string(); }
    // The last polygon, since that is drawn on top, that holds a point of the map; -1 for none.
    int polygon_at(const Map_point& point) const;

    // What a user does: points at a place of the map or, with null, away from it, or at the next polygon in
    // the order of the file, by 1, or the one before, by -1; moves what is on view by a part of the map's
    // size; enlarges it, or with a factor below 1 makes it smaller, with `fixed` staying where it is.
    bool hover(const Map_point* point);
    bool hover_next(int step);
    bool move(double right, double up);
    bool zoom(double factor, const Map_point& fixed);
    bool show_whole();

    std::function<std::string(int polygon)> describe; // what is told of a polygon, in UTF-8
    std::function<void()> on_hover;                   // another polygon, or none, came under the pointer

protected:
    bool press(const Key& key) override;

private:
    struct Box {
        Map_point lowest;
        Map_point highest;
    };

    bool set_window(Map_window window);

    std::shared_ptr<const Polygon_map> map_;
    std::vector<Box> boxes_; // round each polygon
    std::vector<Colour> colours_;
    Map_window window_;
    int hovered_ = -1;
};
