#include "toolkit/picture.h"

#include <iterator>

namespace {

constexpr Colour blue = 0xffaa1b;
constexpr Colour purple = 0xee80ee;
constexpr Colour red = 0x6677ff;
constexpr Colour orange = 0x66aaee;
constexpr Colour yellow = 0x55ffff;
constexpr Colour light_green = 0x99ee77;
constexpr Colour green = 0x33cc55;
constexpr Colour grey = 0x808080;

constexpr Picture lights[] = {
    {Shape::square, blue, Mark::question, false, "Status unknown"},
    {Shape::hexagon, purple, Mark::asterisk, false, "Required, not specified"},
    {Shape::octagon, red, Mark::too_low, false, "Invalid: too low"},
    {Shape::octagon, red, Mark::cross, false, "Invalid"},
    {Shape::octagon, red, Mark::too_high, false, "Invalid: too high"},
    {Shape::diamond, orange, Mark::too_low, false, "Possibly invalid: too low"},
    {Shape::diamond, orange, Mark::exclamation, false, "Possibly invalid"},
    {Shape::diamond, orange, Mark::too_high, false, "Possibly invalid: too high"},
    {Shape::triangle, yellow, Mark::too_low, false, "Out of range: too low"},
    {Shape::triangle, yellow, Mark::exclamation, false, "Out of range"},
    {Shape::triangle, yellow, Mark::too_high, false, "Out of range: too high"},
    {Shape::disc, light_green, Mark::none, false, "Presumed valid"},
    {Shape::disc, green, Mark::tick, false, "Valid"},
    {Shape::ring, grey, Mark::dash, false, "Not required"},
};

constexpr Picture gems[] = {
    {Shape::disc, blue, Mark::none, true, "Sapphire"},
    {Shape::hexagon, purple, Mark::none, true, "Amethyst"},
    {Shape::octagon, red, Mark::none, true, "Ruby"},
    {Shape::triangle, yellow, Mark::none, true, "Topaz"},
    {Shape::cut_corners, green, Mark::none, true, "Emerald"},
};

} // namespace

Picture status_light(int status) {
    return lights[status >= 0 && status < static_cast<int>(std::size(lights)) ? status : 0];
}

Picture gem_picture(int type) {
    constexpr Picture plain = {Shape::square, grey, Mark::none, true, "Plain"};
    return type >= 0 && type < static_cast<int>(std::size(gems)) ? gems[type] : plain;
}

const char* mark_text(Mark mark) {
    switch (mark) {
    case Mark::tick: return "\xE2\x9C\x93";
    case Mark::cross: return "\xE2\x9C\x97";
    case Mark::exclamation: return "!";
    case Mark::question: return "?";
    case Mark::asterisk: return "*";
    case Mark::dash: return "\xE2\x80\x93";
    case Mark::too_low: return "\xE2\x96\xBC";
    case Mark::too_high: return "\xE2\x96\xB2";
    default: return "";
    }
}
