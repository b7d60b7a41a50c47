// Small pictures that tell a status: by shape and sign as well as by colour.
#pragma once

#include "toolkit/control.h"

enum class Shape { none, disc, ring, square, diamond, triangle, hexagon, octagon, cut_corners };
enum class Mark { none, tick, cross, exclamation, question, asterisk, dash, too_low, too_high };

struct Picture {
    Shape shape = Shape::none;
    Colour colour = 0;
    Mark mark = Mark::none;
    bool faceted = false;     // drawn as a cut stone
    const char* meaning = ""; // for who cannot see it

    bool operator==(const Picture& other) const {
        return shape == other.shape && colour == other.colour && mark == other.mark &&
               faceted == other.faceted;
    }
};

// The light of a validation status, 0 to 13; any other has the light of status 0, unknown.
Picture status_light(int status);

// The stone of a gem type, in the order sapphire, amethyst, ruby, topaz, emerald; any other is a plain one.
Picture gem_picture(int type);

// The character that stands for a mark in a text, in UTF-8; empty for none.
const char* mark_text(Mark mark);

class TImage : public TControl {
public:
    explicit TImage(std::string name, const Picture& picture = {})
        : TControl(Control_kind::image, std::move(name)), picture_(picture) {}

    const Picture& picture() const { return picture_; }
    void set_picture(const Picture& picture) { assign(picture_, picture, Aspect::value); }

private:
    Picture picture_;
};
