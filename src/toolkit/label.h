// Text on a form, and a bar that shows how far something has come.
#pragma once

#include "toolkit/picture.h"

class TLabel : public TControl {
public:
    explicit TLabel(std::string name, std::string text = {}, bool wraps = false)
        : TControl(Control_kind::label, std::move(name), std::move(text)), wraps_(wraps) {}

    // Whether the text breaks into lines where it is wider than its room.
    bool wraps() const { return wraps_; }
    // Whether the label names the control behind it in its container: "&" then marks the key that leads
    // there.
    bool names_next() const { return names_next_; }
    void set_names_next(bool names) { assign(names_next_, names, Aspect::state); }
    // A sign before the text, for what its colour tells.
    Mark mark() const { return mark_; }
    void set_mark(Mark mark) { assign(mark_, mark, Aspect::state); }

private:
    bool wraps_;
    bool names_next_ = false;
    Mark mark_ = Mark::none;
};

class TProgressBar : public TControl {
public:
    explicit TProgressBar(std::string name) : TControl(Control_kind::progress_bar, std::move(name)) {}

    int position() const { return position_; }
    int maximum() const { return maximum_; }
    // A position outside 0 to the maximum is moved to its ends; a maximum below 0 is 0.
    void set_position(int position);
    void set_maximum(int maximum);
    void step() { set_position(position_ + 1); }

private:
    int position_ = 0;
    int maximum_ = 100;
};
