// A band of coloured stretches of given lengths, each with a name: what stands above or below can be aligned
// with it.
#pragma once

#include "toolkit/control.h"

#include <vector>

class TRuler : public TControl {
public:
    struct Stretch {
        int width; // in pixels; a screen of high resolution has several dots to the pixel
        Colour colour;
        std::string name;
        bool operator==(const Stretch&) const = default;
    };

    explicit TRuler(std::string name) : TControl(Control_kind::ruler, std::move(name)) {}

    // From the left, one right behind the other. A width below 0 is 0.
    const std::vector<Stretch>& stretches() const { return stretches_; }
    void set_stretches(std::vector<Stretch> stretches);
    // Of all the stretches together.
    int width() const;

private:
    std::vector<Stretch> stretches_;
};
